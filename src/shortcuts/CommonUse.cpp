#include "CommonUse.h"

#include "ShortcutDescription.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace tintwick {

namespace {

constexpr int control = modifier::control, alt = modifier::alt, shift = modifier::shift,
              super = modifier::super;

/// Programs find these keys by the letter.
constexpr struct
{
    char16_t letter;
    int modifiers;
    const char* use;
} letterUses[] = {
    {u'c', control, "copy"},
    {u'v', control, "paste"},
    {u'x', control, "cut"},
    {u'z', control, "undo"},
    {u'y', control, "redo"},
    {u'z', control | shift, "redo"},
    {u'a', control, "select everything"},
    {u's', control, "save"},
    {u'o', control, "open a file"},
    {u'n', control, "open a new window"},
    {u't', control, "open a new tab"},
    {u'w', control, "close a window or a tab"},
    {u'q', control, "quit"},
    {u'f', control, "search"},
    {u'p', control, "print"},
    {u'r', control, "load a page again"},
    {u'c', control | shift, "copy in a terminal"},
    {u'v', control | shift, "paste in a terminal"},
};

constexpr struct
{
    Shortcut shortcut;
    const char* use = nullptr;
} keyUses[] = {
    {{keycode::tab, alt}, "switch windows"},
    {{keycode::tab, alt | shift}, "switch windows"},
    {{keycode::tab, super}, "switch windows"},
    {{keycode::tab, control}, "switch tabs"},
    {{keycode::tab, control | shift}, "switch tabs"},
    {{keycode::f4, alt}, "close a window"},
    {{keycode::space, alt}, "open the menu of a window"},
    {{keycode::leftArrow, alt}, "go back"},
    {{keycode::rightArrow, alt}, "go forward"},
    {{keycode::leftArrow, control}, "move by a word"},
    {{keycode::rightArrow, control}, "move by a word"},
    {{keycode::deleteKey, control}, "delete a word"},
    {{keycode::help, control}, "copy"},
    {{keycode::deleteForward, control | alt}, "end the session"},
};

} // namespace

std::optional<QString> commonUse(const Shortcut& shortcut, const KeyboardLayout& layout)
{
    const auto translated = [](const char* use) { return QCoreApplication::translate("CommonUse", use); };
    const auto* const byKey =
        std::ranges::find_if(keyUses, [&](const auto& row) { return row.shortcut == shortcut; });
    if (byKey != std::end(keyUses)) {
        return translated(byKey->use);
    }
    const auto letter = characterOf(shortcut.keyCode, layout);
    const auto* const byLetter = std::ranges::find_if(letterUses, [&](const auto& row) {
        return letter == QString(QChar(row.letter)) && row.modifiers == shortcut.modifiers;
    });
    return byLetter != std::end(letterUses) ? std::optional(translated(byLetter->use)) : std::nullopt;
}

} // namespace tintwick
