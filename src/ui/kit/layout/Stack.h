#pragma once

#include "Overhang.h"
#include "Shadow.h"
#include "ShadowCaster.h"
#include "StackParts.h"

#include <QMargins>
#include <QWidget>

#include <optional>
#include <utility>

class QBoxLayout;

namespace tintwick {

/// A row or column of widgets that is as large as they need, and grows if one of them or a spacer grows. Made by `row()` and
/// `column()`.
///
/// A widget of its own instead of a QBoxLayout in a QWidget, because a box layout has no overhang, no background with a shadow
/// that falls on the views around it, and gives one alignment to a child that grows and another one to a child that does not.
class Stack : public QWidget, public ShadowCaster, public ShadowGround, public Overhanging
{
    Q_OBJECT

public:
    explicit Stack(Qt::Orientation direction);

    void add(QWidget* child);
    /// Inserts before the child at `position`, or moves there what is a child already.
    void insert(int position, QWidget* child);
    /// Takes a child out of the layout and hides it. It stays a child widget.
    void remove(QWidget* child);
    void add(Gap gap);
    void add(Padding padding);
    void add(Spacer spacer);
    void add(FixedSize size);
    /// Applies to the children added after it.
    void add(Across across);
    void add(FillWidth fill);
    void add(Centered centered);
    void add(const Ground& ground);
    void add(const Outline& outline);
    void add(const Shadow& shadow);

    [[nodiscard]] bool hasGround() const override { return m_ground.has_value(); }

    void paintShadow(QPainter& painter) const override;
    /// The part of its children's overhangs that its padding has no room for.
    [[nodiscard]] QMargins overhang() const override { return m_overhang; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void growTo(Qt::Orientation direction);

    /// To be called after children, padding or fixed size have changed.
    void updateOverhang();
    /// The rectangle without the overhang, on which the ground is drawn.
    [[nodiscard]] QRect place() const { return rect().marginsRemoved(m_overhang); }

    QBoxLayout* m_layout;
    QMargins m_padding;
    QMargins m_overhang;
    FixedSize m_fixedSize{-1, -1};
    Across m_across = Across::Center;
    std::optional<Ground> m_ground;
    std::optional<Outline> m_outline;
    std::optional<Shadow> m_shadow;
};

/// `row(gap(10), padding(14, 10), title(), spacer(), settingsButton())`: the parts from left to right.
template <typename... Parts>
[[nodiscard]] Stack* row(Parts&&... parts)
{
    auto* stack = new Stack(Qt::Horizontal);
    (stack->add(std::forward<Parts>(parts)), ...);
    return stack;
}

/// The parts from top to bottom.
template <typename... Parts>
[[nodiscard]] Stack* column(Parts&&... parts)
{
    auto* stack = new Stack(Qt::Vertical);
    (stack->add(std::forward<Parts>(parts)), ...);
    return stack;
}

} // namespace tintwick
