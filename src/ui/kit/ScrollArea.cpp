#include "ui/kit/ScrollArea.h"

#include <QEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

namespace tintwick {

namespace {

/// Of the eighths of a degree in which wheels are told: one notch, 120 of them, is 60 points.
constexpr double pointsPerEighth = 0.5;

} // namespace

ScrollArea::ScrollArea(Qt::Orientation direction, QWidget* content, const QMargins& overhang)
    : m_direction(direction)
    , m_overhang(overhang)
{
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(content);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    content->installEventFilter(this);
    fitContent();
    setSizePolicy(QSizePolicy::Expanding,
                  direction == Qt::Vertical ? QSizePolicy::Expanding : QSizePolicy::Fixed);
}

QSize ScrollArea::sizeHint() const
{
    return widget()->sizeHint();
}

QSize ScrollArea::minimumSizeHint() const
{
    return m_direction == Qt::Vertical ? QSize(0, 0) : QSize(0, widget()->sizeHint().height());
}

bool ScrollArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        fitContent();
    }
    return QScrollArea::eventFilter(watched, event);
}

void ScrollArea::wheelEvent(QWheelEvent* event)
{
    const QPoint turned = event->angleDelta();
    const bool vertical = m_direction == Qt::Vertical;
    QScrollBar* bar = vertical ? verticalScrollBar() : horizontalScrollBar();
    const int along = vertical ? turned.y() : turned.x();
    // A wheel turns up and down only; a row takes it too, until it is at its end and the turn is its parent's.
    const int eighths = along != 0 || vertical ? along : turned.y();
    m_owed -= eighths * pointsPerEighth;
    const int points = static_cast<int>(std::trunc(m_owed));
    m_owed -= points;
    const int before = bar->value();
    bar->setValue(before + points);
    event->setAccepted(bar->value() != before || points == 0);
}

void ScrollArea::fitContent()
{
    // What does not fit is to be scrolled, not squeezed.
    if (m_direction == Qt::Vertical) {
        widget()->setMinimumHeight(widget()->sizeHint().height());
    } else {
        widget()->setMinimumWidth(widget()->sizeHint().width());
    }
    updateGeometry();
}

ScrollArea* verticalScroll(QWidget* content)
{
    return new ScrollArea(Qt::Vertical, content);
}

ScrollArea* horizontalScroll(QWidget* content, int overhang)
{
    return new ScrollArea(Qt::Horizontal, content, {overhang, 0, overhang, 0});
}

} // namespace tintwick
