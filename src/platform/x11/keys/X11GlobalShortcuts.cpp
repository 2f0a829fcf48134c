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

bool X11GlobalShortcuts::HotKey::hasKeys(const KeyGrab& grab) const
{
    const auto has = [&](const Keys& keys) { return keys.isOurs && keys.grab == grab; };
    return has(wanted) || (former && has(*former));
}

X11GlobalShortcuts::X11GlobalShortcuts(XcbConnection& connection, std::chrono::milliseconds retryInterval)
    : m_connection(connection)
    , m_xkbEvent(listenForXkbEvents(connection))
    , m_grabs(connection)
    , m_popupKeys(connection, *this)
    , m_freedKeys(retryInterval)
{
    requestDetectableAutoRepeat();
    connect(&m_popups, &PopupWatcher::firstOpened, this, &X11GlobalShortcuts::suspendGrabs);
    connect(&m_popups, &PopupWatcher::lastClosed, this, &X11GlobalShortcuts::resumeGrabs);
    connect(&m_freedKeys, &FreedKeysWatch::mayBeFree, this, &X11GlobalShortcuts::retry);
}

X11GlobalShortcuts::~X11GlobalShortcuts()
{
    forEachKeys([this](Keys& keys) { giveBack(keys); });
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
    listen();
    auto hotKey = find(id);
    if (hotKey == m_hotKeys.end()) {
        hotKey = m_hotKeys.emplace(hotKey);
        hotKey->id = id;
    }
    if (hotKey->wanted.isOurs) {
        hotKey->former = hotKey->wanted;
    }
    hotKey->wanted = {*preferred, m_grabs.grabFor(*preferred)};
    hotKey->isReportedBound.reset();
    takeMissing(*hotKey);
    updatePopupKeys();
    reportChanges();
}

void X11GlobalShortcuts::unbind(const QString& id)
{
    const auto hotKey = find(id);
    if (hotKey == m_hotKeys.end()) {
        return;
    }
    giveBack(hotKey->wanted);
    if (hotKey->former) {
        giveBack(*hotKey->former);
    }
    m_hotKeys.erase(hotKey);
    updatePopupKeys();
    reportChanges();
}

bool X11GlobalShortcuts::isTaken(const Shortcut& shortcut) const
{
    const auto grab = m_grabs.grabFor(shortcut);
    return grab && !isOurs(*grab) && !m_grabs.isFree(*grab);
}

void X11GlobalShortcuts::retry()
{
    if (!m_popups.isAnyOpen()) {
        takeAllMissing();
    }
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
        if (hotKey.hasKeys(pressed)) {
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
    giveAllBack();
    forgetPressedKeys();
    updatePopupKeys();
}

void X11GlobalShortcuts::resumeGrabs()
{
    forgetPressedKeys();
    updatePopupKeys();
    takeAllAgain();
}

void X11GlobalShortcuts::followKeymap()
{
    const auto map = ModifierMap::read(m_connection);
    if (!map) {
        return;
    }
    if (*map == m_grabs.modifierMap()) {
        retry();
        return;
    }
    if (!m_popups.isAnyOpen()) {
        giveAllBack();
    }
    m_grabs.setModifierMap(*map);
    forEachKeys([this](Keys& keys) {
        keys.grab = m_grabs.grabFor(keys.shortcut);
        keys.isOurs = keys.isOurs && keys.grab;
    });
    if (!m_popups.isAnyOpen()) {
        takeAllAgain();
    }
}

void X11GlobalShortcuts::forgetPressedKeys()
{
    for (HotKey& hotKey : m_hotKeys) {
        hotKey.pressedKey.reset();
    }
}

void X11GlobalShortcuts::giveAllBack()
{
    forEachKeys([this](const Keys& keys) {
        if (keys.isOurs) {
            m_grabs.giveBack(*keys.grab);
        }
    });
}

// Another client may have taken a combination meanwhile, or given one back.
void X11GlobalShortcuts::takeAllAgain()
{
    forEachKeys([](Keys& keys) { keys.isOurs = false; });
    takeAllMissing();
}

void X11GlobalShortcuts::takeMissing(HotKey& hotKey)
{
    take(hotKey.wanted);
    if (!hotKey.former) {
        return;
    }
    if (hotKey.wanted.isOurs) {
        giveBack(*hotKey.former);
        hotKey.former.reset();
        hotKey.pressedKey.reset();
    } else {
        take(*hotKey.former);
    }
}

void X11GlobalShortcuts::takeAllMissing()
{
    for (HotKey& hotKey : m_hotKeys) {
        takeMissing(hotKey);
    }
    reportChanges();
}

// A slot may bind or unbind shortcuts, so all reports are collected before the first signal.
void X11GlobalShortcuts::reportChanges()
{
    m_freedKeys.setActive(std::ranges::any_of(
        m_hotKeys, [](const HotKey& hotKey) { return hotKey.wanted.grab && !hotKey.wanted.isOurs; }));
    std::vector<std::pair<QString, std::optional<ShortcutRefusal>>> reports;
    for (HotKey& hotKey : m_hotKeys) {
        const bool isBound = hotKey.wanted.isOurs;
        if (std::exchange(hotKey.isReportedBound, isBound) != isBound) {
            const auto refusal = hotKey.wanted.grab ? taken() : noSuchKey();
            reports.emplace_back(hotKey.id, isBound ? std::nullopt : std::optional(refusal));
        }
    }
    for (const auto& [id, refusal] : reports) {
        if (refusal) {
            Q_EMIT refused(id, *refusal);
        } else {
            Q_EMIT bound(id);
        }
    }
}

void X11GlobalShortcuts::take(Keys& keys) const
{
    if (!keys.grab || keys.isOurs) {
        return;
    }
    // An open popup has the keys. They are grabbed when it closes.
    keys.isOurs =
        isOurs(*keys.grab) || (m_popups.isAnyOpen() ? m_grabs.isFree(*keys.grab) : m_grabs.take(*keys.grab));
}

void X11GlobalShortcuts::giveBack(Keys& keys) const
{
    if (std::exchange(keys.isOurs, false) && !isOurs(*keys.grab) && !m_popups.isAnyOpen()) {
        m_grabs.giveBack(*keys.grab);
    }
}

bool X11GlobalShortcuts::isOurs(const KeyGrab& grab) const
{
    return std::ranges::any_of(m_hotKeys, [&](const HotKey& hotKey) { return hotKey.hasKeys(grab); });
}

void X11GlobalShortcuts::forEachKeys(const std::function<void(Keys&)>& visit)
{
    for (HotKey& hotKey : m_hotKeys) {
        visit(hotKey.wanted);
        if (hotKey.former) {
            visit(*hotKey.former);
        }
    }
}

std::vector<X11GlobalShortcuts::HotKey>::iterator X11GlobalShortcuts::find(const QString& id)
{
    return std::ranges::find(m_hotKeys, id, &HotKey::id);
}

} // namespace tintwick
