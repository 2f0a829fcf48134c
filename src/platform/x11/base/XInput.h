#pragma once

#include <cstdint>
#include <optional>

namespace tintwick {

class XcbConnection;

/// Initialises the X Input extension in a version that sends raw events during grabs too (2.1). Returns the number that
/// identifies its events; 0 when the server lacks it.
[[nodiscard]] std::uint8_t openInputExtension(const XcbConnection& connection);

/// The device id of the keyboard that is paired with the user's pointer; none when the server does not reply.
[[nodiscard]] std::optional<std::uint16_t> masterKeyboard(const XcbConnection& connection);

} // namespace tintwick
