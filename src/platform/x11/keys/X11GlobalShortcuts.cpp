#include "X11GlobalShortcuts.h"

#include "XkbEvents.h"

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

// The codes that the message on standard output shows.
constexpr int statusTaken = -9878;
constexpr int statusNoSuchKey = -50;

ShortcutRefusal taken()
{
    return {ShortcutRefusal::Reason::Taken, QString::number(statusTaken)};
}

ShortcutRefusal noSuchKey()
{
    return {ShortcutRefusal::Reason::NoSuchKey, QString::number(statusNoSuchKey)};
}

} // namespace

X11GlobalShortcuts::X11GlobalShortcuts(XcbConnection& connection)
    : m_connection(connection)
    , m_xkbEvent(listenForXkbEvents(connection))
    , m_grabs(connection)
    , m_popupKeys(connection, *this)
{
    requestDetectableAutoRepeat();
    connect(&m_popups, &PopupWatcher::firstOpened, this, &X11GlobalShortcuts::suspendGrabs);
    connect(&m_popups, &PopupWatcher::lastClosed, this, &X11GlobalShortcuts::resumeGrabs);
}

X11GlobalShortcuts::~X11GlobalShortcuts()
{
    for (const HotKey& hotKey : m_hotKeys) {
        if (hotKey.isGrabbed) {
            m_grabs.giveBack(*hotKey.grab);
        }
    }
    m_connection.flush();
}

// A held key is then press, press, press, release, without a release before each repeated press.
void X11GlobalShortcuts::requestDetectableAutoRepeat()
{
    if (m_xkbEvent == 0) {
        return;
    }
    constexpr std::uint32_t detectable = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const auto request = xcb_xkb_per_client_flags(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD, detectable,
                                                  detectable, 0, 0, 0);
    xcb_discard_reply(m_connection.get(), request.sequence);
}

void X11GlobalShortcuts::bind(const QString& id, const QString& /*description*/,
                              const std::optional<Shortcut>& preferred)
{
    if (!preferred) {
        unbind(id);
        return;
    }
    if (const auto bound = find(id); bound != m_hotKeys.end()) {
        giveBack(*bound);
    }
    const auto grab = m_grabs.grabFor(*preferred);
    if (!grab || !take(*grab)) {
        unbind(id);
        Q_EMIT refused(id, grab ? taken() : noSuchKey());
        return;
    }
    listen();
    auto bound = find(id);
    if (bound == m_hotKeys.end()) {
        bound = m_hotKeys.insert(bound, HotKey{});
    }
    *bound = {id, *preferred, grab, true, std::nullopt};
    if (m_popups.isAnyOpen()) {
        giveBack(*bound);
    }
    updatePopupKeys();
}

void X11GlobalShortcuts::unbind(const QString& id)
{
    const auto bound = find(id);
    if (bound == m_hotKeys.end()) {
        return;
    }
    giveBack(*bound);
    m_hotKeys.erase(bound);
    updatePopupKeys();
}

bool X11GlobalShortcuts::isTaken(const Shortcut& shortcut) const
{
    const auto grab = m_grabs.grabFor(shortcut);
    return grab && !isHeld(*grab) && !m_grabs.isFree(*grab);
}

void X11GlobalShortcuts::listen()
{
    if (!m_subscription) {
        m_subscription = m_connection.subscribe(*this);
    }
}

void X11GlobalShortcuts::handleEvent(const xcb_generic_event_t& event)
{
    switch (event.response_type) {
    case XCB_KEY_PRESS: {
        const auto& press = reinterpret_cast<const xcb_key_press_event_t&>(event);
        keyPressed(m_grabs.pressed(press.detail, press.state));
        return;
    }
    case XCB_KEY_RELEASE:
        keyReleased(reinterpret_cast<const xcb_key_release_event_t&>(event).detail);
        return;
    case XCB_MAPPING_NOTIFY:
        m_keymapIsOutdated = true;
        return;
    default:
        break;
    }
    const int kind = xkbEventKind(event, m_xkbEvent);
    if (kind == XCB_XKB_NEW_KEYBOARD_NOTIFY || kind == XCB_XKB_MAP_NOTIFY) {
        m_keymapIsOutdated = true;
    }
}

// One new layout arrives as many events, which are handled once.
void X11GlobalShortcuts::eventsDrained()
{
    if (std::exchange(m_keymapIsOutdated, false)) {
        followKeymap();
    }
}

