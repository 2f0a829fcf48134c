#include "X11HotKeyRegistrar.h"

#include "EvdevKeys.h"
#include "KeyCode.h"
#include "XkbEvents.h"

#include <QCoreApplication>

#include <xcb/xinput.h>

#include <algorithm>

namespace tintwick {

namespace {

bool isAltKey(xcb_keycode_t keycode)
{
    const int keyCode = keyCodeForEvdev(keycode - xKeycodeOffset).value_or(-1);
    return keyCode == keycode::alt || keyCode == keycode::rightAlt;
}

} // namespace

X11HotKeyRegistrar::X11HotKeyRegistrar(XcbConnection& connection)
    : m_connection(connection)
    , m_xkbEvent(listenForXkbEvents(connection))
{
    if (m_xkbEvent != 0) {
        // A held key is then press, press, press, release, instead of a release before each repeated press.
        constexpr std::uint32_t detectable = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
        const auto request = xcb_xkb_per_client_flags(connection.get(), XCB_XKB_ID_USE_CORE_KBD, detectable,
                                                      detectable, 0, 0, 0);
        xcb_discard_reply(connection.get(), request.sequence);
    }
    const auto* const input = xcb_get_extension_data(connection.get(), &xcb_input_id);
    m_hasInputExtension = input && input->present != 0;
    m_modifierMap = ModifierMap::read(connection).value_or(ModifierMap{});
}

X11HotKeyRegistrar::~X11HotKeyRegistrar()
{
    for (const auto& [handle, hotKey] : m_hotKeys) {
        if (hotKey.grab) {
            giveBack(*hotKey.grab);
        }
    }
    m_connection.flush();
}

HotKeyRegistrar::Registration X11HotKeyRegistrar::registerHotKey(int keyCode, int modifiers, std::uint32_t id)
{
    const auto grab = grabFor(keyCode, modifiers);
    if (!grab) {
        return {statusNoSuchKey, std::nullopt};
    }
    if (!isHeld(*grab) && !take(*grab)) {
        return {statusTaken, std::nullopt};
    }
    if (!m_subscription) {
        m_subscription = m_connection.subscribe(*this);
    }
    m_hotKeys.emplace(++m_lastHandle, HotKey{keyCode, modifiers, id, grab, std::nullopt});
    return {statusSuccess, m_lastHandle};
}

void X11HotKeyRegistrar::unregisterHotKey(Handle handle)
{
    const auto hotKey = m_hotKeys.extract(handle);
    if (hotKey.empty()) {
        return;
    }
    if (const auto grab = hotKey.mapped().grab; grab && !isHeld(*grab)) {
        giveBack(*grab);
        m_connection.flush();
    }
}

void X11HotKeyRegistrar::setHotKeyHandler(HotKeyHandler handler)
{
    m_hotKeyHandler = std::move(handler);
}

void X11HotKeyRegistrar::setRawKeyHandler(RawKeyHandler handler)
{
    if (static_cast<bool>(handler) != static_cast<bool>(m_rawKeyHandler)) {
        m_rawPressed.clear();
        m_lastRawRelease.reset();
        if (handler) {
            QCoreApplication::instance()->installNativeEventFilter(this);
        } else {
            QCoreApplication::instance()->removeNativeEventFilter(this);
        }
    }
    m_rawKeyHandler = std::move(handler);
}

bool X11HotKeyRegistrar::isTaken(int keyCode, int modifiers) const
{
    const auto grab = grabFor(keyCode, modifiers);
    if (!grab || isHeld(*grab)) {
        return false;
    }
    // Whoever is about to take the combination must not be refused because we ask.
    xcb_grab_server(m_connection.get());
    const bool isFree = take(*grab);
    if (isFree) {
        giveBack(*grab);
    }
    xcb_ungrab_server(m_connection.get());
    m_connection.flush();
    return !isFree;
}

void X11HotKeyRegistrar::handleEvent(const xcb_generic_event_t& event)
{
    switch (event.response_type) {
    case XCB_KEY_PRESS:
        keyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
        return;
    case XCB_KEY_RELEASE:
        keyReleased(reinterpret_cast<const xcb_key_release_event_t&>(event));
        return;
    case XCB_MAPPING_NOTIFY:
        m_keymapIsOutdated = true;
        return;
    default:
        break;
    }
    const auto kind = xkbEventKind(event, m_xkbEvent);
    if (kind == XCB_XKB_NEW_KEYBOARD_NOTIFY || kind == XCB_XKB_MAP_NOTIFY) {
        m_keymapIsOutdated = true;
    }
}

// One new layout is many events; they are answered once.
void X11HotKeyRegistrar::eventsDrained()
{
    if (m_keymapIsOutdated) {
        m_keymapIsOutdated = false;
        followKeymap();
    }
}

void X11HotKeyRegistrar::keyPressed(const xcb_key_press_event_t& press)
{
    const KeyGrab pressed{press.detail,
                          static_cast<std::uint16_t>(press.state & allModifierBits & ~m_modifierMap.locks())};
    std::vector<std::uint32_t> ids;
    for (auto& [handle, hotKey] : m_hotKeys) {
        if (hotKey.grab == pressed && !hotKey.pressed) {
            hotKey.pressed = press.detail;
            ids.push_back(hotKey.id);
        }
    }
    report(ids, KeyDirection::Press);
}

// The key alone counts: its modifiers may have been released before it.
void X11HotKeyRegistrar::keyReleased(const xcb_key_release_event_t& release)
{
    std::vector<std::uint32_t> ids;
    for (auto& [handle, hotKey] : m_hotKeys) {
        if (hotKey.pressed == release.detail) {
            hotKey.pressed.reset();
            ids.push_back(hotKey.id);
        }
    }
    report(ids, KeyDirection::Release);
}

void X11HotKeyRegistrar::report(const std::vector<std::uint32_t>& ids, KeyDirection direction) const
{
    // What is called may set another handler or give hot keys back.
    const auto handler = m_hotKeyHandler;
    if (!handler) {
        return;
    }
    for (const auto id : ids) {
        handler(id, direction);
    }
}

bool X11HotKeyRegistrar::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    if (eventType != QByteArrayLiteral("xcb_generic_event_t")) {
        return false;
    }
    // The toolkit takes its keys as core events. One that another client made up has the sent flag and is not a key.
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    switch (event.response_type) {
    case XCB_KEY_PRESS:
        return rawKeyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
    case XCB_KEY_RELEASE:
        return rawKeyReleased(reinterpret_cast<const xcb_key_release_event_t&>(event));
    default:
        return false;
    }
}

