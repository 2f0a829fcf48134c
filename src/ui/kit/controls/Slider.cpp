#include "Slider.h"

#include "Accessibility.h"
#include "Appearance.h"
#include "Clickable.h"
#include "Paint.h"
#include "Shadow.h"
#include "Theme.h"

#include <QAccessibleValueInterface>
#include <QAccessibleWidget>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tintwick {

namespace {

constexpr int sliderHeight = 28;
constexpr int leastWidth = 80;
constexpr double trackHeight = 12;
constexpr double thumbSide = 20;
constexpr double ringWidth = 3;
/// Of the ring while the thumb is held.
constexpr double heldRingWidth = 2;
constexpr double focusRingGap = 4;
/// From the ends of the track to the middle of the thumb at the lowest and the greatest value; leaves room for the ring.
constexpr double inset = thumbSide / 2 + focusRingGap;
constexpr double pressSeconds = 0.12;
constexpr Shadow thumbShadow{theme::black.opacity(0.3), 3, QPointF(0, 1)};
constexpr theme::Color thumbEdge = theme::black.opacity(0.3);
constexpr double notch = 120;

class AccessibleSlider final : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit AccessibleSlider(Slider& slider)
        : QAccessibleWidget(&slider, QAccessible::Slider)
        , m_slider(slider)
    {
    }

    [[nodiscard]] void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? m_slider.valueText() : QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QVariant currentValue() const override
    {
        const double shift = std::pow(10, m_slider.range().decimals);
        return std::round(m_slider.value() * shift) / shift;
    }
    void setCurrentValue(const QVariant& value) override { m_slider.changeValue(value.toDouble()); }
    [[nodiscard]] QVariant minimumValue() const override { return 0.0; }
    [[nodiscard]] QVariant maximumValue() const override { return m_slider.range().greatest; }
    [[nodiscard]] QVariant minimumStepSize() const override { return m_slider.range().step; }

private:
    Slider& m_slider;
};

QRectF circle(const QPointF& middle, double side)
{
    return {middle.x() - side / 2, middle.y() - side / 2, side, side};
}

} // namespace

Slider::Slider(const QString& name, const SliderRange& range)
    : m_range(range)
    , m_press(pressSeconds)
    , m_animator([this](double seconds) {
        const bool isMoving = m_press.advance(seconds);
        update();
        return isMoving;
    })
{
    describeToScreenReaders<Slider>(
        [](QWidget& slider) { return new AccessibleSlider(static_cast<Slider&>(slider)); });
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Slider::setValue(double value)
{
    value = std::clamp(value, 0.0, m_range.greatest);
    if (m_value != value) {
        m_value = value;
        update();
    }
}

void Slider::changeValue(double value)
{
    const double before = m_value;
    setValue(value);
    if (m_value != before && m_onChange) {
        m_onChange(m_value);
    }
}

void Slider::onChange(std::function<void(double)> action)
{
    m_onChange = std::move(action);
}

void Slider::setTrack(const SliderTrack& track)
{
    if (m_track != track) {
        m_track = track;
        m_trackPicture = {};
        update();
    }
}

void Slider::setThumbColor(const QColor& color)
{
    if (m_thumbColor != color) {
        m_thumbColor = color;
        update();
    }
}

void Slider::setValueText(const QString& text)
{
    if (m_valueText != text) {
        m_valueText = text;
        QAccessibleValueChangeEvent changed(this, text);
        QAccessible::updateAccessibility(&changed);
    }
}

QSize Slider::sizeHint() const
{
    return {leastWidth, sliderHeight};
}

QSize Slider::minimumSizeHint() const
{
    return sizeHint();
}

QRectF Slider::trackRect() const
{
    return {0, (height() - trackHeight) / 2, static_cast<double>(width()), trackHeight};
}

QPointF Slider::thumbPlace() const
{
    const double way = width() - 2 * inset;
    return {inset + way * m_value / m_range.greatest, height() / 2.0};
}

double Slider::valueAt(double x) const
{
    return (x - inset) / (width() - 2 * inset) * m_range.greatest;
}

void Slider::focusInEvent(QFocusEvent* event)
{
    m_showsFocusRing = Clickable::focusRingIsShown(event->reason(), m_showsFocusRing);
    QWidget::focusInEvent(event);
}

void Slider::focusOutEvent(QFocusEvent* event)
{
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason) {
        m_showsFocusRing = false;
    }
    QWidget::focusOutEvent(event);
}

