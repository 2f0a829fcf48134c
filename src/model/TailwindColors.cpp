#include "TailwindColors.h"

#include "ColorTable.h"
#include "TailwindPalette.h"

namespace tintwick {

namespace {

constexpr std::size_t shadeCount = tailwindShades.size();

constexpr auto sharedPalette = [] {
    ColorTable<tailwindPalette.size() * shadeCount> table;
    for (std::size_t family = 0; family < tailwindPalette.size(); ++family) {
        for (std::size_t shade = 0; shade < shadeCount; ++shade) {
            table.setRow(family * shadeCount + shade, tailwindPalette[family].rgb[shade]);
        }
    }
    return table;
}();

QString tokenOf(std::size_t row)
{
    const QStringView family = tailwindPalette[row / shadeCount].name;
    const QStringView shade = tailwindShades[row % shadeCount];
    QString token;
    token.reserve(family.size() + 1 + shade.size());
    return token.append(family).append(u'-').append(shade);
}

} // namespace

const TailwindColors& TailwindColors::shared()
{
    static const TailwindColors service(sharedPalette.columns());
    return service;
}

TailwindColors::TailwindColors(const ColorColumns& palette)
    : m_palette(palette)
{
}

std::optional<QString> TailwindColors::nearest(const CapturedColor& color) const
{
    const auto row = nearestColor(m_palette, color);
    return row ? std::optional(tokenOf(*row)) : std::nullopt;
}

} // namespace tintwick
