#pragma once

#include "GlobalShortcuts.h"
#include "ShortcutAction.h"

#include <QObject>
#include <QString>

#include <array>
#include <functional>
#include <optional>

namespace tintwick {

class KeyboardLayout;
class Preferences;

/// The global shortcuts of the program: keeps the combination of each action, stores it in the preferences and binds it on
/// the desktop.
///
/// The stored text of an action is the combination as JSON, or "false" when the user removed a combination whose default,
/// or whose system-wide value, must not come back. Any other text means that the action has no combination.
class ShortcutRegistry final : public QObject
{
    Q_OBJECT

public:
    /// Whether the fonts have all characters of a text.
    using FontCheck = std::function<bool(const QString& text)>;

    /// All three must outlive this object. Signs that the fonts do not have are replaced by words.
    ShortcutRegistry(GlobalShortcuts& desktop, const KeyboardLayout& layout, Preferences& preferences,
                     FontCheck fontsHave = {});

    /// Stores the default of each action that has nothing stored, and binds all actions. Call once, after connecting to
    /// the signals. Prints one line to standard output for each combination that the desktop refuses, now or later.
    void start();

    [[nodiscard]] std::optional<Shortcut> shortcut(ShortcutAction action) const;
    /// What the user sees, in signs or in words; empty when the action has no combination.
    [[nodiscard]] QString text(ShortcutAction action) const;
    /// The same in words, for tool tips and screen readers.
    [[nodiscard]] QString words(ShortcutAction action) const;
    [[nodiscard]] QString text(const Shortcut& shortcut) const;
    /// Why the combination does not work; none when it works or when there is none. The action keeps the combination
    /// before until it gets this one.
    [[nodiscard]] std::optional<ShortcutRefusal::Reason> refusal(ShortcutAction action) const;
    /// Tries refused combinations again now, because the user looks at them.
    void retryRefused() { m_desktop.retry(); }
    /// Stores the combination and binds it, also when it is the same as before. None removes it.
    void setShortcut(ShortcutAction action, const std::optional<Shortcut>& shortcut);

    [[nodiscard]] GlobalShortcuts::KeyChoice keyChoice() const { return m_desktop.keyChoice(); }
    /// See GlobalShortcuts::configure().
    void configure(const QString& parentWindow) { m_desktop.configure(parentWindow); }
    /// How the user binds the action to its combination, or to a suggested one; see GlobalShortcuts::configurationLine().
    [[nodiscard]] std::optional<ConfigurationLine> configurationLine(ShortcutAction action) const;
    /// Whether the desktop or another program holds the combination now.
    [[nodiscard]] bool isTaken(const Shortcut& shortcut) const { return m_desktop.isTaken(shortcut); }

    /// While paused, activated() and deactivated() are not emitted.
    void setPaused(bool isPaused) { m_isPaused = isPaused; }
    [[nodiscard]] bool isPaused() const { return m_isPaused; }

Q_SIGNALS:
    /// The keys were pressed.
    void activated(tintwick::ShortcutAction action);
    /// The key was released.
    void deactivated(tintwick::ShortcutAction action);
    /// The combination was stored, removed or changed by the desktop.
    void shortcutChanged(tintwick::ShortcutAction action);
    void refusalChanged(tintwick::ShortcutAction action);
    void keyChoiceChanged();
    /// text() may be different now, for the same combinations.
    void textsChanged();

private:
    struct Binding
    {
        std::optional<Shortcut> shortcut;
        /// Only when the desktop chooses the keys.
        QString textOfDesktop;
        std::optional<ShortcutRefusal::Reason> refusal;
    };

    [[nodiscard]] Binding& bindingOf(ShortcutAction action);
    [[nodiscard]] const Binding& bindingOf(ShortcutAction action) const;
    [[nodiscard]] std::optional<Shortcut> storedShortcut(ShortcutAction action) const;
    void bind(ShortcutAction action);
    void followPreferences(const QString& id);
    void followDesktop(const QString& id, const QString& text);
    void followBound(const QString& id);
    void followRefusal(const QString& id, const ShortcutRefusal& refusal);
    void setRefusal(ShortcutAction action, std::optional<ShortcutRefusal::Reason> refusal);
    void printRefusal(const Shortcut& refused, const QString& code);

    GlobalShortcuts& m_desktop;
    const KeyboardLayout& m_layout;
    Preferences& m_preferences;
    FontCheck m_fontsHave;
    /// By action.
    std::array<Binding, allShortcutActions.size()> m_bindings;
    bool m_isStoring = false;
    bool m_isPaused = false;
};

} // namespace tintwick
