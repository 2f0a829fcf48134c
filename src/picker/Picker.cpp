#include "Picker.h"

#include "Platform.h"
#include "Preferences.h"

#include <QGuiApplication>
#include <QScreen>

#include <utility>

namespace tintwick {

Picker::Picker(Platform& platform, const Preferences& preferences, CopiedText copiedText, QObject* parent)
    : QObject(parent)
    , m_platform(platform)
    , m_preferences(preferences)
    , m_copiedText(std::move(copiedText))
{
    m_platform.preparePicking();
}

void Picker::prepare()
{
    for (const QScreen* screen : QGuiApplication::screens()) {
        m_loupe.render(look(), screen->devicePixelRatio());
    }
    connect(&m_preferences, &Preferences::loupeChanged, this, &Picker::prepare, Qt::UniqueConnection);
}

void Picker::setHighContrast(bool hasHighContrast)
{
    if (hasHighContrast != m_hasHighContrast) {
        m_hasHighContrast = hasHighContrast;
        prepare();
    }
}

void Picker::start(const PickMode& mode)
{
    if (m_session) {
        return;
    }
    m_session = new PickSession(
        m_platform, m_loupe,
        {.look = look(), .radius = m_preferences.loupeRadius(), .copiedText = m_copiedText, .mode = mode},
        this);
    connect(m_session, &PickSession::begun, this, &Picker::begun);
    connect(m_session, &PickSession::isWaiting, this, &Picker::isWaiting);
    connect(m_session, &PickSession::picked, this, &Picker::picked);
    connect(m_session, &PickSession::ended, this, &Picker::finish);
}

void Picker::cancel()
{
    if (m_session) {
        m_session->cancel();
    }
}

LoupeLook Picker::look() const
{
    return {.isCircle = m_preferences.loupeShape() == LoupeShape::Circle,
            .side = loupeSide(m_preferences.loupeSize()),
            .showsName = m_preferences.loupeCaption() != LoupeCaption::Text,
            .showsText = m_preferences.loupeCaption() != LoupeCaption::Name,
            .hasHighContrast = m_hasHighContrast};
}

void Picker::finish(const PickOutcome& outcome)
{
    // The session is still emitting its signal.
    std::exchange(m_session, nullptr)->deleteLater();
    Q_EMIT ended(outcome);
}

} // namespace tintwick
