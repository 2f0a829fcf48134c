#include "CopiedPill.h"

#include "AppState.h"
#include "Appearance.h"
#include "Paint.h"
#include "Symbol.h"
#include "Theme.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QPainter>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr double duration = 0.18;
constexpr double scaleWhenGone = 0.92;
constexpr int horizontalPadding = 8;
constexpr int verticalPadding = 4;
constexpr double gap = 4;
constexpr int symbolSize = 10;

QFont textFont()
{
    return theme::font(11, QFont::Medium);
}

} // namespace

CopiedPill::CopiedPill(const AppState& appState)
    : m_presence(duration, appState.showCopiedFeedback() ? 1 : 0)
    , m_animator([this](double seconds) {
        const bool isMoving = m_presence.advance(seconds);
        setVisible(m_presence.position() > 0 || m_presence.target() > 0);
        update();
        return isMoving;
    })
{
    setAccessibleName(tr("Copied!"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setHidden(!appState.showCopiedFeedback());
    connect(&appState, &AppState::showCopiedFeedbackChanged, this,
            [this, &appState] { follow(appState.showCopiedFeedback()); });
}

QSize CopiedPill::sizeHint() const
{
    const QFontMetricsF metrics(textFont());
    return {qCeil(2 * horizontalPadding + symbolSide(symbolSize) + gap +
                  metrics.horizontalAdvance(accessibleName())),
            qCeil(2 * verticalPadding + metrics.height())};
}

void CopiedPill::follow(bool isShown)
{
    m_presence.setTarget(isShown ? 1 : 0);
    if (isShown) {
        show();
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
    m_animator.start();
}

void CopiedPill::paintEvent(QPaintEvent*)
{
    const Scheme scheme = Appearance::of(this);
    const QRectF pill = rect();
    const double presence = m_presence.position();
    const double scale = scaleWhenGone + (1 - scaleWhenGone) * presence;
    QPainter painter(this);
    painter.setOpacity(presence);
    scaleAboutMiddle(painter, pill, scale);

    fillRounded(painter, pill, pill.height() / 2, theme::surface.in(scheme));
    const QRectF mark(horizontalPadding, 0, symbolSide(symbolSize), pill.height());
    drawSymbol(painter, u"check-circle", symbolSize, SymbolWeight::Regular, theme::green.in(scheme), mark);
    painter.setFont(textFont());
    painter.setPen(theme::textSecond.in(scheme));
    painter.drawText(pill.adjusted(mark.right() + gap, 0, 0, 0), Qt::AlignLeading | Qt::AlignVCenter,
                     accessibleName());
}

} // namespace tintwick
