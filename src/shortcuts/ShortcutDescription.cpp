#include "ShortcutDescription.h"

#include "KeyboardLayout.h"
#include "SpecialKey.h"

#include <QList>

namespace tintwick {

namespace {

QString modifierSymbols(int modifiers)
{
    constexpr struct
    {
        int mask;
        const char16_t* symbol;
    } symbols[] = {
        {modifier::control, u"\u2303"},
        {modifier::alt, u"\u2325"},
        {modifier::shift, u"\u21E7"},
        {modifier::super, u"\u2318"},
        // The globe with the variation selector for text, which keeps it from being drawn as an emoji.
        {modifier::function, u"\U0001F310\uFE0E"},
    };
    QString text;
    for (const auto& [mask, symbol] : symbols) {
        if ((modifiers & mask) != 0) {
            text += QStringView(symbol);
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

} // namespace

QString describe(const Shortcut& shortcut, const KeyboardLayout& layout)
{
    const auto symbols = modifierSymbols(shortcut.modifiers);
    if (const auto special = specialKeyForKeyCode(shortcut.keyCode)) {
        return symbols + displayText(*special);
    }
    if (const auto character = characterOf(shortcut.keyCode, layout)) {
        return symbols + capitalized(*character);
    }
    return symbols + QChar(QChar::ReplacementCharacter);
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
