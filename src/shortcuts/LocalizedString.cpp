#include "LocalizedString.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace tintwick::KeyboardShortcuts {

namespace {

struct Text
{
    QLatin1StringView key;
    const char* english = nullptr;
};

constexpr Text texts[] = {
    {QLatin1StringView("record_shortcut"), QT_TRANSLATE_NOOP("KeyboardShortcuts", "Record Shortcut")},
    {QLatin1StringView("press_shortcut"), QT_TRANSLATE_NOOP("KeyboardShortcuts", "Press Shortcut")},
    {QLatin1StringView("clear_shortcut"), QT_TRANSLATE_NOOP("KeyboardShortcuts", "Clear Shortcut")},
    {QLatin1StringView("ok"), QT_TRANSLATE_NOOP("KeyboardShortcuts", "OK")},
    {QLatin1StringView("force_use_shortcut"), QT_TRANSLATE_NOOP("KeyboardShortcuts", "Use Anyway")},
    {QLatin1StringView("keyboard_shortcut_used_by_menu_item"),
     QT_TRANSLATE_NOOP("KeyboardShortcuts", "This shortcut belongs to the menu item “%1”.")},
    {QLatin1StringView("keyboard_shortcut_used_by_system"),
     QT_TRANSLATE_NOOP("KeyboardShortcuts", "The desktop or another program uses this shortcut.")},
    {QLatin1StringView("keyboard_shortcuts_can_be_changed"),
     QT_TRANSLATE_NOOP("KeyboardShortcuts",
                       "Most shortcuts of the desktop can be changed in its keyboard settings.")},
    {QLatin1StringView("keyboard_shortcut_disallowed"),
     QT_TRANSLATE_NOOP("KeyboardShortcuts", "This shortcut needs ⌘ or ⌃ beside ⌥.")},
    {QLatin1StringView("space_key"), QT_TRANSLATE_NOOP("KeyboardShortcuts", "Space")},
};

} // namespace

QString localizedString(QLatin1StringView key)
{
    const auto* found = std::ranges::find(texts, key, &Text::key);
    return found != std::end(texts) ? QCoreApplication::translate("KeyboardShortcuts", found->english)
                                    : QString(key);
}

} // namespace tintwick::KeyboardShortcuts
