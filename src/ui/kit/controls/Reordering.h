#pragma once

#include <QtGlobal>

namespace tintwick {

// The geometry of a list of rows of equal height while one row is carried and the others leave a gap. Rows and slots count
// from 0 from top to bottom. Lengths are in points, downwards.

/// The top of a carried row, limited to the list.
[[nodiscard]] double carriedTop(double wanted, int rowHeight, qsizetype count);

/// The slot nearest to a carried row, which is the gap.
[[nodiscard]] qsizetype gapUnder(double carriedTop, int rowHeight, qsizetype count);

/// The slot of another row while the row at `carried` has its gap at `gap`.
[[nodiscard]] qsizetype slotBeside(qsizetype row, qsizetype carried, qsizetype gap);

/// The row before which the carried one must be put to end in the slot `gap`, counted before it is taken out; the number of rows
/// for the end.
[[nodiscard]] qsizetype destination(qsizetype carried, qsizetype gap);

/// The scroll speed in points per second while the pointer is near the edges of the visible range from `top` to `bottom`.
/// Negative is upwards.
[[nodiscard]] double edgeScrollSpeed(double pointer, double top, double bottom);

} // namespace tintwick
