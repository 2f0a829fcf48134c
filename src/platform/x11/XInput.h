#pragma once

#include <cstdint>

namespace tintwick {

class XcbConnection;

/// Asks the server for the X Input extension, from whose version 2.1 on raw events come during grabs too. Returns the
/// number that marks its events; 0 when the server has none.
[[nodiscard]] std::uint8_t openInputExtension(const XcbConnection& connection);

} // namespace tintwick