// The toolkit's connection does not ask for detectable auto-repeat: while a key is held, pairs of a release and a press
// with one time stamp come in.
bool X11HotKeyRegistrar::rawKeyPressed(const xcb_key_press_event_t& press)
{
    if (m_rawPressed.contains(press.detail) || m_lastRawRelease == std::pair(press.detail, press.time)) {
        return true;
    }
    m_lastRawRelease.reset();
    // Alt by itself closes a menu, and with it would go the shortcut that it begins.
    if (isAltKey(press.detail)) {
        return true;
    }
    const auto keyCode = keyCodeForEvdev(press.detail - xKeycodeOffset);
    const auto modifiers = m_modifierMap.shortcutModifiers(press.state);
    if (!keyCode || !modifiers) {
        return false;
    }
    // What is called may set another handler.
    const auto handler = m_rawKeyHandler;
    if (!handler(*keyCode, *modifiers, KeyDirection::Press)) {
        return false;
    }
    if (m_rawKeyHandler) {
        m_rawPressed.insert_or_assign(press.detail, RawPress{*keyCode, *modifiers});
    }
    return true;
}

bool X11HotKeyRegistrar::rawKeyReleased(const xcb_key_release_event_t& release)
{
    const auto pressed = m_rawPressed.find(release.detail);
    if (pressed == m_rawPressed.end()) {
        const bool isLateRepeat = m_lastRawRelease && m_lastRawRelease->first == release.detail;
        if (isLateRepeat) {
            // Another pair may have been waiting.
            m_lastRawRelease->second = release.time;
        }
        return isLateRepeat || isAltKey(release.detail);
    }
    if (isDown(release.detail)) {
        return true;
    }
    // With the modifiers of its press: they may have been released before it.
    const auto [keyCode, modifiers] = pressed->second;
    m_rawPressed.erase(pressed);
    m_lastRawRelease = {release.detail, release.time};
    const auto handler = m_rawKeyHandler;
    static_cast<void>(handler(keyCode, modifiers, KeyDirection::Release));
    return true;
}

