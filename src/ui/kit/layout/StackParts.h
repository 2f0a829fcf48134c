#pragma once

#include "Theme.h"

#include <QMargins>

#include <variant>

namespace tintwick {

// What a row or column is made of besides widgets. Lengths are in points.

/// Between two children.
struct Gap
{
    int points;
};
struct Padding
{
    QMargins margins;
};
/// Room that grows.
struct Spacer
{
};
/// A negative extent leaves that direction free.
struct FixedSize
{
    int width;
    int height;
};
/// Where a child stands that does not fill the stack across its direction.
enum class Across { Leading, Center };
/// Makes the stack take all available width instead of the width of its children.
struct FillWidth
{
};
/// Centres the children in both directions.
struct Centered
{
};
/// The background, drawn below the children.
struct Ground
{
    std::variant<theme::Color, theme::Gradient> fill;
    double cornerRadius = 0;
};
struct Outline
{
    theme::Color color = theme::border;
    double width = 1;
    /// The length of the dashes and of the gaps between them; 0 for a solid line.
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

} // namespace tintwick
