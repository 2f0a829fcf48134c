#pragma once

#include "Overhang.h"
#include "ShadowCaster.h"

#include <QScrollArea>

#include <optional>

namespace tintwick {

/// Scrolls content in one direction, without scroll bars. A widget in it that gets the focus is scrolled into view.
///
/// More than QScrollArea, because a wheel turned up and down must scroll a row, and the page around it only when the turn began
/// there, fine wheels need fractions of a point, and a row fades out where it goes on and shows its shadows outside the viewport.
class ScrollArea final : public QScrollArea, public ShadowCaster, public Overhanging
{
    Q_OBJECT

public:
    ScrollArea(Qt::Orientation direction, QWidget* content, const QMargins& overhang = {});
    ~ScrollArea() override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QMargins overhang() const override { return m_overhang; }
    /// Paints the parts of shadows that the viewport clips at the left and right, on sides where the row does not go on.
    void paintShadow(QPainter& painter) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    class EndFade;
    enum class End { Left, Right };

    void fitContent();
    void follow(const QWidget* before, QWidget* focused);
    /// How strongly a row fades out at an end: 0 where nothing is hidden, 1 where it goes on.
    [[nodiscard]] double fading(End end) const;
    /// Whether a wheel event continues a turn that has scrolled this area.
    [[nodiscard]] bool isTurning(const QWheelEvent& event) const;
    /// Whether a wheel that turns up and down over this row scrolls the page around it.
    [[nodiscard]] bool leavesToPage(const QWheelEvent& event) const;

    Qt::Orientation m_direction;
    QMargins m_overhang;
    /// The fraction of a point that wheel events have added up to.
    double m_remainder = 0;
    /// Timestamp of the last wheel event that scrolled the area, in milliseconds.
    std::optional<quint64> m_turnedAt;
    /// The position of the content that the pointer holds while it drags a row.
    int m_held = 0;
    /// Null for a vertical area.
    EndFade* m_endFade = nullptr;
};

/// Scrolls vertically and takes all available width.
[[nodiscard]] ScrollArea* verticalScroll(QWidget* content);
/// Scrolls horizontally, by wheel or by dragging the room between its children, and is as high as its content. It fades into
/// the ground of the panel where it goes on, and overhangs its place by `overhang` points at the left and right.
[[nodiscard]] ScrollArea* horizontalScroll(QWidget* content, int overhang = 0);

} // namespace tintwick
