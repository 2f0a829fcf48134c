#pragma once

// The geometry of the loupe's image and its position on the screen. All lengths are physical pixels unless points are
// stated, and y is downwards. The lens is the square at the top of the body and the pill is the strip at the bottom.
// The gap between them is empty. The room around the body is for the shadows.

#include "LoupeLook.h"

#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>

#include <vector>

namespace tintwick {

/// The lengths of the loupe's design, in points.
namespace loupe {

inline constexpr double borderWidth = 3.5;
inline constexpr double lensCorner = 18;
inline constexpr double infoCorner = 11;
inline constexpr double infoHeight = 46;
/// The pill grows by this for a further line.
inline constexpr double lineHeight = 13;
inline constexpr double gap = 10;
inline constexpr double gridLineWidth = 0.5;
inline constexpr double screenMargin = 4;
/// How far a finger hides the screen around its position.
inline constexpr double fingerRoom = 40;

/// Beyond this room the shadows are weaker than one step of a byte. The pill's shadow ends sooner than that of the ring.
/// The room above equals that at the sides, so that the lens's centre is as far from the top of the image as from its
/// left edge: half the image's width.
inline constexpr double shadowSides = 22, shadowAbove = 22, shadowBelow = 14;

/// The number of cells per side when there are no pixels.
inline constexpr int emptyGridSide = 15;

} // namespace loupe

/// The loupe's image at one size and scale. Outer edges, cells and the centre cell lie on whole pixels. The ring keeps
/// its exact width. Everything is symmetric about the centre of the lens.
class LoupeGeometry final
{
public:
    /// `side` is the lens's side in points, `scale` the physical pixels per point.
    LoupeGeometry(double side, double scale, double infoHeight = loupe::infoHeight);
    LoupeGeometry(const LoupeLook& look, double scale);

    [[nodiscard]] double scale() const { return m_scale; }
    /// The size of the image.
    [[nodiscard]] QSize size() const { return m_size; }
    /// Lens, gap and pill: the image without the room for the shadows.
    [[nodiscard]] QRect body() const { return m_body; }
    [[nodiscard]] QRect lens() const;
    /// The area of the cells: the lens without the ring.
    [[nodiscard]] QRectF inner() const;
    [[nodiscard]] QRect pill() const;

    /// The exact side of one cell in a grid of `count` cells per side.
    [[nodiscard]] double cellSide(int count) const;
    /// The edges of the cells along one side of the lens, from its corner, the same in both directions: `count` + 1
    /// ascending positions. The outermost ones are the edges of the lens, so that no gap appears below the ring.
    [[nodiscard]] std::vector<int> cellEdges(int count) const;
    /// The width of a grid line.
    [[nodiscard]] int gridLineWidth() const;
    /// Where the grid lines start along one side of the lens, from its corner, the same in both directions. Each line is
    /// inside the cell away from the middle, so that the centre cell keeps all its pixels.
    [[nodiscard]] std::vector<int> gridLines(int count) const;
    /// The cell in the middle of the lens, also when the grid has no cell exactly there.
    [[nodiscard]] QRect centerCell(int count) const;

private:
    double m_scale;
    double m_infoHeight;
    QRect m_body;
    QSize m_size;
};

/// The top left corner of a body whose lens is centred on the pointer, moved so that `margin` stays free inside the
/// screen. Pointer and result are relative to the screen's top left corner. The result is not rounded. Where the loupe
/// does not fit, the left and the bottom margin take precedence.
[[nodiscard]] QPointF loupePlace(QPointF pointer, QSize body, QSize screen, double margin);

/// The same above a finger, with `room` between the two; beside it where there is no room above.
[[nodiscard]] QPointF loupePlaceForFinger(QPointF finger, QSize body, QSize screen, double margin,
                                          double room);

} // namespace tintwick
