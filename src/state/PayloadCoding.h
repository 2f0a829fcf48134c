#pragma once

#include "Payload.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace tintwick {

/// The size limit of a data file, in bytes: room for tens of thousands of collections. It bounds the cost of reading a
/// damaged file.
inline constexpr qsizetype largestPayload = 16 * 1024 * 1024;

/// The payload as indented JSON text in UTF-8. A payload whose indented text would be larger than `largestPayload` is
/// written without white space, so that what was read can be written again. None when a component is not a finite number,
/// a date is outside the years 1 to 9999, or both texts are too large. Dates lose their fraction of a second.
[[nodiscard]] std::optional<QByteArray> encodePayload(const Payload& payload);

/// The payload in a JSON text. None when the text is malformed or a required value is missing or has another type. Keys
/// may be in any order, unknown keys are ignored, and the last of repeated keys counts. Accepts any bytes.
[[nodiscard]] std::optional<Payload> decodePayload(QByteArrayView text);

/// The payload as it will be read again: the data file stores whole seconds. Unchanged when it cannot be encoded.
[[nodiscard]] Payload asStored(const Payload& payload);

} // namespace tintwick
