#pragma once

#include <array>
#include <cstdint>

namespace tintwick {

/// How the keys of a shortcut are shown: "⌥⇧C" or "Alt+Shift+C".
enum class KeyNames : std::uint8_t { Signs, Words };
inline constexpr std::array allKeyNames{KeyNames::Signs, KeyNames::Words};

} // namespace tintwick
