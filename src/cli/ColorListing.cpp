#include "ColorListing.h"

#include "Payload.h"
#include "TailwindColors.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace tintwick {

namespace {

using Json = nlohmann::ordered_json;

QByteArray textOf(const Json& json)
{
    return QByteArray::fromStdString(json.dump(2)) + '\n';
}

Json objectOf(const CapturedColor& color, const QString& text)
{
    Json object;
    object["text"] = text.toStdString();
    object["hex"] = color.hex6().toStdString();
    object["rgb"] = color.cssRGB().toStdString();
    object["hsl"] = color.cssHSL().toStdString();
    object["alpha"] = color.alpha;
    if (color.customName) {
        object["name"] = color.customName->toStdString();
    }
    if (const auto tailwind = TailwindColors::shared().nearest(color)) {
        object["tailwind"] = tailwind->toStdString();
    }
    if (color.capturedAt.isValid()) {
        object["capturedAt"] = color.capturedAt.toString(Qt::ISODate).toStdString();
    }
    return object;
}

} // namespace

QStringList textsOf(const QList<CapturedColor>& colors, ColorFormat format, const QString& ownTemplate)
{
    QStringList texts;
    for (const CapturedColor& color : colors) {
        texts.append(string(format, color, QStringLiteral("color"), ownTemplate));
    }
    return texts;
}

QByteArray colorsAsJson(const QList<CapturedColor>& colors, const QStringList& texts)
{
    Json array = Json::array();
    for (qsizetype i = 0; i < colors.size(); ++i) {
        array.push_back(objectOf(colors[i], texts[i]));
    }
    return textOf(array);
}

QByteArray palettesAsJson(const Payload& data)
{
    Json array = Json::array();
    for (const ColorCollection& palette : data.collections) {
        Json object;
        object["name"] = palette.name.toStdString();
        object["colors"] = palette.colors(data.history, data.keptColors).size();
        object["createdAt"] = palette.createdAt.toString(Qt::ISODate).toStdString();
        array.push_back(std::move(object));
    }
    return textOf(array);
}

} // namespace tintwick
