#pragma once

#include "Overhang.h"
#include "Shadow.h"
#include "ShadowCaster.h"
#include "Theme.h"

#include <QMargins>
#include <QWidget>

#include <optional>
#include <utility>
#include <variant>

class QBoxLayout;

namespace tintwick {

// What a row or column is made of, beside widgets. Lengths in points.

struct Gap
{
    int points;
};
struct Padding
{
    QMargins margins;
};
struct Spacer
{
};
/// A fixed extent; a negative one leaves that direction as it is.
struct FixedSize
{
    int width;
    int height;
};
/// Where children stand that do not fill the stack across its direction.
enum class Across { Leading, Center };
/// Takes all the width there is, where without it a stack is as wide as its children.
struct FillWidth
{
};
/// Leaves the room that is left over on both sides of the children, in both directions.
struct Centered
{
};
/// What is drawn below the children.
struct Ground
{
    std::variant<theme::Color, theme::Gradient> fill;
    double cornerRadius = 0;
};
struct Outline
{
    theme::Color color = theme::border;
    double width = 1;
    /// Solid when 0; else the length of dashes and of the room between them.
    double dash = 0;
};

[[nodiscard]] constexpr Gap gap(int points)
{
    return {points};
}
[[nodiscard]] constexpr Padding padding(int all)
{
    return {{all, all, all, all}};
}
[[nodiscard]] constexpr Padding padding(int horizontal, int vertical)
{
    return {{horizontal, vertical, horizontal, vertical}};
}
[[nodiscard]] constexpr Spacer spacer()
{
    return {};
}
[[nodiscard]] constexpr FillWidth fillWidth()
{
    return {};
}
[[nodiscard]] constexpr Centered centered()
{
    return {};
}
[[nodiscard]] constexpr FixedSize fixedSize(int width, int height)
{
    return {width, height};
}
[[nodiscard]] constexpr FixedSize fixedWidth(int points)
{
    return {points, -1};
}
[[nodiscard]] constexpr FixedSize fixedHeight(int points)
{
    return {-1, points};
}
[[nodiscard]] inline Ground ground(const theme::Color& color, double cornerRadius = 0)
{
    return {color, cornerRadius};
}
[[nodiscard]] inline Ground ground(const theme::Gradient& gradient, double cornerRadius = 0)
{
    return {gradient, cornerRadius};
}
[[nodiscard]] inline Outline outline(const theme::Color& color, double width)
{
    return {color, width};
}
[[nodiscard]] inline Outline dashedOutline(const theme::Color& color, double width, double dash)
{
    return {color, width, dash};
}

/// A row or column of widgets, as large as they need; where one of them grows or a spacer stands between them, it grows
/// too. It is on a ground of its own if it is given one. Made by `row()` and `column()`.
class Stack : public QWidget, public ShadowCaster, public Overhanging
{
    Q_OBJECT

public:
    explicit Stack(Qt::Orientation direction);

    void add(QWidget* child);
    /// Before the child at a position; one that is a child already is moved there.
    void insert(int position, QWidget* child);
    /// Takes a child out; it stays its child and is hidden.
    void remove(QWidget* child);
    void add(Gap gap);
    void add(Padding padding);
    void add(Spacer spacer);
    void add(FixedSize size);
    /// Holds for the children added after it.
    void add(Across across);
    void add(FillWidth fill);
    void add(Centered centered);
    void add(const Ground& ground);
    void add(const Outline& outline);
    void add(const Shadow& shadow);

    /// Whether this stack draws a ground, on which shadows fall.
    [[nodiscard]] bool hasGround() const { return m_ground.has_value(); }

    void paintShadow(QPainter& painter) const override;
    /// What its children's overhangs have not found room for in its padding.
    [[nodiscard]] QMargins overhang() const override { return m_overhang; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void growTo(Qt::Orientation direction);

    /// To be called after what it is computed from has changed.
    void updateOverhang();
    /// The place it takes, on which its ground is drawn.
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
