#include "CarbonKeyboardShortcuts.h"

#include "Modifiers.h"
#include "Presentation.h"

#include <algorithm>
#include <cstdio>

namespace tintwick::KeyboardShortcuts {

namespace {

// An action may change the very registration that holds it, so it is called on a copy.
template <typename HotKey>
void call(const HotKey& hotKey, KeyDirection direction)
{
    const auto action = direction == KeyDirection::Press ? hotKey.onKeyDown : hotKey.onKeyUp;
    const auto shortcut = hotKey.shortcut;
    action(shortcut);
}

} // namespace

CarbonKeyboardShortcuts::CarbonKeyboardShortcuts(HotKeyRegistrar& registrar, const KeyboardLayout& layout)
    : m_registrar(registrar)
    , m_layout(layout)
{
}

CarbonKeyboardShortcuts::~CarbonKeyboardShortcuts()
{
    softUnregisterAll();
    m_registrar.setHotKeyHandler({});
    m_registrar.setRawKeyHandler({});
}

void CarbonKeyboardShortcuts::registerShortcut(const Shortcut& shortcut, Action onKeyDown, Action onKeyUp)
{
    const auto id = ++m_lastId;
    if (const auto handle = take(shortcut, id)) {
        m_hotKeys.emplace(id, HotKey{shortcut, id, handle, std::move(onKeyDown), std::move(onKeyUp)});
        m_isListening = true;
        updateEventHandler();
    }
}

void CarbonKeyboardShortcuts::unregisterShortcut(const Shortcut& shortcut)
{
    std::erase_if(m_hotKeys, [&](const auto& entry) {
        const auto& hotKey = entry.second;
        if (hotKey.shortcut != shortcut) {
            return false;
        }
        if (hotKey.carbonHotKey) {
            m_registrar.unregisterHotKey(*hotKey.carbonHotKey);
        }
        return true;
    });
}

void CarbonKeyboardShortcuts::setEnabled(bool enabled)
{
    if (m_isEnabled != enabled) {
        m_isEnabled = enabled;
        updateEventHandler();
    }
}

void CarbonKeyboardShortcuts::setMenuOpen(bool open)
{
    if (m_isMenuOpen != open) {
        m_isMenuOpen = open;
        updateEventHandler();
    }
}

void CarbonKeyboardShortcuts::updateEventHandler()
{
    if (!m_isListening) {
        return;
    }
    if (m_isEnabled && !m_isMenuOpen) {
        softRegisterAll();
        m_registrar.setHotKeyHandler([this](auto id, auto direction) { handleHotKey(id, direction); });
    } else {
        softUnregisterAll();
        m_registrar.setHotKeyHandler({});
    }
    if (m_isEnabled && m_isMenuOpen) {
        m_registrar.setRawKeyHandler([this](auto keyCode, auto modifiers, auto direction) {
            return handleRawKey(keyCode, modifiers, direction);
        });
    } else {
        m_registrar.setRawKeyHandler({});
    }
}

void CarbonKeyboardShortcuts::softRegisterAll()
{
    for (auto& [id, hotKey] : m_hotKeys) {
        if (!hotKey.carbonHotKey) {
            hotKey.carbonHotKey = take(hotKey.shortcut, id);
        }
    }
    std::erase_if(m_hotKeys, [](const auto& entry) { return !entry.second.carbonHotKey; });
}

void CarbonKeyboardShortcuts::softUnregisterAll()
{
    for (auto& [id, hotKey] : m_hotKeys) {
        if (hotKey.carbonHotKey) {
            m_registrar.unregisterHotKey(*hotKey.carbonHotKey);
            hotKey.carbonHotKey.reset();
        }
    }
}

std::optional<CarbonKeyboardShortcuts::Handle> CarbonKeyboardShortcuts::take(const Shortcut& shortcut,
                                                                             std::uint32_t id) const
{
    const auto [status, handle] =
        m_registrar.registerHotKey(shortcut.carbonKeyCode, shortcut.carbonModifiers, id);
    if (status == HotKeyRegistrar::statusSuccess && handle) {
        return handle;
    }
    const auto text = presentableDescription(shortcut, m_layout).toUtf8();
    std::printf("Error registering hotkey %s: %d\n", text.constData(), status);
    std::fflush(stdout);
    return std::nullopt;
}

void CarbonKeyboardShortcuts::handleHotKey(std::uint32_t id, KeyDirection direction)
{
    if (const auto found = m_hotKeys.find(id); found != m_hotKeys.end()) {
        call(found->second, direction);
    }
}

bool CarbonKeyboardShortcuts::handleRawKey(int keyCode, int modifiers, KeyDirection direction)
{
    const auto pressed = Shortcut::fromCarbon(keyCode, modifiers);
    const auto found =
        std::ranges::find_if(m_hotKeys, [&](const auto& entry) { return entry.second.shortcut == pressed; });
    if (found == m_hotKeys.end()) {
        return false;
    }
    call(found->second, direction);
    return true;
}

} // namespace tintwick::KeyboardShortcuts
