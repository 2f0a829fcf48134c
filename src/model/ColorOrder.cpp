#include "ColorOrder.h"

#include "ColorSpaces.h"

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

/// The chroma of OKLCH below which a colour looks grey and its hue is chance.
constexpr double greyChroma = 0.02;
/// After all hues.
constexpr double greyHue = 361;

/// What the order compares: hue and lightness.
std::pair<double, double> keyOf(const CapturedColor& color, ColorOrder order)
{
    const Components lab = oklabFromXyzD65(xyzD65FromSrgb({color.red, color.green, color.blue}));
    const Components lch = lchFromLab(lab);
    if (order == ColorOrder::Lightness) {
        return {0, lch[0]};
    }
    return {lch[1] < greyChroma ? greyHue : lch[2], lch[0]};
}

} // namespace

QList<CapturedColor> sorted(const QList<CapturedColor>& colors, ColorOrder order)
{
    QList<std::pair<std::pair<double, double>, CapturedColor>> keyed;
    keyed.reserve(colors.size());
    for (const CapturedColor& color : colors) {
        keyed.emplaceBack(keyOf(color, order), color);
    }
    std::ranges::stable_sort(keyed, {}, [](const auto& entry) { return entry.first; });
    QList<CapturedColor> result;
    result.reserve(colors.size());
    for (const auto& entry : keyed) {
        result.append(entry.second);
    }
    return result;
}

} // namespace tintwick
