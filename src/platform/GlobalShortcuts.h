#pragma once

#include "ConfigurationLine.h"
#include "Shortcut.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace tintwick {

/// Why a shortcut is not bound.
struct ShortcutRefusal
{
    enum class Reason : std::uint8_t {
        /// The desktop or another program holds the combination.
        Taken,
        /// The keyboard does not have the key or one of the modifiers.
        NoSuchKey,
        /// The desktop has no global shortcuts.
        Unsupported,
    };

    Reason reason = Reason::Unsupported;
    /// The code of the backend, for the message on standard output.
    QString code;
};

/// Shortcuts that work whichever window has the keyboard focus. The program binds each one by a constant id.
class GlobalShortcuts : public QObject
{
    Q_OBJECT

public:
    enum class KeyChoice : std::uint8_t {
        /// The program chooses the keys: bind() uses the preferred keys or refuses.
        Program,
        /// The user chooses the keys in a dialog of the desktop, see configure().
        DesktopDialog,
        /// Neither the program nor a dialog that it can open chooses the keys, see configurationLine().
        None,
    };

    using QObject::QObject;

    /// Binds the shortcut, or changes the keys of a bound one. `description` describes the shortcut to the user. Emits
    /// bound() or refused(), and changed() when the desktop chose the keys, during the call or later. A shortcut whose
    /// new keys are refused keeps its old keys until it gets the new ones: the backend tries them again when they may
    /// have become free, and then emits bound().
    virtual void bind(const QString& id, const QString& description,
                      const std::optional<Shortcut>& preferred) = 0;
    /// Does nothing when the id is not bound.
    virtual void unbind(const QString& id) = 0;

    /// May change while the program runs, for example when the service for shortcuts starts.
    [[nodiscard]] virtual KeyChoice keyChoice() const = 0;
    /// Whether the desktop or another program holds the combination now. False for a combination of this program, and
    /// where the desktop cannot report it.
    [[nodiscard]] virtual bool isTaken(const Shortcut& shortcut) const = 0;
    /// Tries the refused keys again now, because the user looks at them.
    virtual void retry() {}
    /// Opens the desktop's dialog for the window that portals name so (see PanelHost::portalHandle()); empty for none.
    /// Does nothing when keyChoice() is not DesktopDialog.
    virtual void configure(const QString& /*parentWindow*/) {}
    /// How the user binds a command, a program and its arguments, to keys where keyChoice() is None. None where even the
    /// user cannot.
    [[nodiscard]] virtual std::optional<ConfigurationLine> configurationLine(const QStringList& /*command*/,
                                                                             const Shortcut& /*keys*/) const
    {
        return std::nullopt;
    }

Q_SIGNALS:
    void keyChoiceChanged();
    /// The keys were pressed. A held key is reported once.
    void activated(const QString& id);
    /// The key was released.
    void deactivated(const QString& id);
    /// The desktop chose the keys; `text` describes them, empty when there are none. Not emitted when the program
    /// chooses.
    void changed(const QString& id, const QString& text);
    /// The shortcut has the keys of the last bind().
    void bound(const QString& id);
    /// The shortcut does not have the keys of the last bind(), or lost them.
    void refused(const QString& id, const tintwick::ShortcutRefusal& refusal);
};

} // namespace tintwick
