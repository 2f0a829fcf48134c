#pragma once

#include <cstdint>
#include <optional>

namespace tintwick {

class XcbConnection;

/// Asks the server for the X Input extension, from whose version 2.1 on raw events come during grabs too. Returns the
/// number that marks its events; 0 when the server has none.
[[nodiscard]] std::uint8_t openInputExtension(const XcbConnection& connection);

/// The keyboard that goes with the user's pointer, by the extension's number; none when the server does not tell.
[[nodiscard]] std::optional<std::uint16_t> masterKeyboard(const XcbConnection& connection);

} // namespace tintwick
