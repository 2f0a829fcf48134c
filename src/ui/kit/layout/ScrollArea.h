#pragma once

#include "Overhang.h"
#include "ShadowCaster.h"

#include <QScrollArea>

namespace tintwick {

/// A view onto content that is longer than its room in one direction. It has no indicators. What gets the focus in it
/// comes into view.
class ScrollArea final : public QScrollArea, public ShadowCaster, public Overhanging
{
    Q_OBJECT

public:
    ScrollArea(Qt::Orientation direction, QWidget* content, const QMargins& overhang = {});
    ~ScrollArea() override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QMargins overhang() const override { return m_overhang; }
    /// What a row cuts off beside it: the shadows of what is wholly in view.
    void paintShadow(QPainter& painter) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void fitContent();
    void follow(const QWidget* before, QWidget* focused);
    /// Whether a turn up or down is for what this area stands in.
    [[nodiscard]] bool isInScrollingPage() const;

    Qt::Orientation m_direction;
    QMargins m_overhang;
    /// Parts of a point that a fine wheel has turned so far.
    double m_owed = 0;
};

/// Scrolls up and down; as wide as it is given room.
[[nodiscard]] ScrollArea* verticalScroll(QWidget* content);
/// Scrolls to the sides, as high as its content. A wheel that turns up and down is the page's, where there is one to
/// scroll, unless Shift is held. It reaches `overhang` points beyond its place on the left and on the right.
[[nodiscard]] ScrollArea* horizontalScroll(QWidget* content, int overhang = 0);

} // namespace tintwick
