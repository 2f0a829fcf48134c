#include "ScrollArea.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

/// Wheel events count eighths of a degree. One notch is 120 of them and scrolls 60 points.
constexpr double pointsPerEighth = 0.5;

/// Room for shadows at the left and right of a row. The shadow of a child fades out while the child is scrolled out of view
/// by the first `shadowFade` points.
constexpr QMargins shadowRoom(16, 0, 16, 0);
constexpr double shadowFade = 8;

/// Points that are scrolled into view around the focused widget.
constexpr int seenBesideFocus = 32;

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
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this,
            [this] { updateShadow(*this, shadowRoom); });
    connect(qApp, &QApplication::focusChanged, this, &ScrollArea::follow);
}

ScrollArea::~ScrollArea()
{
    // Deleting the content later moves the focus, and the slot must not run then.
    disconnect(qApp, nullptr, this, nullptr);
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
    // A hidden layout requests only its first change, so showing it counts as a change.
    if (watched == widget() && (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show)) {
        fitContent();
    }
    return QScrollArea::eventFilter(watched, event);
}

void ScrollArea::wheelEvent(QWheelEvent* event)
{
    QPoint turned = event->angleDelta();
    if (turned.x() == 0 && event->modifiers().testFlag(Qt::ShiftModifier)) {
        turned = turned.transposed();
    }
    const bool vertical = m_direction == Qt::Vertical;
    QScrollBar* bar = vertical ? verticalScrollBar() : horizontalScrollBar();
    int eighths = vertical ? turned.y() : turned.x();
    if (!vertical && eighths == 0 && !isInScrollingPage()) {
        eighths = turned.y();
    }
    if (eighths == 0) {
        event->ignore();
        return;
    }
    m_remainder -= eighths * pointsPerEighth;
    const int points = static_cast<int>(std::trunc(m_remainder));
    m_remainder -= points;
    const int before = bar->value();
    bar->setValue(before + points);
    event->setAccepted(bar->value() != before || points == 0);
}

void ScrollArea::paintShadow(QPainter& painter) const
{
    if (m_direction == Qt::Vertical) {
        return;
    }
    const double opacity = painter.opacity();
    painter.setClipRegion(QRegion(rect().marginsAdded(shadowRoom)) - rect());
    for (const QObject* object : widget()->children()) {
        const auto* child = qobject_cast<const QWidget*>(object);
        const auto* caster = dynamic_cast<const ShadowCaster*>(object);
        if (child == nullptr || caster == nullptr || child->isHidden()) {
            continue;
        }
        const QRect widest = child->rect().marginsRemoved(overhangOf(*child));
        const QRect place(child->mapTo(this, widest.topLeft()), widest.size());
        const int cutOff = std::max({0, -place.left(), place.right() - rect().right()});
        if (cutOff < shadowFade) {
            painter.save();
            painter.setOpacity(opacity * (1 - cutOff / shadowFade));
            painter.translate(child->mapTo(this, QPoint(0, 0)));
            caster->paintShadow(painter);
            painter.restore();
        }
    }
}

void ScrollArea::fitContent()
{
    // Content that does not fit is scrolled, not squeezed.
    if (m_direction == Qt::Vertical) {
        widget()->setMinimumHeight(widget()->sizeHint().height());
    } else {
        widget()->setMinimumWidth(widget()->sizeHint().width());
    }
    updateGeometry();
}

void ScrollArea::follow(const QWidget* before, QWidget* focused)
{
    // When a window becomes active again, its scroll position stays.
    const bool isMoved = before != nullptr && before->isVisible();
    if (!isMoved || focused == nullptr || !widget()->isAncestorOf(focused)) {
        return;
    }
    const QRect place(focused->mapTo(widget(), QPoint(0, 0)), focused->size());
    const QRect seen(-widget()->pos(), viewport()->size());
    if (!seen.contains(place)) {
        const QPoint middle = place.center();
        ensureVisible(middle.x(), middle.y(), place.width() / 2 + seenBesideFocus,
                      place.height() / 2 + seenBesideFocus);
    }
}

bool ScrollArea::isInScrollingPage() const
{
    for (const QWidget* around = parentWidget(); around != nullptr; around = around->parentWidget()) {
        const auto* area = qobject_cast<const ScrollArea*>(around);
        if (area != nullptr && area->m_direction == Qt::Vertical) {
            return area->verticalScrollBar()->maximum() > 0;
        }
    }
    return false;
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
