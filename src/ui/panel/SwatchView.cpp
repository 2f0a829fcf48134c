#include "SwatchView.h"

#include "AppState.h"
#include "Appearance.h"
#include "ColorActions.h"
#include "ColorDrag.h"
#include "ColorPatch.h"
#include "ColorSelector.h"
#include "Paint.h"
#include "Symbol.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>

#include <cmath>

namespace tintwick {

namespace {

// Margin around the square at rest for the larger hovered one.
constexpr int growth = 2;
constexpr QStringView copySymbol = u"copy-filled";

QFont labelFont()
{
    return theme::monospacedFont(9, QFont::Medium);
}

} // namespace

SwatchView::SwatchView(AppState& appState, const SwatchLook& look)
    : SelectableColor(appState)
    , m_look(look)
    , m_animator([this](double seconds) {
        const bool isMoving = m_look.hover.advance(seconds);
        updateAll();
        return isMoving;
    })
    , m_dropTarget(*this, appState,
                   [this](const CapturedColor& dropped) { openContrast(*this, dropped, m_color); })
{
}

void SwatchView::setColor(const CapturedColor& color)
{
    if (m_color == color) {
        return;
    }
    m_color = color;
    setAccessibleName(spokenName(m_color));
    setToolTip(spokenName(m_color));
    followSelector();
    updateAll();
}

QSize SwatchView::sizeHint() const
{
    return {m_look.side + 2 * (m_look.sideRoom + growth), qCeil(labelRect().bottom()) + growth};
}

QMargins SwatchView::overhang() const
{
    return {growth, growth, growth, growth};
}

void SwatchView::hoverChanged()
{
    m_look.hover.setTarget(isHovered() ? 1 : 0);
    m_animator.start();
}

bool SwatchView::hitButton(const QPoint& position) const
{
    return rect().adjusted(growth, growth, -growth, -growth).contains(position);
}

void SwatchView::step(int columns, int rows, Qt::KeyboardModifiers modifiers)
{
    Q_EMIT stepRequested(columns, rows);
    auto* const now = qobject_cast<SwatchView*>(window()->focusWidget());
    if (modifiers.testFlag(Qt::ShiftModifier) && selector() != nullptr && now != nullptr &&
        now->selector() == selector()) {
        selector()->extend(m_color.id, now->m_color.id);
    }
}

void SwatchView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        step(-1, 0, event->modifiers());
        break;
    case Qt::Key_Right:
        step(1, 0, event->modifiers());
        break;
    case Qt::Key_Up:
        step(0, -1, event->modifiers());
        break;
    case Qt::Key_Down:
        step(0, 1, event->modifiers());
        break;
    default:
        if (!openColorByKey(*event, *this, m_color)) {
            Clickable::keyPressEvent(event);
        }
    }
}

void SwatchView::mousePressEvent(QMouseEvent* event)
{
    m_pressedAt = event->position().toPoint();
    Clickable::mousePressEvent(event);
}

void SwatchView::mouseMoveEvent(QMouseEvent* event)
{
    const bool isDrag = isDown() && (event->position().toPoint() - m_pressedAt).manhattanLength() >=
                                        QApplication::startDragDistance();
    if (!isDrag) {
        Clickable::mouseMoveEvent(event);
        return;
    }
    setDown(false);
    const QRectF square = squareAtRest();
    QPixmap picture(square.size().toSize() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.translate(-square.topLeft());
    paintSquare(painter, 0);
    painter.end();
    dragColors(*this, draggedIds(), picture, m_pressedAt - square.topLeft().toPoint());
}

void SwatchView::paintShadow(QPainter& painter) const
{
    // Two equal shadows blended half and half are fainter than one, so only one is painted then.
    const bool changes = m_look.atRest.shadow != m_look.hovered.shadow;
    scaleAboutMiddle(painter, squareAtRest(), scale());
    drawShadowBetween(painter, squareAtRest(), m_look.cornerRadius, shadowIn(m_look.atRest),
                      shadowIn(m_look.hovered), changes ? m_look.hover.fraction() : 0, Appearance::of(this));
}

void SwatchView::paintEvent(QPaintEvent*)
{
    const Scheme scheme = Appearance::of(this);
    const double hovered = m_look.hover.fraction();
    QPainter painter(this);
    painter.setFont(labelFont());
    painter.setPen(mixed(m_look.atRest.label.in(scheme), m_look.hovered.label.in(scheme), hovered));
    painter.drawText(labelRect(), Qt::AlignCenter, swatchLabel(m_color));

    scaleAboutMiddle(painter, squareAtRest(), scale());
    paintSquare(painter, m_dropTarget.dragged() ? 0 : hovered);
    if (m_dropTarget.dragged()) {
        drawTextPreview(painter, squareAtRest(), m_look.cornerRadius, paintColor(*m_dropTarget.dragged()),
                        scheme);
    }
    if (isSelected()) {
        drawSelected(painter, squareAtRest(), m_look.cornerRadius, scheme);
    }
    paintStateLayer(painter);
}

void SwatchView::paintSquare(QPainter& painter, double hovered) const
{
    const Scheme scheme = Appearance::of(this);
    const QRectF square = squareAtRest();
    if (m_look.showsChecks && m_color.alpha < 1) {
        drawCheckerboard(painter, square, m_look.cornerRadius);
    }
    fillRounded(painter, square, m_look.cornerRadius, paintColor(m_color));
    if (hovered > 0) {
        painter.save();
        painter.setOpacity(hovered);
        fillRounded(painter, square, m_look.cornerRadius, m_look.hoverVeil.in(scheme));
        // Drawn at its final size and scaled: one cached image serves the whole animation and is crisp at its end.
        scaleAboutMiddle(painter, square, 1 / m_look.hoverScale);
        const double size = m_look.symbolSize * m_look.hoverScale;
        drawSymbolShadow(painter, copySymbol, size, SymbolWeight::Semibold, m_look.symbolShadow.in(scheme),
                         square);
        drawSymbol(painter, copySymbol, size, SymbolWeight::Semibold, theme::white.in(scheme), square);
        painter.restore();
    }
    strokeInside(painter, square, m_look.cornerRadius,
                 mixed(m_look.atRest.border.in(scheme), m_look.hovered.border.in(scheme), hovered),
                 std::lerp(m_look.atRest.borderWidth, m_look.hovered.borderWidth, hovered));
}

void SwatchView::updateAll()
{
    update();
    // A spring overshoots.
    constexpr QMargins beyond(1, 1, 1, 1);
    updateShadow(*this, shadowIn(m_look.hovered).extents() + beyond);
}

Shadow SwatchView::shadowIn(const SwatchLook::State& state) const
{
    return {theme::Color(paintColor(m_color)).opacity(state.shadow.opacity), state.shadow.radius,
            QPointF(0, state.shadow.drop)};
}

QRectF SwatchView::squareAtRest() const
{
    return QRectF(growth + m_look.sideRoom, growth, m_look.side, m_look.side);
}

QRectF SwatchView::labelRect() const
{
    const QRectF square = squareAtRest();
    return {square.left() - m_look.sideRoom, square.bottom() + m_look.labelGap,
            square.width() + 2 * m_look.sideRoom, QFontMetricsF(labelFont()).height()};
}

double SwatchView::scale() const
{
    return 1 + (m_look.hoverScale - 1) * m_look.hover.position();
}

} // namespace tintwick
