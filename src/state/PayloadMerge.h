#pragma once

#include "Payload.h"

namespace tintwick {

/// Both changes of a payload: `ours` and `theirs` have come from `before`. Colours and collections are the same when their
/// ids are. What one side removed and the other did not change is absent; what both changed is as in `ours`. `theirs`
/// decides on the order of a list that both changed; colours that only `ours` has come first, such collections last. A colour
/// that left the history is kept while a collection holds it.
[[nodiscard]] Payload merged(const Payload& before, const Payload& ours, const Payload& theirs);

} // namespace tintwick
