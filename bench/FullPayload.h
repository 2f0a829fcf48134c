#pragma once

#include "Payload.h"

namespace tintwick {

/// The data after some months of use: a full history of 100 named colours, every fifth translucent, and 20
/// collections of ten.
[[nodiscard]] Payload fullPayload();

/// The same data with a collection of all 100 colours before the others.
[[nodiscard]] Payload fullPayloadWithFullCollection();

} // namespace tintwick
