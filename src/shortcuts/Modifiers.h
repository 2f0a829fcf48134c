#pragma once

#include "KeyCode.h"

#include <cstdint>

// The modifiers of a shortcut have two encodings: the masks of `modifier` in KeyCode.h, which stored shortcuts use, and
// event flags, which name more than the five modifiers a shortcut can have.
namespace tintwick::KeyboardShortcuts {

namespace eventflag {

inline constexpr std::uint32_t capsLock = 0x10000, shift = 0x20000, control = 0x40000, alt = 0x80000,
                               super = 0x100000, numericPad = 0x200000, function = 0x800000;

} // namespace eventflag

/// Every bit that is not one of the five modifiers is dropped.
[[nodiscard]] constexpr int carbonModifiers(std::uint32_t eventFlags)
{
    return ((eventFlags & eventflag::shift) != 0 ? modifier::shift : 0) |
           ((eventFlags & eventflag::control) != 0 ? modifier::control : 0) |
           ((eventFlags & eventflag::alt) != 0 ? modifier::alt : 0) |
           ((eventFlags & eventflag::super) != 0 ? modifier::super : 0) |
           ((eventFlags & eventflag::function) != 0 ? modifier::function : 0);
}

/// Every bit that is not one of the five modifiers is dropped.
[[nodiscard]] constexpr std::uint32_t eventFlags(int carbonModifiers)
{
    return ((carbonModifiers & modifier::shift) != 0 ? eventflag::shift : 0) |
           ((carbonModifiers & modifier::control) != 0 ? eventflag::control : 0) |
           ((carbonModifiers & modifier::alt) != 0 ? eventflag::alt : 0) |
           ((carbonModifiers & modifier::super) != 0 ? eventflag::super : 0) |
           ((carbonModifiers & modifier::function) != 0 ? eventflag::function : 0);
}

/// A Carbon mask with nothing but the five modifiers.
[[nodiscard]] constexpr int normalizedCarbonModifiers(int mask)
{
    return carbonModifiers(eventFlags(mask));
}

} // namespace tintwick::KeyboardShortcuts
