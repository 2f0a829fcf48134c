#pragma once

// The two coordinate spaces of picking, and the only place where one becomes the other.
//
// Desktop space: what the window system speaks. Origin at the top left of the whole desktop, y downwards. On X11 one
//   unit is one physical pixel, whatever the scale of the user interface.
// Global space: what the picker's geometry speaks. The same units; origin at the bottom left of the primary screen, y
//   upwards. A pixel whose top edge is at y covers (y - 1, y], so a point on a screen's top edge is inside it and one on
//   its bottom edge is not.

namespace tintwick {

struct DesktopPoint
{
    double x = 0;
    double y = 0;

    friend constexpr bool operator==(const DesktopPoint&, const DesktopPoint&) = default;
};

struct DesktopRect
{
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] constexpr bool isEmpty() const { return width <= 0 || height <= 0; }
    [[nodiscard]] constexpr double right() const { return x + width; }
    [[nodiscard]] constexpr double bottom() const { return y + height; }
    [[nodiscard]] constexpr bool contains(DesktopPoint point) const
    {
        return point.x >= x && point.x < right() && point.y >= y && point.y < bottom();
    }
    [[nodiscard]] constexpr bool intersects(const DesktopRect& other) const
    {
        return x < other.right() && other.x < right() && y < other.bottom() && other.y < bottom();
    }

    friend constexpr bool operator==(const DesktopRect&, const DesktopRect&) = default;
};

struct GlobalPoint
{
    double x = 0;
    double y = 0;

    friend constexpr bool operator==(const GlobalPoint&, const GlobalPoint&) = default;
};

/// (x, y) is the bottom left corner.
struct GlobalRect
{
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] constexpr double minX() const { return x; }
    [[nodiscard]] constexpr double minY() const { return y; }
    [[nodiscard]] constexpr double maxX() const { return x + width; }
    [[nodiscard]] constexpr double maxY() const { return y + height; }
    [[nodiscard]] constexpr bool contains(GlobalPoint point) const
    {
        return point.x >= minX() && point.x < maxX() && point.y > minY() && point.y <= maxY();
    }

    friend constexpr bool operator==(const GlobalRect&, const GlobalRect&) = default;
};

/// Converts between the two spaces for a desktop whose primary screen has the given frame.
class CoordinateFlip
{
public:
    /// The height taken where there is no screen at all.
    static constexpr double heightWithoutScreen = 800;

    constexpr CoordinateFlip() = default;
    explicit constexpr CoordinateFlip(const DesktopRect& primaryScreen)
        : m_originX(primaryScreen.x)
        , m_originY(primaryScreen.bottom())
    {
    }

    [[nodiscard]] constexpr GlobalPoint toGlobal(DesktopPoint point) const
    {
        return {point.x - m_originX, m_originY - point.y};
    }
    [[nodiscard]] constexpr DesktopPoint toDesktop(GlobalPoint point) const
    {
        return {point.x + m_originX, m_originY - point.y};
    }
    [[nodiscard]] constexpr GlobalRect toGlobal(const DesktopRect& rect) const
    {
        return {rect.x - m_originX, m_originY - rect.bottom(), rect.width, rect.height};
    }
    [[nodiscard]] constexpr DesktopRect toDesktop(const GlobalRect& rect) const
    {
        return {rect.x + m_originX, m_originY - rect.maxY(), rect.width, rect.height};
    }

private:
    double m_originX = 0;
    double m_originY = heightWithoutScreen;
};

} // namespace tintwick
