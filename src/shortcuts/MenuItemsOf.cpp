#include "MenuItemsOf.h"

#include "Modifiers.h"
#include "SpecialKey.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>

#include <algorithm>
#include <iterator>

namespace tintwick::KeyboardShortcuts {

namespace {

constexpr struct
{
    Qt::Key key;
    SpecialKey special;
} specialKeys[] = {
    {Qt::Key_Return, SpecialKey::Return},     {Qt::Key_Enter, SpecialKey::KeypadEnter},
    {Qt::Key_Backspace, SpecialKey::Delete},  {Qt::Key_Delete, SpecialKey::DeleteForward},
    {Qt::Key_End, SpecialKey::End},           {Qt::Key_Escape, SpecialKey::Escape},
    {Qt::Key_Help, SpecialKey::Help},         {Qt::Key_Insert, SpecialKey::Help},
    {Qt::Key_Home, SpecialKey::Home},         {Qt::Key_Space, SpecialKey::Space},
    {Qt::Key_Tab, SpecialKey::Tab},           {Qt::Key_PageUp, SpecialKey::PageUp},
    {Qt::Key_PageDown, SpecialKey::PageDown}, {Qt::Key_Up, SpecialKey::UpArrow},
    {Qt::Key_Right, SpecialKey::RightArrow},  {Qt::Key_Down, SpecialKey::DownArrow},
    {Qt::Key_Left, SpecialKey::LeftArrow},
};

QString keyEquivalentOf(Qt::Key key)
{
    const auto* found = std::ranges::find(specialKeys, key, [](const auto& entry) { return entry.key; });
    if (found != std::end(specialKeys)) {
        return menuKeyEquivalent(found->special);
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F20) {
        const int number = key - Qt::Key_F1;
        return menuKeyEquivalent(static_cast<SpecialKey>(static_cast<int>(SpecialKey::F1) + number));
    }
    // Below the toolkit's own numbers a key is the character it types, letters in capitals.
    constexpr int firstKeyWithoutCharacter = Qt::Key_Escape;
    return key != 0 && key < firstKeyWithoutCharacter ? QString(QChar(key)).toLower() : QString();
}

std::uint32_t eventFlagsOf(Qt::KeyboardModifiers modifiers)
{
    return (modifiers.testFlag(Qt::ShiftModifier) ? eventflag::shift : 0) |
           (modifiers.testFlag(Qt::ControlModifier) ? eventflag::control : 0) |
           (modifiers.testFlag(Qt::AltModifier) ? eventflag::alt : 0) |
           (modifiers.testFlag(Qt::MetaModifier) ? eventflag::super : 0);
}

// A mark before a letter says that it is underlined; two of them are the character itself.
QString withoutMnemonic(const QString& text)
{
    QString title;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && i + 1 < text.size()) {
            ++i;
        }
        title += text[i];
    }
    return title;
}

} // namespace

std::vector<MenuItem> menuItemsOf(const QMenu& menu)
{
    std::vector<MenuItem> items;
    const auto actions = menu.actions();
    for (const QAction* action : actions) {
        if (action->isSeparator()) {
            continue;
        }
        MenuItem item{withoutMnemonic(action->text()), {}, 0, {}};
        if (const auto keys = action->shortcut(); keys.count() == 1) {
            item.keyEquivalent = keyEquivalentOf(keys[0].key());
            item.modifiers = eventFlagsOf(keys[0].keyboardModifiers());
        }
        if (const QMenu* submenu = action->menu()) {
            item.submenu = menuItemsOf(*submenu);
        }
        items.push_back(std::move(item));
    }
    return items;
}

} // namespace tintwick::KeyboardShortcuts
