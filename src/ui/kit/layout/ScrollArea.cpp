#include "ScrollArea.h"

#include "Appearance.h"
#include "Theme.h"

#include <QApplication>
#include <QEvent>
#include <QInputDevice>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

/// Wheel events count eighths of a degree. One notch is 120 of them and scrolls 60 points.
constexpr double pointsPerEighth = 0.5;

/// Wheel events with at most this many milliseconds between them are one turn.
constexpr quint64 longestPause = 400;

/// Room for shadows at the left and right of a row.
constexpr QMargins shadowRoom(16, 0, 16, 0);
/// The points on which a row fades out, and the hidden points at which it fades out completely.
constexpr double fadeLength = 28;
constexpr double fullFade = 8;

/// Points that are scrolled into view around the focused widget.
constexpr int seenBesideFocus = 32;

} // namespace

/// Fades the ends of a row into the ground.
class ScrollArea::EndFade final : public QWidget
{
public:
    explicit EndFade(ScrollArea& area)
        : QWidget(&area)
        , m_area(area)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        paintEnd(painter, 0, fadeLength, m_area.fading(End::Left));
        paintEnd(painter, width(), width() - fadeLength, m_area.fading(End::Right));
    }

private:
    void paintEnd(QPainter& painter, double edge, double inner, double strength) const
    {
        const theme::Color ground = theme::bg;
        const Scheme scheme = Appearance::of(this);
        QLinearGradient gradient(edge, 0, inner, 0);
        gradient.setColorAt(0, ground.opacity(strength).in(scheme));
        gradient.setColorAt(1, ground.opacity(0).in(scheme));
        painter.fillRect(QRectF(std::min(edge, inner), 0, fadeLength, height()), gradient);
    }

    ScrollArea& m_area;
};

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
    if (direction == Qt::Horizontal) {
        m_endFade = new EndFade(*this);
        const auto updateEnds = [this] {
            m_endFade->update();
            updateShadow(*this, shadowRoom);
        };
        connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, updateEnds);
        connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, updateEnds);
    }
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
        // Resizes the content now. It would otherwise be laid out, and perhaps painted, at its old size first.
        QEvent request(QEvent::LayoutRequest);
        QCoreApplication::sendEvent(this, &request);
    }
    return QScrollArea::eventFilter(watched, event);
}

void ScrollArea::mousePressEvent(QMouseEvent* event)
{
    m_held = event->position().toPoint().x() + horizontalScrollBar()->value();
    event->setAccepted(m_direction == Qt::Horizontal && event->button() == Qt::LeftButton);
}

void ScrollArea::mouseMoveEvent(QMouseEvent* event)
{
    horizontalScrollBar()->setValue(m_held - event->position().toPoint().x());
}

void ScrollArea::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    if (m_endFade != nullptr) {
        m_endFade->setGeometry(rect());
    }
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
    if (!vertical && eighths == 0 && !leavesToPage(*event)) {
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
    // A turn that has scrolled a row to its end does not go on with the page.
    const bool isScrolled = bar->value() != before || points == 0;
    event->setAccepted(isScrolled || isTurning(*event));
    if (event->isAccepted()) {
        m_turnedAt = event->timestamp();
    }
}

void ScrollArea::paintShadow(QPainter& painter) const
{
    if (m_direction == Qt::Vertical) {
        return;
    }
    const QRect around = rect().marginsAdded(shadowRoom);
    const double opacity = painter.opacity();
    const auto paintOutside = [&](End end, const QRect& outside) {
        painter.setOpacity(opacity * (1 - fading(end)));
        painter.setClipRect(outside);
        for (const QObject* object : widget()->children()) {
            const auto* child = qobject_cast<const QWidget*>(object);
            const auto* caster = dynamic_cast<const ShadowCaster*>(object);
            if (child != nullptr && caster != nullptr && !child->isHidden()) {
                painter.save();
                painter.translate(child->mapTo(this, QPoint(0, 0)));
                caster->paintShadow(painter);
                painter.restore();
            }
        }
    };
    paintOutside(End::Left, {around.topLeft(), QSize(shadowRoom.left(), around.height())});
    paintOutside(End::Right, {QPoint(rect().right() + 1, around.top()), around.bottomRight()});
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

double ScrollArea::fading(End end) const
{
    const QScrollBar& bar = *horizontalScrollBar();
    const int hidden = end == End::Left ? bar.value() : bar.maximum() - bar.value();
    return std::min(1.0, hidden / fullFade);
}

bool ScrollArea::isTurning(const QWheelEvent& event) const
{
    return m_turnedAt && event.timestamp() - *m_turnedAt <= longestPause;
}

bool ScrollArea::leavesToPage(const QWheelEvent& event) const
{
    for (const QWidget* around = parentWidget(); around != nullptr; around = around->parentWidget()) {
        const auto* page = qobject_cast<const ScrollArea*>(around);
        if (page != nullptr && page->m_direction == Qt::Vertical) {
            // Two fingers can move to the side, a wheel cannot.
            const bool canTurnSideways = event.deviceType() == QInputDevice::DeviceType::TouchPad;
            return page->verticalScrollBar()->maximum() > 0 && (canTurnSideways || page->isTurning(event));
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
