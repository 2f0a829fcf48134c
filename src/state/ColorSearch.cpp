#include "ColorSearch.h"

#include "AppState.h"
#include "ColorSpaces.h"
#include "TailwindColors.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tintwick {

namespace {

/// The names of the palettes that hold a colour, by its id.
QHash<QUuid, QString> paletteNames(const AppState& state)
{
    QHash<QUuid, QString> names;
    for (const ColorCollection& collection : state.collections()) {
        for (const QUuid& id : collection.colorIds) {
            names[id] += collection.name + u'\n';
        }
    }
    return names;
}

double distance(const Components& a, const Components& b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

Components oklab(const CapturedColor& color)
{
    return oklabFromXyzD65(xyzD65FromSrgb({color.red, color.green, color.blue}));
}

} // namespace

QList<CapturedColor> matchingColors(const AppState& state, const QString& text)
{
    const QStringList words = text.simplified().split(u' ', Qt::SkipEmptyParts);
    const QHash<QUuid, QString> palettes = paletteNames(state);
    QList<CapturedColor> matching = state.allColors();
    matching.removeIf([&](const CapturedColor& color) {
        const QString known =
            QStringList{color.customName.value_or(QString()), color.hex8(),
                        TailwindColors::shared().nearest(color).value_or(QString()), palettes.value(color.id)}
                .join(u'\n');
        return !std::ranges::all_of(
            words, [&known](const QString& word) { return known.contains(word, Qt::CaseInsensitive); });
    });
    return matching;
}

QList<CapturedColor> similarColors(const AppState& state, const CapturedColor& color)
{
    using Distance = std::pair<double, double>;
    QList<std::pair<Distance, CapturedColor>> measured;
    for (const CapturedColor& other : state.allColors()) {
        measured.emplaceBack(
            Distance(distance(oklab(color), oklab(other)), std::abs(color.alpha - other.alpha)), other);
    }
    std::ranges::stable_sort(measured, {}, [](const auto& entry) { return entry.first; });
    QList<CapturedColor> colors;
    for (const auto& entry : measured) {
        colors.append(entry.second);
    }
    return colors;
}

} // namespace tintwick
