#pragma once

#include "Shortcut.h"

#include <QCoreApplication>
#include <QString>

#include <array>
#include <cstdint>
#include <optional>

namespace tintwick {

/// What a global shortcut of the program does.
enum class ShortcutAction : std::uint8_t { ActivatePicker, OpenMainWindow };

inline constexpr std::array allShortcutActions{ShortcutAction::ActivatePicker,
                                               ShortcutAction::OpenMainWindow};

/// The constant id under which the action is stored and bound.
[[nodiscard]] inline QString idOf(ShortcutAction action)
{
    return action == ShortcutAction::ActivatePicker ? QStringLiteral("activatePicker")
                                                    : QStringLiteral("openMainWindow");
}

/// What the user reads.
[[nodiscard]] inline QString titleOf(ShortcutAction action)
{
    return action == ShortcutAction::ActivatePicker
               ? QCoreApplication::translate("ShortcutAction", "Activate Picker")
               : QCoreApplication::translate("ShortcutAction", "Open Main Window");
}

/// What starts the action from a shell, as an argument of this program.
[[nodiscard]] inline QString commandOf(ShortcutAction action)
{
    return action == ShortcutAction::ActivatePicker ? QStringLiteral("pick") : QStringLiteral("panel");
}

/// The combination that is stored at the first start: Alt+Shift+C activates the picker.
[[nodiscard]] constexpr std::optional<Shortcut> defaultShortcutOf(ShortcutAction action)
{
    return action == ShortcutAction::ActivatePicker
               ? std::optional(Shortcut{keycode::c, modifier::alt | modifier::shift})
               : std::nullopt;
}

/// The combination in an example for the user: the default, and Alt+Shift+P for the panel.
[[nodiscard]] constexpr Shortcut suggestedShortcutOf(ShortcutAction action)
{
    return defaultShortcutOf(action).value_or(Shortcut{keycode::p, modifier::alt | modifier::shift});
}

} // namespace tintwick
