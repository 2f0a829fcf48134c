#include "ColorText.h"

#include "ColorNotation.h"
#include "CssColor.h"
#include "NamedColors.h"
#include "TailwindPalette.h"

#include <algorithm>
#include <cstddef>

namespace tintwick {

namespace {

std::optional<CapturedColor> namedColor(QStringView name)
{
    const auto* const found = std::ranges::find_if(namedColors, [name](const NamedColor& row) {
        return row.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == namedColors.end() ? std::nullopt : std::optional(CapturedColor::capture(found->rgb));
}

std::optional<CapturedColor> tailwindColor(QStringView token)
{
    const qsizetype hyphen = token.lastIndexOf(u'-');
    if (hyphen < 0) {
        return std::nullopt;
    }
    const QStringView name = token.first(hyphen);
    const auto* const family = std::ranges::find_if(tailwindPalette, [name](const TailwindFamily& row) {
        return row.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    const auto* const shade = std::ranges::find(tailwindShades, token.mid(hyphen + 1));
    if (family == tailwindPalette.end() || shade == tailwindShades.end()) {
        return std::nullopt;
    }
    return CapturedColor::capture(family->rgb.at(static_cast<std::size_t>(shade - tailwindShades.begin())));
}

} // namespace

std::optional<WrittenColor> colorFromCss(QStringView text)
{
    const auto css = parseCssColor(text);
    if (!css) {
        return std::nullopt;
    }
    const auto& [red, green, blue] = css->srgb;
    return WrittenColor{CapturedColor::capture(red, green, blue, css->alpha), css->isGamutMapped};
}

std::optional<WrittenColor> colorFromText(QStringView text)
{
    if (auto css = colorFromCss(text)) {
        return css;
    }
    const QStringView name = text.trimmed();
    for (const auto& read : {namedColor, tailwindColor, colorFromNotation}) {
        if (const std::optional<CapturedColor> color = read(name)) {
            return WrittenColor{*color, false};
        }
    }
    return std::nullopt;
}

} // namespace tintwick