bool X11GlobalShortcuts::popupKeyPressed(xcb_keycode_t keycode, std::uint16_t state)
{
    return keyPressed(m_grabs.pressed(keycode, state));
}

void X11GlobalShortcuts::popupKeyReleased(xcb_keycode_t keycode)
{
    keyReleased(keycode);
}

// A slot may bind or unbind shortcuts, so all ids are collected before the first signal.
bool X11GlobalShortcuts::keyPressed(const KeyGrab& pressed)
{
    bool isShortcut = false;
    QStringList ids;
    for (HotKey& hotKey : m_hotKeys) {
        if (hotKey.grab == pressed) {
            isShortcut = true;
            if (!hotKey.pressedKey) {
                hotKey.pressedKey = pressed.keycode;
                ids << hotKey.id;
            }
        }
    }
    for (const QString& id : std::as_const(ids)) {
        if (find(id) != m_hotKeys.end()) {
            Q_EMIT activated(id);
        }
    }
    return isShortcut;
}

// The modifiers do not count: the user may release them before the key.
void X11GlobalShortcuts::keyReleased(xcb_keycode_t keycode)
{
    QStringList ids;
    for (HotKey& hotKey : m_hotKeys) {
        if (hotKey.pressedKey == keycode) {
            hotKey.pressedKey.reset();
            ids << hotKey.id;
        }
    }
    for (const QString& id : std::as_const(ids)) {
        if (find(id) != m_hotKeys.end()) {
            Q_EMIT deactivated(id);
        }
    }
}

void X11GlobalShortcuts::updatePopupKeys()
{
    m_popupKeys.setActive(m_popups.isAnyOpen() && !m_hotKeys.empty());
}

void X11GlobalShortcuts::suspendGrabs()
{
    for (HotKey& hotKey : m_hotKeys) {
        giveBack(hotKey);
    }
    updatePopupKeys();
}

// Another client may have taken a combination meanwhile.
void X11GlobalShortcuts::resumeGrabs()
{
    updatePopupKeys();
    std::vector<std::pair<QString, ShortcutRefusal>> refusals;
    for (HotKey& hotKey : m_hotKeys) {
        hotKey.pressedKey.reset();
        hotKey.isGrabbed = hotKey.grab && take(*hotKey.grab);
        if (!hotKey.isGrabbed) {
            refusals.emplace_back(hotKey.id, hotKey.grab ? taken() : noSuchKey());
        }
    }
    std::erase_if(m_hotKeys, [](const HotKey& hotKey) { return !hotKey.isGrabbed; });
    for (const auto& [id, refusal] : refusals) {
        Q_EMIT refused(id, refusal);
    }
}

void X11GlobalShortcuts::followKeymap()
{
    const auto map = ModifierMap::read(m_connection);
    const bool allAreGrabbed = std::ranges::all_of(m_hotKeys, &HotKey::isGrabbed);
    if (!map || (*map == m_grabs.modifierMap() && allAreGrabbed)) {
        return;
    }
    for (const HotKey& hotKey : m_hotKeys) {
        if (hotKey.isGrabbed) {
            m_grabs.giveBack(*hotKey.grab);
        }
    }
    for (HotKey& hotKey : m_hotKeys) {
        hotKey.isGrabbed = false;
    }
    m_grabs.setModifierMap(*map);
    for (HotKey& hotKey : m_hotKeys) {
        hotKey.grab = m_grabs.grabFor(hotKey.shortcut);
        hotKey.isGrabbed = !m_popups.isAnyOpen() && hotKey.grab && take(*hotKey.grab);
    }
}

bool X11GlobalShortcuts::take(const KeyGrab& grab) const
{
    return isHeld(grab) || m_grabs.take(grab);
}

void X11GlobalShortcuts::giveBack(HotKey& hotKey)
{
    hotKey.pressedKey.reset();
    if (std::exchange(hotKey.isGrabbed, false) && !isHeld(*hotKey.grab)) {
        m_grabs.giveBack(*hotKey.grab);
    }
}

bool X11GlobalShortcuts::isHeld(const KeyGrab& grab) const
{
    return std::ranges::any_of(m_hotKeys,
                               [&](const HotKey& hotKey) { return hotKey.isGrabbed && hotKey.grab == grab; });
}

std::vector<X11GlobalShortcuts::HotKey>::iterator X11GlobalShortcuts::find(const QString& id)
{
    return std::ranges::find(m_hotKeys, id, &HotKey::id);
}

} // namespace tintwick
