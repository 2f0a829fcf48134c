#include "DesignTokens.h"

#include "Slug.h"
#include "UniqueNames.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tintwick {

namespace {

using Json = nlohmann::ordered_json;

/// Enough digits for 16 bits of a component, and short numbers for whole steps of it.
double rounded(double component)
{
    constexpr double steps = 1e5;
    return std::round(std::clamp(component, 0.0, 1.0) * steps) / steps;
}

Json token(const CapturedColor& color)
{
    Json value;
    value["colorSpace"] = "srgb";
    value["components"] = {rounded(color.red), rounded(color.green), rounded(color.blue)};
    value["alpha"] = rounded(color.alpha);
    value["hex"] = color.hex6().toLower().toStdString();
    Json object;
    object["$value"] = std::move(value);
    if (color.customName) {
        object["$description"] = color.customName->toStdString();
    }
    return object;
}

} // namespace

QByteArray buildDesignTokens(const QList<CapturedColor>& colors, const QString& paletteName)
{
    Json group;
    group["$type"] = "color";
    const QStringList names = uniqueNames(colors);
    for (qsizetype i = 0; i < colors.size(); ++i) {
        group[names[i].toStdString()] = token(colors[i]);
    }
    const QString slug = slugify(paletteName);
    Json file;
    file[slug.isEmpty() ? "palette" : slug.toStdString()] = std::move(group);
    return QByteArray::fromStdString(file.dump(2)) + '\n';
}

} // namespace tintwick
