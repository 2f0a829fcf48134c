#pragma once

#include "CapturedColor.h"

#include <QList>

namespace tintwick {

/// A history in which what was picked between `before` and `now` stands first, in the order of `now`. A colour of both that has
/// another time was picked again. Returns the history as it is when there is no such colour.
[[nodiscard]] QList<CapturedColor> withPicksFirst(QList<CapturedColor> history,
                                                  const QList<CapturedColor>& before,
                                                  const QList<CapturedColor>& now);

} // namespace tintwick
