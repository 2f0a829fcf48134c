#include "FontCoverage.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QList>

#include <algorithm>

namespace tintwick {

namespace {

// Neither is drawn: the one is replaced by a frame, the other only chooses a form of the character before it.
constexpr char32_t keycap = 0x20E3, textForm = 0xFE0E;

} // namespace

bool fontsHave(const QString& description)
{
    // Includes the fonts that replace the application's where it lacks a character.
    const QFontMetrics fonts{QGuiApplication::font()};
    const auto characters = description.toUcs4();
    return std::ranges::all_of(characters, [&](char32_t character) {
        return character == keycap || character == textForm || fonts.inFontUcs4(character);
    });
}

} // namespace tintwick
