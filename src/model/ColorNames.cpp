#include "ColorNames.h"

#include "CapturedColor.h"
#include "ColorTable.h"
#include "NamedColors.h"

#include <array>
#include <cmath>

namespace tintwick {

namespace {

constexpr auto sharedNames = [] {
    std::array<QStringView, namedColors.size()> names;
    for (std::size_t row = 0; row < names.size(); ++row) {
        names[row] = namedColors[row].name;
    }
    return names;
}();

constexpr auto sharedColors = [] {
    ColorTable<namedColors.size()> table;
    for (std::size_t row = 0; row < namedColors.size(); ++row) {
        table.setRow(row, namedColors[row].rgb);
    }
    return table;
}();

} // namespace

const ColorNames& ColorNames::shared()
{
    static const ColorNames service(sharedNames, sharedColors.columns());
    return service;
}

ColorNames::ColorNames(std::span<const QStringView> names, const ColorColumns& colors)
    : m_names(names)
    , m_colors(colors)
{
}

QString ColorNames::nearest(const CapturedColor& color) const
{
    const auto row = nearestColor(m_colors, color);
    return row ? m_names[*row].toString() : QStringLiteral("Unknown");
}

QString ColorNames::description(const CapturedColor& color) const
{
    const auto row = nearestColor(m_colors, color);
    const QString name = row ? m_names[*row].toString() : QStringLiteral("Unknown");
    const bool isFar =
        row && std::hypot(m_colors.red[*row] - color.red * 255, m_colors.green[*row] - color.green * 255,
                          m_colors.blue[*row] - color.blue * 255) > farDistance;
    return isFar ? QStringLiteral("near %1").arg(name) : name;
}

} // namespace tintwick
