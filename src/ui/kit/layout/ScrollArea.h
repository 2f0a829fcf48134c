#pragma once

#include "Overhang.h"
#include "ShadowCaster.h"

#include <QScrollArea>

namespace tintwick {

/// Scrolls content in one direction, without scroll bars. A widget in it that gets the focus is scrolled into view.
///
/// More than QScrollArea, because a wheel turned up and down must scroll a horizontal area only when no page around it can
/// scroll, fine wheels need fractions of a point, and the shadows of a row must be visible outside the viewport.
class ScrollArea final : public QScrollArea, public ShadowCaster, public Overhanging
{
    Q_OBJECT

public:
    ScrollArea(Qt::Orientation direction, QWidget* content, const QMargins& overhang = {});
    ~ScrollArea() override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QMargins overhang() const override { return m_overhang; }
    /// Paints the parts of shadows that the viewport clips at the left and right, for children that are wholly in view.
    void paintShadow(QPainter& painter) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void fitContent();
    void follow(const QWidget* before, QWidget* focused);
    /// Whether a vertical area around this one can scroll.
    [[nodiscard]] bool isInScrollingPage() const;

    Qt::Orientation m_direction;
    QMargins m_overhang;
    /// The fraction of a point that wheel events have added up to.
    double m_remainder = 0;
};

/// Scrolls vertically and takes all available width.
[[nodiscard]] ScrollArea* verticalScroll(QWidget* content);
/// Scrolls horizontally and is as high as its content. A wheel turned up and down scrolls it only when no page around it can
/// scroll or while Shift is held. It overhangs its place by `overhang` points at the left and right.
[[nodiscard]] ScrollArea* horizontalScroll(QWidget* content, int overhang = 0);

} // namespace tintwick
