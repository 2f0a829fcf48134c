#include "support/KeyCombination.h"

#include <array>

namespace tintwick {

namespace {

constexpr int firstKeycode = 8;
constexpr std::uint16_t lock = 0x02, numLock = 0x10;
/// Lock modifiers, which are not part of the combination.
constexpr std::array<std::uint16_t, 4> locks{0, lock, numLock, lock | numLock};

bool grab(DesktopConnection& connection, std::uint8_t keycode, std::uint16_t modifiers)
{
    const ServerReply<xcb_generic_error_t> error(xcb_request_check(
        connection.get(), xcb_grab_key_checked(connection.get(), 0, connection.root(), modifiers, keycode,
                                               XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
    return !error;
}

std::size_t refusals(DesktopConnection& connection, const KeyCombination& combination)
{
    const auto keycode = static_cast<std::uint8_t>(combination.key + firstKeycode);
    std::size_t refused = 0;
    xcb_grab_server(connection.get());
    for (const std::uint16_t locked : locks) {
        const auto modifiers = static_cast<std::uint16_t>(combination.modifiers | locked);
        if (grab(connection, keycode, modifiers)) {
            xcb_ungrab_key(connection.get(), keycode, connection.root(), modifiers);
        } else {
            ++refused;
        }
    }
    xcb_ungrab_server(connection.get());
    connection.sync();
    return refused;
}

} // namespace

bool KeyCombination::take(DesktopConnection& connection) const
{
    return grab(connection, static_cast<std::uint8_t>(key + firstKeycode), modifiers);
}

bool KeyCombination::isHeld(DesktopConnection& connection) const
{
    return refusals(connection, *this) == locks.size();
}

bool KeyCombination::isFree(DesktopConnection& connection) const
{
    return refusals(connection, *this) == 0;
}

} // namespace tintwick
