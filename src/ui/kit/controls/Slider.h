#pragma once

#include "Animator.h"
#include "EaseInOut.h"
#include "SliderTrack.h"

#include <QColor>
#include <QImage>
#include <QWidget>

#include <functional>
#include <optional>

namespace tintwick {

/// The values of a slider. The lowest is 0.
struct SliderRange
{
    double greatest = 1;
    /// Of the arrow keys and of a notch of the wheel.
    double step = 0.01;
    /// The same with Shift, and of Page Up and Page Down.
    double largeStep = 0.1;
    /// Of the value that screen readers get.
    int decimals = 2;
};

/// A horizontal slider whose track shows the colour of each value. The thumb can be dragged; a press beside it moves it there. The
/// wheel, the arrow keys, Page Up, Page Down, Home and End change the value in steps.
class Slider final : public QWidget
{
    Q_OBJECT

public:
    /// `name` is for screen readers.
    Slider(const QString& name, const SliderRange& range);

    [[nodiscard]] double value() const { return m_value; }
    [[nodiscard]] const SliderRange& range() const { return m_range; }
    /// Clamps to the range. Does not run the action of `onChange()`.
    void setValue(double value);
    /// The same for the user: runs the action of `onChange()` if the value changes.
    void changeValue(double value);
    void onChange(std::function<void(double value)> action);

    [[nodiscard]] const SliderTrack& track() const { return m_track; }
    void setTrack(const SliderTrack& track);
    void setThumbColor(const QColor& color);
    /// The value in words, for screen readers.
    void setValueText(const QString& text);
    [[nodiscard]] const QString& valueText() const { return m_valueText; }

    /// The middle of the thumb.
    [[nodiscard]] QPointF thumbPlace() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user asks to type the value: by Return, F2 or the first character of the text, which else is empty.
    void typingRequested(const QString& text);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRectF trackRect() const;
    [[nodiscard]] double valueAt(double x) const;
    void paintTrack(QPainter& painter);
    void paintThumb(QPainter& painter) const;

    SliderRange m_range;
    double m_value = 0;
    SliderTrack m_track;
    QColor m_thumbColor;
    QString m_valueText;
    std::function<void(double)> m_onChange;
    /// From the middle of the thumb to the pointer that drags it, in points.
    std::optional<double> m_grip;
    bool m_showsFocusRing = false;

    /// The painted track, with the scheme that it has; null after a change of the track.
    QImage m_trackPicture;
    std::optional<Scheme> m_pictureScheme;

    /// 0 at rest, 1 while the thumb is held.
    EaseInOut m_press;
    Animator m_animator;
};

} // namespace tintwick
