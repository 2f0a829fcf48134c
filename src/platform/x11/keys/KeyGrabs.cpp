#include "KeyGrabs.h"

#include "EvdevKeys.h"
#include "XcbConnection.h"

#include <xcb/xinput.h>

namespace tintwick {

KeyGrabs::KeyGrabs(const XcbConnection& connection)
    : m_connection(connection)
    , m_modifierMap(ModifierMap::read(connection).value_or(ModifierMap{}))
{
    const auto* const input = xcb_get_extension_data(connection.get(), &xcb_input_id);
    m_hasInputExtension = input && input->present != 0;
}

std::optional<KeyGrab> KeyGrabs::grabFor(const Shortcut& shortcut) const
{
    const auto evdev = evdevForKeyCode(shortcut.keyCode);
    const auto& setup = *xcb_get_setup(m_connection.get());
    if (!evdev || *evdev + xKeycodeOffset < setup.min_keycode ||
        *evdev + xKeycodeOffset > setup.max_keycode) {
        return std::nullopt;
    }
    const auto bits = m_modifierMap.bits(shortcut.modifiers);
    if (!bits) {
        return std::nullopt;
    }
    return KeyGrab{static_cast<xcb_keycode_t>(*evdev + xKeycodeOffset), *bits};
}

KeyGrab KeyGrabs::pressed(xcb_keycode_t keycode, std::uint16_t state) const
{
    return {keycode, static_cast<std::uint16_t>(state & allModifierBits & ~m_modifierMap.locks())};
}

bool KeyGrabs::take(const KeyGrab& grab) const
{
    // A core grab does not conflict with one of the input extension: both succeed, and the older one gets the keys.
    if (isHeldThroughInputExtension(grab)) {
        return false;
    }
    std::vector<xcb_void_cookie_t> requests;
    for (const auto locks : lockCombinations()) {
        requests.push_back(xcb_grab_key_checked(m_connection.get(), 0, m_connection.root(),
                                                static_cast<std::uint16_t>(grab.modifiers | locks),
                                                grab.keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    bool allSucceeded = true;
    for (const auto& request : requests) {
        const XcbReply<xcb_generic_error_t> error(xcb_request_check(m_connection.get(), request));
        allSucceeded = allSucceeded && !error;
    }
    if (!allSucceeded) {
        giveBack(grab);
    }
    return allSucceeded;
}

// The server ignores combinations that this connection does not hold.
void KeyGrabs::giveBack(const KeyGrab& grab) const
{
    for (const auto locks : lockCombinations()) {
        xcb_ungrab_key(m_connection.get(), grab.keycode, m_connection.root(),
                       static_cast<std::uint16_t>(grab.modifiers | locks));
    }
    m_connection.flush();
}

bool KeyGrabs::isFree(const KeyGrab& grab) const
{
    // No other client may be refused because of the grab that tests the combination.
    xcb_grab_server(m_connection.get());
    const bool isFree = take(grab);
    if (isFree) {
        giveBack(grab);
    }
    xcb_ungrab_server(m_connection.get());
    m_connection.flush();
    return isFree;
}

std::vector<std::uint16_t> KeyGrabs::lockCombinations() const
{
    const unsigned locks = m_modifierMap.locks();
    std::vector<std::uint16_t> combinations;
    for (unsigned combination = 0; combination <= locks; ++combination) {
        if ((combination & ~locks) == 0) {
            combinations.push_back(static_cast<std::uint16_t>(combination));
        }
    }
    return combinations;
}

// Some desktops take their own shortcuts with grabs of the input extension.
bool KeyGrabs::isHeldThroughInputExtension(const KeyGrab& grab) const
{
    if (!m_hasInputExtension) {
        return false;
    }
    auto* const c = m_connection.get();
    std::vector<std::uint32_t> modifiers;
    for (const auto locks : lockCombinations()) {
        modifiers.push_back(static_cast<std::uint32_t>(grab.modifiers | locks));
    }
    const auto count = static_cast<std::uint16_t>(modifiers.size());
    constexpr std::uint32_t events = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS;
    const auto request = xcb_input_xi_passive_grab_device(
        c, XCB_CURRENT_TIME, m_connection.root(), XCB_CURSOR_NONE, grab.keycode, XCB_INPUT_DEVICE_ALL_MASTER,
        count, 1, XCB_INPUT_GRAB_TYPE_KEYCODE, XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC,
        XCB_INPUT_GRAB_OWNER_NO_OWNER, &events, modifiers.data());
    xcb_input_xi_passive_ungrab_device(c, m_connection.root(), grab.keycode, XCB_INPUT_DEVICE_ALL_MASTER,
                                       count, XCB_INPUT_GRAB_TYPE_KEYCODE, modifiers.data());
    const XcbReply<xcb_input_xi_passive_grab_device_reply_t> reply(
        xcb_input_xi_passive_grab_device_reply(c, request, nullptr));
    // The reply lists only the modifiers that were refused.
    return reply && reply->num_modifiers > 0;
}

} // namespace tintwick
