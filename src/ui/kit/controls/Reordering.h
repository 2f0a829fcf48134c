#pragma once

#include <QtGlobal>

namespace tintwick {

// A list of rows of one height, of which one is carried while the others leave it a gap. Rows and the slots that they
// stand in count from 0, from top to bottom; lengths are in points, downwards.

/// Where the top of a carried row can be: it does not leave the list.
[[nodiscard]] double carriedTop(double wanted, int rowHeight, qsizetype count);

/// The slot that is nearest to a carried row: there the gap is.
[[nodiscard]] qsizetype gapUnder(double carriedTop, int rowHeight, qsizetype count);

/// The slot of another row while the row at `carried` has its gap at `gap`.
[[nodiscard]] qsizetype slotBeside(qsizetype row, qsizetype carried, qsizetype gap);

/// The row before which one has to be put to come to stand in the slot `gap`, counted before it is taken out; the number of
/// rows for the end.
[[nodiscard]] qsizetype destination(qsizetype carried, qsizetype gap);

/// How fast to scroll, in points per second, while the pointer carries a row near the edges of what is seen, from `top`
/// to `bottom`; negative is upwards.
[[nodiscard]] double edgeScrollSpeed(double pointer, double top, double bottom);

} // namespace tintwick
