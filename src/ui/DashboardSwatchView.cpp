#include "ui/DashboardSwatchView.h"

#include "state/AppState.h"
#include "ui/Appearance.h"
#include "ui/ColorActions.h"
#include "ui/ColorDrag.h"
#include "ui/DS.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Shadow.h"
#include "ui/kit/Symbol.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>

namespace tintwick {

namespace {

constexpr double squareRadius = 14;
constexpr double hoverScale = 1.05;
// Room for the hovered square around the one at rest.
constexpr int growth = 2;
constexpr int symbolSize = 14;
constexpr int labelGap = 6;
constexpr double borderWidth = 0.5;
constexpr DS::Color border = DS::black.opacity(0.06);
constexpr DS::Color hoverVeil = DS::black.opacity(0.18);
constexpr double shadowOpacity = 0.4;
constexpr double shadowRadius = 6;
constexpr QPointF shadowOffset(0, 3);
constexpr QMargins shadowExtents(16, 16, 16, 16);

QFont labelFont()
{
    return DS::monospacedFont(9, QFont::Medium);
}

QRectF squareAtRest()
{
    return QRectF(growth, growth, DashboardSwatchView::side, DashboardSwatchView::side);
}

QRectF labelRect()
{
    const QRectF square = squareAtRest();
    return {square.left(), square.bottom() + labelGap, square.width(), QFontMetricsF(labelFont()).height()};
}

Shadow shadowOf(const CapturedColor& color)
{
    return {DS::Color(paintColor(color)).opacity(shadowOpacity), shadowRadius, shadowOffset};
}

} // namespace

DashboardSwatchView::DashboardSwatchView(AppState& appState)
    : Clickable({})
    , m_appState(appState)
    , m_hover(0.2, 0.7)
    , m_animator([this](double seconds) {
        const bool isMoving = m_hover.advance(seconds);
        update();
        updateShadow(*this, shadowExtents);
        return isMoving;
    })
{
    onClick([this] { copyWithFeedback(m_appState, m_appState.defaultFormat(), m_color); });
}

void DashboardSwatchView::setColor(const CapturedColor& color)
{
    if (m_color == color) {
        return;
    }
    m_color = color;
    setAccessibleName(spokenName(m_color));
    setToolTip(spokenName(m_color));
    update();
    updateShadow(*this, shadowExtents);
}

QSize DashboardSwatchView::sizeHint() const
{
    return {side + 2 * growth, qCeil(labelRect().bottom()) + growth};
}

QMargins DashboardSwatchView::overhang() const
{
    return {growth, growth, growth, growth};
}

void DashboardSwatchView::hoverChanged()
{
    m_hover.setTarget(isHovered() ? 1 : 0);
    m_animator.start();
}

QRectF DashboardSwatchView::answerRect() const
{
    return squareAtRest();
}

double DashboardSwatchView::cornerRadius() const
{
    return squareRadius;
}

bool DashboardSwatchView::hitButton(const QPoint& position) const
{
    return rect().adjusted(growth, growth, -growth, -growth).contains(position);
}

void DashboardSwatchView::contextMenuEvent(QContextMenuEvent* event)
{
    openContextMenu(event->reason() == QContextMenuEvent::Mouse ? event->globalPos()
                                                                : mapToGlobal(rect().center()));
}

void DashboardSwatchView::openContextMenu(QPoint globalPosition)
{
    QList<MenuEntry> entries{copyAsMenu(m_appState, m_color)};
    if (!m_appState.collections().isEmpty()) {
        entries << menuSeparator() << addToCollectionMenu(m_appState, m_color, tr("Add to Palette…"));
    }
    entries << menuSeparator() << menuDestructive(tr("Delete"), [&state = m_appState, id = m_color.id] {
        state.deleteColor(id);
    });
    popUpMenu(*this, globalPosition, entries);
}

void DashboardSwatchView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        openContextMenu(mapToGlobal(rect().center()));
        return;
    }
    if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
        Q_EMIT stepRequested(event->key() == Qt::Key_Left ? -1 : 1);
        return;
    }
    Clickable::keyPressEvent(event);
}

void DashboardSwatchView::mousePressEvent(QMouseEvent* event)
{
    m_pressedAt = event->position().toPoint();
    Clickable::mousePressEvent(event);
}

void DashboardSwatchView::mouseMoveEvent(QMouseEvent* event)
{
    const bool isDrag = isDown() && (event->position().toPoint() - m_pressedAt).manhattanLength() >=
                                        QApplication::startDragDistance();
    if (!isDrag) {
        Clickable::mouseMoveEvent(event);
        return;
    }
    setDown(false);
    QPixmap picture(QSize(side, side) * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paintSquare(painter, QRectF(0, 0, side, side));
    painter.end();
    dragColor(*this, m_color, picture, m_pressedAt - squareAtRest().topLeft().toPoint());
}

void DashboardSwatchView::paintShadow(QPainter& painter) const
{
    scaleAboutMiddle(painter, squareAtRest(), scale());
    drawShadow(painter, squareAtRest(), squareRadius, shadowOf(m_color), Appearance::of(this));
}

void DashboardSwatchView::paintEvent(QPaintEvent*)
{
    const Scheme scheme = Appearance::of(this);
    QPainter painter(this);
    painter.setFont(labelFont());
    painter.setPen(DS::textSecond.in(scheme));
    painter.drawText(labelRect(), Qt::AlignCenter, swatchLabel(m_color));

    const QRectF square = squareAtRest();
    scaleAboutMiddle(painter, square, scale());
    paintSquare(painter, square);
    if (const double hover = qBound(0.0, m_hover.position(), 1.0); hover > 0) {
        painter.save();
        painter.setOpacity(hover);
        fillRounded(painter, square, squareRadius, hoverVeil.in(scheme));
        // One picture for all the way, crisp where it ends.
        scaleAboutMiddle(painter, square, 1 / hoverScale);
        drawSymbol(painter, u"doc.on.doc.fill", symbolSize * hoverScale, SymbolWeight::Semibold,
                   DS::white.in(scheme), square);
        painter.restore();
    }
    paintAnswer(painter);
}

void DashboardSwatchView::paintSquare(QPainter& painter, const QRectF& square) const
{
    fillRounded(painter, square, squareRadius, paintColor(m_color));
    strokeInside(painter, square, squareRadius, border.in(Appearance::of(this)), borderWidth);
}

double DashboardSwatchView::scale() const
{
    return 1 + (hoverScale - 1) * m_hover.position();
}

} // namespace tintwick
