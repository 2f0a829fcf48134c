#include "MenuConflict.h"

#include "ShortcutDescription.h"
#include "SpecialKey.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>

namespace tintwick {

namespace {

int modifierMask(Qt::KeyboardModifiers modifiers)
{
    return (modifiers.testFlag(Qt::ShiftModifier) ? modifier::shift : 0) |
           (modifiers.testFlag(Qt::ControlModifier) ? modifier::control : 0) |
           (modifiers.testFlag(Qt::AltModifier) ? modifier::alt : 0) |
           (modifiers.testFlag(Qt::MetaModifier) ? modifier::super : 0);
}

/// The key as a menu names it, in lower case; empty when it is not known or types no character.
QString menuKeyText(Qt::Key key)
{
    // Help and Insert are one key with two names.
    const Qt::Key named = key == Qt::Key_Insert ? Qt::Key_Help : key;
    return QKeySequence(named).toString(QKeySequence::PortableText).toLower();
}

QString menuKeyText(int keyCode, const KeyboardLayout& layout)
{
    const auto special = specialKeyForKeyCode(keyCode);
    return special ? menuKeyText(menuKey(*special)) : characterOf(keyCode, layout).value_or(QString());
}

bool triggers(const QAction& action, const QString& keyText, int modifiers)
{
    const QKeySequence keys = action.shortcut();
    return keys.count() == 1 && !keyText.isEmpty() && menuKeyText(keys[0].key()) == keyText &&
           modifierMask(keys[0].keyboardModifiers()) == modifiers;
}

// An ampersand marks the letter after it; two ampersands are one character of the text.
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

const QAction* firstMatch(const QMenu& menu, const QString& keyText, int modifiers)
{
    const auto actions = menu.actions();
    for (const QAction* action : actions) {
        if (triggers(*action, keyText, modifiers)) {
            return action;
        }
        const auto* submenu = action->menu();
        if (const auto* match = submenu ? firstMatch(*submenu, keyText, modifiers) : nullptr) {
            return match;
        }
    }
    return nullptr;
}

} // namespace

std::optional<QString> menuItemWithShortcut(const Shortcut& shortcut, const QMenu& menu,
                                            const KeyboardLayout& layout)
{
    const QAction* item = firstMatch(menu, menuKeyText(shortcut.keyCode, layout), shortcut.modifiers);
    return item ? std::optional(withoutMnemonic(item->text())) : std::nullopt;
}

} // namespace tintwick
