#pragma once

// The geometry of the loupe's picture and its place on the screen. All lengths are physical pixels and y counts downwards,
// except where points are named. In the picture the lens is the square at the top and the pill the strip at the bottom; the
// gap between them is empty.

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
inline constexpr double gap = 10;
inline constexpr double screenMargin = 4;

/// How many cells a side of the grid shows while no pixels are known.
inline constexpr int emptyGridSide = 15;

} // namespace loupe

/// The loupe's picture at one size and scale. Outer edges, cells and the centre cell lie on whole pixels; the
/// ring keeps its exact width. Everything is mirror-symmetric about the lens's middle.
class LoupeGeometry final
{
public:
    /// `side` is the lens's side in points, `scale` the physical pixels per point.
    LoupeGeometry(double side, double scale);

    [[nodiscard]] double scale() const { return m_scale; }
    [[nodiscard]] QSize size() const { return m_size; }
    [[nodiscard]] QRect lens() const;
    /// What the ring leaves free of the lens: the cells' area.
    [[nodiscard]] QRectF inner() const;
    [[nodiscard]] QRect pill() const;

    /// The exact side of one cell when a side of the grid has `count` of them.
    [[nodiscard]] double cellSide(int count) const;
    /// Where cells begin and end along a side of the lens, the same in both directions: `count` + 1
    /// ascending positions. The outermost ones are the lens's own edges, so that no gap can open below the
    /// ring.
    [[nodiscard]] std::vector<int> cellEdges(int count) const;
    /// The cell in the middle of the lens, whether or not the grid has a cell exactly there.
    [[nodiscard]] QRect centerCell(int count) const;

private:
    double m_scale;
    QSize m_size;
};

/// The top left corner of a loupe whose lens is centred on the pointer and whose pill hangs below it, moved so far that
/// `margin` stays free inside the screen. Pointer and result count from the screen's top left corner; the result is not
/// rounded. Where the loupe does not fit, the left and the bottom margin win.
[[nodiscard]] QPointF loupePlace(QPointF pointer, QSize loupe, QSize screen, double margin);

} // namespace tintwick
