#include "Presentation.h"

#include "KeyboardLayout.h"
#include "Modifiers.h"
#include "SpecialKey.h"

#include <QList>

namespace tintwick::KeyboardShortcuts {

namespace {

QString modifierSymbols(std::uint32_t flags)
{
    constexpr struct
    {
        std::uint32_t flag;
        const char16_t* symbol;
    } symbols[] = {
        {eventflag::control, u"\u2303"},
        {eventflag::alt, u"\u2325"},
        {eventflag::shift, u"\u21E7"},
        {eventflag::super, u"\u2318"},
        // The globe, followed by the selector that asks for its text form instead of an emoji.
        {eventflag::function, u"\U0001F310\uFE0E"},
    };
    QString text;
    for (const auto& [flag, symbol] : symbols) {
        if ((flags & flag) != 0) {
            text += QStringView(symbol);
        }
    }
    return text;
}

// One character stays one: a key that types "ß" is shown as that, not as "SS".
QString capitalized(const QString& character)
{
    const char32_t capital = QChar::toTitleCase(char32_t{character.toUcs4().constFirst()});
    return QString::fromUcs4(&capital, 1);
}

} // namespace

QString presentableDescription(const Shortcut& shortcut, const KeyboardLayout& layout)
{
    const auto symbols = modifierSymbols(shortcut.modifiers());
    if (const auto special = specialKeyForKeyCode(shortcut.carbonKeyCode)) {
        return symbols + displayText(*special);
    }
    if (const auto character = keyToCharacter(shortcut, layout)) {
        return symbols + capitalized(*character);
    }
    return symbols + QChar(QChar::ReplacementCharacter);
}

std::optional<QString> keyToCharacter(const Shortcut& shortcut, const KeyboardLayout& layout)
{
    if (specialKeyForKeyCode(shortcut.carbonKeyCode)) {
        return std::nullopt;
    }
    auto text = layout.characterForKey(shortcut.carbonKeyCode);
    if (!text || text->toUcs4().size() != 1) {
        return std::nullopt;
    }
    return text;
}

} // namespace tintwick::KeyboardShortcuts
