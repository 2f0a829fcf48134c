#include "Registry.h"

#include "KeyboardLayout.h"

#include <QSettings>

#include <algorithm>

namespace tintwick::KeyboardShortcuts {

namespace {

constexpr QLatin1StringView keyPrefix("KeyboardShortcuts_");

QString keyOf(const Name& name)
{
    return keyPrefix + name.rawValue;
}

} // namespace

Registry::Registry(HotKeyRegistrar& registrar, KeyboardLayout& layout, QSettings& settings, QObject* parent)
    : QObject(parent)
    , m_registrar(registrar)
    , m_layout(layout)
    , m_settings(settings)
    , m_hotKeys(registrar, layout)
{
    m_layout.setLayoutChangedHandler([this] { Q_EMIT keyboardLayoutDidChange(); });
}

Registry::~Registry()
{
    m_layout.setLayoutChangedHandler({});
}

void Registry::declare(const Name& name)
{
    if (name.defaultShortcut && !m_settings.contains(keyOf(name))) {
        setShortcut(name.defaultShortcut, name);
    }
}

// Settings files hold the boolean false as the word "false". There is no need to tell it from that text: neither is a
// shortcut, and both keep the default from coming back.
std::optional<Shortcut> Registry::getShortcut(const Name& name) const
{
    const auto value = m_settings.value(keyOf(name));
    if (value.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    return Shortcut::fromJson(value.toString());
}

void Registry::setShortcut(const std::optional<Shortcut>& shortcut, const Name& name)
{
    if (shortcut) {
        store(*shortcut, name);
    } else {
        remove(name);
    }
}

void Registry::store(const Shortcut& shortcut, const Name& name)
{
    if (const auto previous = getShortcut(name)) {
        giveBack(*previous);
    }
    take(shortcut);
    m_settings.setValue(keyOf(name), shortcut.toJson());
    m_settings.sync();
    takeWhatHandlersNeed();
    Q_EMIT shortcutByNameDidChange(name);
}

void Registry::remove(const Name& name)
{
    const auto previous = getShortcut(name);
    if (!previous) {
        return;
    }
    if (name.defaultShortcut) {
        m_settings.setValue(keyOf(name), false);
    } else {
        m_settings.remove(keyOf(name));
    }
    m_settings.sync();
    giveBack(*previous);
    takeWhatHandlersNeed();
    Q_EMIT shortcutByNameDidChange(name);
}

void Registry::reset(std::span<const Name> names)
{
    for (const auto& name : names) {
        setShortcut(name.defaultShortcut, name);
    }
}

void Registry::resetAll()
{
    const auto keys = m_settings.allKeys();
    for (const auto& key : keys) {
        if (key.startsWith(keyPrefix)) {
            setShortcut(std::nullopt, {key.sliced(keyPrefix.size()), std::nullopt});
        }
    }
}

void Registry::onKeyDown(const Name& name, Action action)
{
    add(name, std::move(action), m_keyDownHandlers);
}

void Registry::onKeyUp(const Name& name, Action action)
{
    add(name, std::move(action), m_keyUpHandlers);
}

void Registry::add(const Name& name, Action action, HandlerMap& handlers)
{
    auto found = std::ranges::find(handlers, name, &Handlers::name);
    if (found == handlers.end()) {
        found = handlers.insert(handlers.end(), {name, {}});
    }
    found->actions.push_back(std::move(action));
    if (const auto shortcut = getShortcut(name)) {
        take(*shortcut);
    }
}

void Registry::removeHandler(const Name& name)
{
    const auto isOfName = [&name](const Handlers& handlers) { return handlers.name == name; };
    std::erase_if(m_keyDownHandlers, isOfName);
    std::erase_if(m_keyUpHandlers, isOfName);
    giveBackWhatNoHandlerNeeds();
}

void Registry::removeAllHandlers()
{
    m_keyDownHandlers.clear();
    m_keyUpHandlers.clear();
    giveBackWhatNoHandlerNeeds();
}

void Registry::setRecorderActive(bool active)
{
    if (m_isPaused == active) {
        return;
    }
    m_isPaused = active;
    Q_EMIT recorderActiveStatusDidChange(active);
}

bool Registry::isTakenBySystem(const Shortcut& shortcut) const
{
    return m_registrar.isTaken(shortcut.carbonKeyCode, shortcut.carbonModifiers);
}

void Registry::take(const Shortcut& shortcut)
{
    if (!m_registeredShortcuts.insert(shortcut).second) {
        return;
    }
    m_hotKeys.registerShortcut(
        shortcut, [this](const Shortcut& pressed) { dispatch(pressed, m_keyDownHandlers); },
        [this](const Shortcut& pressed) { dispatch(pressed, m_keyUpHandlers); });
}

void Registry::giveBack(const Shortcut& shortcut)
{
    m_hotKeys.unregisterShortcut(shortcut);
    m_registeredShortcuts.erase(shortcut);
}

// Two names may share one combination; when one of them changes, the other must not fall silent.
void Registry::takeWhatHandlersNeed()
{
    for (const auto& shortcut : neededByHandlers()) {
        take(shortcut);
    }
}

void Registry::giveBackWhatNoHandlerNeeds()
{
    const auto needed = neededByHandlers();
    const auto registered = m_registeredShortcuts;
    for (const auto& shortcut : registered) {
        if (!needed.contains(shortcut)) {
            giveBack(shortcut);
        }
    }
}

std::unordered_set<Shortcut> Registry::neededByHandlers() const
{
    std::unordered_set<Shortcut> needed;
    for (const auto* handlers : {&m_keyDownHandlers, &m_keyUpHandlers}) {
        for (const auto& [name, actions] : *handlers) {
            if (const auto shortcut = getShortcut(name)) {
                needed.insert(*shortcut);
            }
        }
    }
    return needed;
}

void Registry::dispatch(const Shortcut& shortcut, const HandlerMap& handlers) const
{
    if (m_isPaused) {
        return;
    }
    // Gathered first, because an action may add or remove actions.
    std::vector<Action> actionsToCall;
    for (const auto& [name, actions] : handlers) {
        if (getShortcut(name) == shortcut) {
            actionsToCall.insert(actionsToCall.end(), actions.begin(), actions.end());
        }
    }
    for (const Action& action : actionsToCall) {
        action();
    }
}

} // namespace tintwick::KeyboardShortcuts
