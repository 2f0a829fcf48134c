#pragma once

#include "CarbonKeyboardShortcuts.h"
#include "Name.h"

#include <QObject>

#include <functional>
#include <optional>
#include <span>
#include <unordered_set>
#include <vector>

class QSettings;

namespace tintwick {
class HotKeyRegistrar;
class KeyboardLayout;
} // namespace tintwick

namespace tintwick::KeyboardShortcuts {

/// The shortcuts of the program: keeps each name's combination in the settings, takes it from the desktop, and calls the
/// name's actions when it is pressed or released. Actions belong to the name and stay when its combination changes.
///
/// In the settings a name has the key "KeyboardShortcuts_" + its raw value, with the shortcut as JSON text, or false
/// when the user removed a shortcut whose default must not come back. Anything else reads as no shortcut.
class Registry final : public QObject
{
    Q_OBJECT

public:
    using Action = std::function<void()>;

    /// All three must outlive this object.
    Registry(HotKeyRegistrar& registrar, KeyboardLayout& layout, QSettings& settings,
             QObject* parent = nullptr);
    ~Registry() override;

    /// To be called once for each name at start: gives it its default when the settings know nothing of the name.
    void declare(const Name& name);

    [[nodiscard]] std::optional<Shortcut> getShortcut(const Name& name) const;
    /// None removes the shortcut; does nothing when there is none to remove.
    void setShortcut(const std::optional<Shortcut>& shortcut, const Name& name);
    /// Gives each name its default back; a name without one loses its shortcut.
    void reset(std::span<const Name> names);
    /// Removes the shortcut of every name in the settings. They do not hold defaults, so none comes back before the
    /// next start.
    void resetAll();

    void onKeyDown(const Name& name, Action action);
    void onKeyUp(const Name& name, Action action);
    /// Drops the name's actions and gives back every combination that no action needs any more.
    void removeHandler(const Name& name);
    void removeAllHandlers();

    /// The switch for all shortcuts; they stay stored while it is off.
    [[nodiscard]] bool isEnabled() const { return m_hotKeys.isEnabled(); }
    void setEnabled(bool enabled) { m_hotKeys.setEnabled(enabled); }

    /// To be told while a menu of ours is open: the desktop then delivers no hot keys, and the menu's keys are watched.
    void setMenuOpen(bool open) { m_hotKeys.setMenuOpen(open); }

    /// While a recorder records, no action is called.
    void setRecorderActive(bool active);
    [[nodiscard]] bool isPaused() const { return m_isPaused; }

    /// Whether the desktop or another program holds the combination now. No X client can list what the others hold, so
    /// there is no set of such combinations to offer; but the server answers truthfully for one at a time.
    [[nodiscard]] bool isTakenBySystem(const Shortcut& shortcut) const;

Q_SIGNALS:
    /// After every stored change.
    void shortcutByNameDidChange(const tintwick::KeyboardShortcuts::Name& name);
    void recorderActiveStatusDidChange(bool isActive);
    /// Shortcuts may have to be shown with other characters now.
    void keyboardLayoutDidChange();

private:
    struct Handlers
    {
        Name name;
        std::vector<Action> actions;
    };
    /// In the order in which the names got their first action.
    using HandlerMap = std::vector<Handlers>;

    void add(const Name& name, Action action, HandlerMap& handlers);
    void store(const Shortcut& shortcut, const Name& name);
    void remove(const Name& name);
    void take(const Shortcut& shortcut);
    void giveBack(const Shortcut& shortcut);
    void takeWhatHandlersNeed();
    void giveBackWhatNoHandlerNeeds();
    [[nodiscard]] std::unordered_set<Shortcut> neededByHandlers() const;
    void dispatch(const Shortcut& shortcut, const HandlerMap& handlers) const;

    HotKeyRegistrar& m_registrar;
    KeyboardLayout& m_layout;
    QSettings& m_settings;
    CarbonKeyboardShortcuts m_hotKeys;
    /// Those handed to the hot keys, whether the desktop granted them or not.
    std::unordered_set<Shortcut> m_registeredShortcuts;
    HandlerMap m_keyDownHandlers;
    HandlerMap m_keyUpHandlers;
    bool m_isPaused = false;
};

} // namespace tintwick::KeyboardShortcuts
