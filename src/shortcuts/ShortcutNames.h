#pragma once

#include "Modifiers.h"
#include "Name.h"

// The shortcuts that the program has.
namespace tintwick::shortcutnames {

/// Starts picking.
[[nodiscard]] inline const KeyboardShortcuts::Name& activatePicker()
{
    using namespace KeyboardShortcuts;
    static const Name name{QStringLiteral("activatePicker"),
                           Shortcut::fromKey({keycode::c}, eventflag::alt | eventflag::shift)};
    return name;
}

/// Opens the main panel.
[[nodiscard]] inline const KeyboardShortcuts::Name& openMainWindow()
{
    static const KeyboardShortcuts::Name name{QStringLiteral("openMainWindow"), std::nullopt};
    return name;
}

} // namespace tintwick::shortcutnames
