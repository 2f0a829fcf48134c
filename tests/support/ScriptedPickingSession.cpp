#include "support/ScriptedPickingSession.h"

#include <utility>

namespace tintwick::test {

ScriptedDesktop::ScriptedDesktop()
    : picture([](const Grab& grab) {
        QImage image(grab.pixels.size(), QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                image.setPixel(x, y, worldColor(grab.screen, grab.pixels.x() + x, grab.pixels.y() + y));
            }
        }
        return image;
    })
{
}

void ScriptedDesktop::move(const ScreenPosition& to)
{
    pointer = to;
    if (listener) {
        listener->pointerMoved(to);
    }
}

void ScriptedDesktop::press(PointerButton button, const ScreenPosition& at, int modifiers)
{
    pointer = at;
    if (listener) {
        listener->buttonPressed(button, at, modifiers);
    }
}

void ScriptedDesktop::scroll(ScrollDelta delta) const
{
    if (listener) {
        listener->scrolled(delta);
    }
}

void ScriptedDesktop::key(const KeyPress& press) const
{
    if (listener) {
        listener->keyPressed(press);
    }
}

void ScriptedDesktop::reportChange() const
{
    if (listener) {
        listener->contentChanged();
    }
}

void ScriptedDesktop::lose() const
{
    if (listener) {
        listener->lost();
    }
}

ScriptedPickingSession::ScriptedPickingSession(ScriptedDesktop& desktop, Listener& listener)
    : m_desktop(desktop)
    , m_listener(&listener)
{
    QMetaObject::invokeMethod(
        &m_context, [this] { start(); }, Qt::QueuedConnection);
}

ScriptedPickingSession::~ScriptedPickingSession()
{
    end();
}

void ScriptedPickingSession::start()
{
    if (!m_listener) {
        return;
    }
    if (m_desktop.refusal) {
        m_desktop.journal << QStringLiteral("refuse");
        std::exchange(m_listener, nullptr)->refused(*m_desktop.refusal);
        return;
    }
    m_desktop.journal << QStringLiteral("start");
    m_desktop.listener = m_listener;
    if (!m_desktop.screens.empty()) {
        m_listener->pointerMoved(m_desktop.pointer);
    }
}

QImage ScriptedPickingSession::grab(int screen, const QRect& pixels)
{
    m_desktop.journal << QStringLiteral("grab");
    m_desktop.grabs.push_back({screen, pixels});
    return m_desktop.picture(m_desktop.grabs.back());
}

void ScriptedPickingSession::setFrozen(bool isFrozen)
{
    if (m_desktop.canThaw && isFrozen != m_desktop.isFrozen) {
        m_desktop.journal << (isFrozen ? QStringLiteral("freeze") : QStringLiteral("thaw"));
        m_desktop.isFrozen = isFrozen;
    }
}

void ScriptedPickingSession::retake()
{
    if (m_desktop.isFrozen) {
        m_desktop.journal << QStringLiteral("retake");
    }
}

void ScriptedPickingSession::showLoupe(const QImage& picture, int screen, QPoint topLeft)
{
    m_desktop.journal << QStringLiteral("show loupe");
    m_desktop.frames.push_back({picture.copy(), screen, topLeft});
}

std::optional<ScreenPosition> ScriptedPickingSession::onScreen(const ScreenPosition& position) const
{
    const QPointF point = position.point + m_desktop.origins.at(static_cast<std::size_t>(position.screen));
    for (std::size_t i = 0; i < m_desktop.screens.size(); ++i) {
        const ScreenPosition local{static_cast<int>(i), point - m_desktop.origins.at(i)};
        if (QRect(QPoint(), m_desktop.screens[i].size).contains(local.pixel())) {
            return local;
        }
    }
    return std::nullopt;
}

bool ScriptedPickingSession::warpPointer(const ScreenPosition& position)
{
    if (m_desktop.canWarp) {
        m_desktop.journal << QStringLiteral("warp");
        m_desktop.pointer = position;
    }
    return m_desktop.canWarp;
}

bool ScriptedPickingSession::copyText(const QString& text)
{
    m_desktop.journal << QStringLiteral("copy ") + text;
    return m_desktop.acceptsClipboard;
}

void ScriptedPickingSession::end()
{
    if (std::exchange(m_listener, nullptr)) {
        m_desktop.journal << QStringLiteral("end");
        m_desktop.listener = nullptr;
        m_desktop.isFrozen = m_desktop.isFrozen && !m_desktop.canThaw;
    }
}

QRgb worldColor(int screen, int x, int y)
{
    return qRgb(x & 0xFF, y & 0xFF, (x ^ y ^ (screen * 0x55)) & 0xFF);
}

} // namespace tintwick::test
