#pragma once

// Where the loupe stands and where everything in its picture lies.
//
// Placement speaks global space. The picture is measured in physical pixels, origin at its top left, y
// downwards: the scope is the square at the top, the info pill the strip at the bottom, and a narrow gap
// between them stays empty.

#include "Coordinates.h"
#include "ScreenGrabber.h"

#include <QRect>
#include <QRectF>
#include <QSize>

#include <optional>
#include <vector>

namespace tintwick {

/// The lengths of the loupe's design, in points.
namespace loupe {

inline constexpr double borderWidth = 3.5;
inline constexpr double scopeCorner = 18;
inline constexpr double infoCorner = 11;
inline constexpr double infoHeight = 46;
inline constexpr double gap = 10;
inline constexpr double screenMargin = 4;

/// How many cells a side of the grid shows while no pixels are known.
inline constexpr int emptyGridSide = 15;

} // namespace loupe

/// The loupe's picture at one size and scale. Outer edges, cells and the centre cell lie on whole pixels; the
/// ring keeps its exact width. Everything is mirror-symmetric about the scope's middle.
class LoupeGeometry final
{
public:
    /// `side` is the scope's side in points, `scale` the physical pixels per point.
    LoupeGeometry(double side, double scale);

    [[nodiscard]] double scale() const { return m_scale; }
    [[nodiscard]] QSize size() const { return m_size; }
    [[nodiscard]] QRect scope() const;
    /// What the ring leaves free of the scope: the cells' area.
    [[nodiscard]] QRectF inner() const;
    [[nodiscard]] QRect pill() const;

    /// The exact side of one cell when a side of the grid has `count` of them.
    [[nodiscard]] double cellSide(int count) const;
    /// Where cells begin and end along a side of the scope, the same in both directions: `count` + 1
    /// ascending positions. The outermost ones are the scope's own edges, so that no gap can open below the
    /// ring.
    [[nodiscard]] std::vector<int> cellEdges(int count) const;
    /// The cell in the middle of the scope, whether or not the grid has a cell exactly there.
    [[nodiscard]] QRect centerCell(int count) const;

private:
    double m_scale;
    QSize m_size;
};

/// The screen whose frame contains the pointer; of none the primary one, which is the first; none when there
/// is no screen.
[[nodiscard]] std::optional<Screen> screenAt(GlobalPoint pointer, const std::vector<Screen>& screens);

/// The bottom left corner of a loupe whose scope is centred on the pointer and whose pill hangs below it,
/// moved so far that `margin` stays free inside the screen. Where the loupe cannot fit, the left and the
/// bottom margin win. All lengths are in the units of global space; the result is not rounded.
[[nodiscard]] GlobalPoint loupeOrigin(GlobalPoint pointer, QSize loupe, double scopeSide,
                                      const GlobalRect& screen, double margin);

} // namespace tintwick
