#pragma once

#include "Payload.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace tintwick {

/// The largest data file that is written or read, in bytes: room for tens of thousands of collections, and a
/// bound for what a damaged file can cost.
inline constexpr qsizetype largestPayload = 16 * 1024 * 1024;

/// The payload as indented JSON text in UTF-8, or nothing when JSON cannot hold it: a component that is not a
/// finite number, a date outside the years 1 to 9999, or a text beyond `largestPayload`. Dates lose their
/// fraction of a second.
[[nodiscard]] std::optional<QByteArray> encodePayload(const Payload& payload);

/// The payload in a JSON text, or nothing when the text is malformed or anything required is missing or
/// mistyped. Keys may stand in any order, unknown ones are passed over, and of a repeated key the last one
/// counts. Bytes of any kind are safe to pass.
[[nodiscard]] std::optional<Payload> decodePayload(QByteArrayView text);

} // namespace tintwick
