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

/// Of the eighths of a degree in which wheels are told: one notch, 120 of them, is 60 points.
constexpr double pointsPerEighth = 0.5;

/// Beside a row, for shadows; one that begins to be cut off fades over as many points as shadows mostly reach.
constexpr QMargins shadowRoom(16, 0, 16, 0);
constexpr double shadowFade = 8;

/// So much of what is beside the focus comes into view with it.
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
    // What has the focus in it loses it when the content is deleted, which is later than this.
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
    // A layout that is hidden tells of its first change only.
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
    m_owed -= eighths * pointsPerEighth;
    const int points = static_cast<int>(std::trunc(m_owed));
    m_owed -= points;
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
    // What does not fit is to be scrolled, not squeezed.
    if (m_direction == Qt::Vertical) {
        widget()->setMinimumHeight(widget()->sizeHint().height());
    } else {
        widget()->setMinimumWidth(widget()->sizeHint().width());
    }
    updateGeometry();
}

void ScrollArea::follow(const QWidget* before, QWidget* focused)
{
    // A window that is left and come back to stays as it was scrolled.
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
