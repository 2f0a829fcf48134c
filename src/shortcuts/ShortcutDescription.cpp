#include "ShortcutDescription.h"

#include "KeyboardLayout.h"
#include "SpecialKey.h"

#include <QList>
#include <QStringView>

namespace tintwick {

namespace {

QString modifierText(int modifiers, KeyNames names)
{
    constexpr struct
    {
        int mask;
        const char16_t* sign;
        const char16_t* word;
    } texts[] = {
        {modifier::control, u"\u2303", u"Ctrl+"},
        {modifier::alt, u"\u2325", u"Alt+"},
        {modifier::shift, u"\u21E7", u"Shift+"},
        {modifier::super, u"\u2318", u"Super+"},
        // The globe with the variation selector for text, which keeps it from being drawn as an emoji.
        {modifier::function, u"\U0001F310\uFE0E", u"Fn+"},
    };
    QString text;
    for (const auto& [mask, sign, word] : texts) {
        if ((modifiers & mask) != 0) {
            text += QStringView(names == KeyNames::Signs ? sign : word);
        }
    }
    return text;
}

// Title case keeps one character: "ß" stays "ß" and does not become "SS".
QString capitalized(const QString& character)
{
    const char32_t capital = QChar::toTitleCase(char32_t{character.toUcs4().constFirst()});
    return QString::fromUcs4(&capital, 1);
}

QString keyText(int keyCode, const KeyboardLayout& layout, KeyNames names)
{
    if (const auto special = specialKeyForKeyCode(keyCode)) {
        return names == KeyNames::Signs ? signOf(*special) : wordOf(*special);
    }
    if (const auto character = characterOf(keyCode, layout)) {
        return capitalized(*character);
    }
    return layout.accentForKey(keyCode).value_or(QChar(QChar::ReplacementCharacter));
}

} // namespace

QString describe(const Shortcut& shortcut, const KeyboardLayout& layout, KeyNames names)
{
    return modifierText(shortcut.modifiers, names) + keyText(shortcut.keyCode, layout, names);
}

std::optional<QString> characterOf(int keyCode, const KeyboardLayout& layout)
{
    if (specialKeyForKeyCode(keyCode)) {
        return std::nullopt;
    }
    auto text = layout.characterForKey(keyCode);
    if (!text || text->toUcs4().size() != 1) {
        return std::nullopt;
    }
    return text;
}

} // namespace tintwick