bool X11HotKeyRegistrar::isDown(xcb_keycode_t keycode) const
{
    const XcbReply<xcb_query_keymap_reply_t> keys(
        xcb_query_keymap_reply(m_connection.get(), xcb_query_keymap(m_connection.get()), nullptr));
    return keys && (keys->keys[keycode / 8] >> (keycode % 8) & 1) != 0;
}

void X11HotKeyRegistrar::followKeymap()
{
    const auto map = ModifierMap::read(m_connection);
    const bool allAreHeld =
        std::ranges::all_of(m_hotKeys, [](const auto& entry) { return entry.second.grab.has_value(); });
    if (!map || (*map == m_modifierMap && allAreHeld)) {
        return;
    }
    for (auto& [handle, hotKey] : m_hotKeys) {
        if (hotKey.grab) {
            giveBack(*hotKey.grab);
            hotKey.grab.reset();
        }
    }
    m_modifierMap = *map;
    for (auto& [handle, hotKey] : m_hotKeys) {
        const auto grab = grabFor(hotKey.keyCode, hotKey.modifiers);
        if (grab && (isHeld(*grab) || take(*grab))) {
            hotKey.grab = grab;
        }
    }
}

std::optional<X11HotKeyRegistrar::KeyGrab> X11HotKeyRegistrar::grabFor(int keyCode, int modifiers) const
{
    const auto evdev = evdevForKeyCode(keyCode);
    const auto& setup = *xcb_get_setup(m_connection.get());
    if (!evdev || *evdev + xKeycodeOffset < setup.min_keycode ||
        *evdev + xKeycodeOffset > setup.max_keycode) {
        return std::nullopt;
    }
    const auto bits = m_modifierMap.bits(modifiers);
    if (!bits) {
        return std::nullopt;
    }
    return KeyGrab{static_cast<xcb_keycode_t>(*evdev + xKeycodeOffset), *bits};
}

std::vector<std::uint16_t> X11HotKeyRegistrar::lockCombinations() const
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

bool X11HotKeyRegistrar::isHeld(const KeyGrab& grab) const
{
    return std::ranges::any_of(m_hotKeys, [&](const auto& entry) { return entry.second.grab == grab; });
}

bool X11HotKeyRegistrar::take(const KeyGrab& grab) const
{
    // The two kinds of grabs do not see each other: both would succeed, and the older one would get the keys.
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

// The server gives back only what is ours, so combinations that were refused may be among them.
void X11HotKeyRegistrar::giveBack(const KeyGrab& grab) const
{
    for (const auto locks : lockCombinations()) {
        xcb_ungrab_key(m_connection.get(), grab.keycode, m_connection.root(),
                       static_cast<std::uint16_t>(grab.modifiers | locks));
    }
    m_connection.flush();
}

// Some desktops hold their own shortcuts as grabs of the input extension, which core grabs do not collide with.
bool X11HotKeyRegistrar::isHeldThroughInputExtension(const KeyGrab& grab) const
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
