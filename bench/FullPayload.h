#pragma once

#include "Payload.h"

namespace tintwick {

/// What a user of some months has: a full history of 100 colours with names, every fifth of them translucent, and 20
/// collections of ten.
[[nodiscard]] Payload fullPayload();

/// The same with a collection of all 100 colours before the others.
[[nodiscard]] Payload fullPayloadWithFullCollection();

} // namespace tintwick