void Slider::keyPressEvent(QKeyEvent* event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if ((modifiers & ~Qt::ShiftModifier) != 0) {
        event->ignore();
        return;
    }
    const double step = modifiers == Qt::ShiftModifier ? m_range.largeStep : m_range.step;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        changeValue(m_value - step);
        break;
    case Qt::Key_Right:
    case Qt::Key_Up:
        changeValue(m_value + step);
        break;
    case Qt::Key_PageDown:
        changeValue(m_value - m_range.largeStep);
        break;
    case Qt::Key_PageUp:
        changeValue(m_value + m_range.largeStep);
        break;
    case Qt::Key_Home:
        changeValue(0);
        break;
    case Qt::Key_End:
        changeValue(m_range.greatest);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        Q_EMIT typingRequested({});
        break;
    default:
        if (event->text().size() == 1 && (event->text().front().isDigit() || event->text() == u'.')) {
            Q_EMIT typingRequested(event->text());
        } else {
            event->ignore();
        }
    }
}

void Slider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const QPointF distance = event->position() - thumbPlace();
    const bool isOnThumb = std::hypot(distance.x(), distance.y()) <= thumbSide / 2;
    m_grip = isOnThumb ? distance.x() : 0;
    changeValue(valueAt(event->position().x() - *m_grip));
    m_press.setTarget(1);
    m_animator.start();
}

void Slider::mouseMoveEvent(QMouseEvent* event)
{
    if (m_grip) {
        changeValue(valueAt(event->position().x() - *m_grip));
    }
}

void Slider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_grip) {
        m_grip.reset();
        m_press.setTarget(0);
        m_animator.start();
    }
}

void Slider::wheelEvent(QWheelEvent* event)
{
    const QPoint delta = event->angleDelta();
    // To the right, as the thumb goes, the horizontal angle is negative.
    const int angle = std::abs(delta.y()) >= std::abs(delta.x()) ? delta.y() : -delta.x();
    const double step = (event->modifiers() & Qt::ShiftModifier) != 0 ? m_range.largeStep : m_range.step;
    changeValue(m_value + angle / notch * step);
    event->accept();
}

void Slider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintTrack(painter);
    paintThumb(painter);
}

void Slider::paintTrack(QPainter& painter)
{
    const Scheme scheme = Appearance::of(this);
    const double scale = devicePixelRatioOf(painter);
    const QRectF place = trackRect();
    const QSize pixels = (place.size() * scale).toSize();
    if (m_trackPicture.size() != pixels || m_pictureScheme != scheme) {
        m_trackPicture = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
        m_trackPicture.setDevicePixelRatio(scale);
        m_trackPicture.fill(Qt::transparent);
        m_pictureScheme = scheme;
        QPainter track(&m_trackPicture);
        drawSliderTrack(track, QRectF(QPointF(), place.size()), m_track, inset, scheme);
    }
    painter.drawImage(place.topLeft(), m_trackPicture);
}

void Slider::paintThumb(QPainter& painter) const
{
    const Scheme scheme = Appearance::of(this);
    const QRectF thumb = circle(thumbPlace(), thumbSide);
    const double ring = std::lerp(ringWidth, heldRingWidth, m_press.position());
    const QRectF inside = thumb.adjusted(ring, ring, -ring, -ring);
    drawShadow(painter, thumb, thumbSide / 2, thumbShadow, scheme);
    fillRounded(painter, thumb, thumb.width() / 2, theme::white.in(scheme));
    fillRounded(painter, inside, inside.width() / 2, m_thumbColor);
    strokeInside(painter, inside, inside.width() / 2, thumbEdge.in(scheme), theme::colorEdgeWidth);
    strokeInside(painter, thumb, thumb.width() / 2, thumbEdge.in(scheme), theme::colorEdgeWidth);
    if (m_showsFocusRing) {
        const QRectF around = thumb.adjusted(-focusRingGap, -focusRingGap, focusRingGap, focusRingGap);
        drawFocusRing(painter, around, around.width() / 2, scheme);
    }
}

} // namespace tintwick
