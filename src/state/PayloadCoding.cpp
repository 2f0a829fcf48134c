#include "PayloadCoding.h"

#include "UtcDateTime.h"

#include <QStringDecoder>

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

namespace tintwick {

namespace {

using nlohmann::json;
using nlohmann::ordered_json;

std::string textOf(const QUuid& id)
{
    return id.toByteArray(QUuid::WithoutBraces).toUpper().toStdString();
}

bool hasText(const QDateTime& date)
{
    const int year = date.toUTC().date().year();
    return date.isValid() && year >= 1 && year <= 9999;
}

/// Without the fraction of a second, which Qt::ISODate leaves out.
std::string textOf(const QDateTime& date)
{
    return date.toUTC().toString(Qt::ISODate).toStdString();
}

bool isEncodable(const CapturedColor& color)
{
    return std::isfinite(color.red) && std::isfinite(color.green) && std::isfinite(color.blue) &&
           std::isfinite(color.alpha) && hasText(color.capturedAt);
}

ordered_json encoded(const CapturedColor& color)
{
    ordered_json object;
    object["id"] = textOf(color.id);
    object["red"] = color.red;
    object["green"] = color.green;
    object["blue"] = color.blue;
    object["alpha"] = color.alpha;
    object["capturedAt"] = textOf(color.capturedAt);
    if (color.customName) {
        object["customName"] = color.customName->toStdString();
    }
    return object;
}

std::optional<ordered_json> encoded(const QList<CapturedColor>& colors)
{
    auto array = ordered_json::array();
    for (const CapturedColor& color : colors) {
        if (!isEncodable(color)) {
            return std::nullopt;
        }
        array.push_back(encoded(color));
    }
    return array;
}

ordered_json encoded(const ColorCollection& collection)
{
    auto colorIds = ordered_json::array();
    for (const QUuid& colorId : collection.colorIds) {
        colorIds.push_back(textOf(colorId));
    }
    ordered_json object;
    object["id"] = textOf(collection.id);
    object["name"] = collection.name.toStdString();
    object["colorIds"] = std::move(colorIds);
    object["createdAt"] = textOf(collection.createdAt);
    object["icon"] = collection.icon.toStdString();
    // Earlier versions ignore this key and lose it.
    if (!collection.iconColor.isEmpty()) {
        object["iconColor"] = collection.iconColor.toStdString();
    }
    return object;
}

/// Writes whole components as integers, 1 instead of 1.0.
void shortenNumbers(ordered_json& colors)
{
    constexpr double exact = 1e15;
    for (ordered_json& color : colors) {
        for (ordered_json& value : color) {
            const double number = value.is_number_float() ? value.get<double>() : 0.5;
            if (std::trunc(number) == number && std::abs(number) < exact && !std::signbit(number)) {
                value = static_cast<std::int64_t>(number);
            }
        }
    }
}

bool isTooLarge(const std::string& text)
{
    return text.size() > static_cast<std::size_t>(largestPayload);
}

/// Checks that a text is JSON of limited depth, without building values, so that a file of opening brackets costs neither
/// memory nor stack.
class Validator final : public nlohmann::json_sax<json>
{
public:
    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(number_integer_t) override { return true; }
    bool number_unsigned(number_unsigned_t) override { return true; }
    bool number_float(number_float_t, const string_t&) override { return true; }
    bool string(string_t&) override { return true; }
    bool binary(binary_t&) override { return true; }
    bool start_object(std::size_t) override { return enter(); }
    bool key(string_t&) override { return true; }
    bool end_object() override { return leave(); }
    bool start_array(std::size_t) override { return enter(); }
    bool end_array() override { return leave(); }
    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override
    {
        return false;
    }

private:
    // The payload has four levels; the others are for keys of later versions.
    static constexpr int greatestDepth = 64;

    bool enter() { return ++m_depth <= greatestDepth; }
    bool leave()
    {
        --m_depth;
        return true;
    }

    int m_depth = 0;
};

/// The value of a key in an object, or null.
const json* member(const json& object, const char* key)
{
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

std::optional<double> decodedNumber(const json* value)
{
    if (!value || !value->is_number()) {
        return std::nullopt;
    }
    return value->get<double>();
}

std::optional<QString> decodedString(const json* value)
{
    if (!value || !value->is_string()) {
        return std::nullopt;
    }
    // QString::fromUtf8() would drop a U+FEFF at the start.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder.decode(QByteArrayView(value->get_ref<const std::string&>()));
}

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool isHexDigit(QChar character)
{
    return isDigit(character) || (character >= u'a' && character <= u'f') ||
           (character >= u'A' && character <= u'F');
}

std::optional<QUuid> decodedUuid(const json* value)
{
    // QUuid accepts several forms, but the file has only the canonical one.
    constexpr QStringView form = u"xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
    const auto text = decodedString(value);
    if (!text || text->size() != form.size()) {
        return std::nullopt;
    }
    for (qsizetype i = 0; i < form.size(); ++i) {
        if (form[i] == u'x' ? !isHexDigit((*text)[i]) : (*text)[i] != form[i]) {
            return std::nullopt;
        }
    }
    return QUuid::fromString(*text);
}

std::optional<QDateTime> decodedDate(const json* value)
{
    constexpr QStringView form = u"0000-00-00T00:00:00Z";
    const auto text = decodedString(value);
    if (!text || text->size() != form.size()) {
        return std::nullopt;
    }
    for (qsizetype i = 0; i < form.size(); ++i) {
        if (form[i] == u'0' ? !isDigit((*text)[i]) : (*text)[i] != form[i]) {
            return std::nullopt;
        }
    }
    const auto number = [&](qsizetype position, qsizetype length) {
        return QStringView(*text).sliced(position, length).toInt();
    };
    const QDate date(number(0, 4), number(5, 2), number(8, 2));
    const QTime time(number(11, 2), number(14, 2), number(17, 2));
    if (!date.isValid() || !time.isValid()) {
        return std::nullopt;
    }
    return utcDateTime(date, time);
}

/// The decoded elements of a JSON array; none when `decode` does not accept one of them.
template <typename T>
std::optional<QList<T>> decodedList(const json* value, std::optional<T> (*decode)(const json*))
{
    if (!value || !value->is_array()) {
        return std::nullopt;
    }
    QList<T> list;
    list.reserve(static_cast<qsizetype>(value->size()));
    for (const json& element : *value) {
        auto decoded = decode(&element);
        if (!decoded) {
            return std::nullopt;
        }
        list.append(*std::move(decoded));
    }
    return list;
}

std::optional<CapturedColor> decodedColor(const json* value)
{
    if (!value->is_object()) {
        return std::nullopt;
    }
    const auto id = decodedUuid(member(*value, "id"));
    const auto red = decodedNumber(member(*value, "red"));
    const auto green = decodedNumber(member(*value, "green"));
    const auto blue = decodedNumber(member(*value, "blue"));
    const auto alpha = decodedNumber(member(*value, "alpha"));
    const auto capturedAt = decodedDate(member(*value, "capturedAt"));
    if (!id || !red || !green || !blue || !alpha || !capturedAt) {
        return std::nullopt;
    }

    std::optional<QString> customName;
    const json* name = member(*value, "customName");
    if (name && !name->is_null()) {
        customName = decodedString(name);
        if (!customName) {
            return std::nullopt;
        }
    }
    return CapturedColor{*id, *red, *green, *blue, *alpha, *capturedAt, customName};
}

std::optional<ColorCollection> decodedCollection(const json* value)
{
    if (!value->is_object()) {
        return std::nullopt;
    }
    const auto id = decodedUuid(member(*value, "id"));
    const auto name = decodedString(member(*value, "name"));
    const auto colorIds = decodedList(member(*value, "colorIds"), decodedUuid);
    const auto createdAt = decodedDate(member(*value, "createdAt"));
    const auto icon = decodedString(member(*value, "icon"));
    if (!id || !name || !colorIds || !createdAt || !icon) {
        return std::nullopt;
    }
    const auto iconColor = decodedString(member(*value, "iconColor"));
    return ColorCollection{*id, *name, *colorIds, *createdAt, *icon, iconColor.value_or(QString())};
}

std::optional<ColorFormat> decodedFormat(const json* value)
{
    const auto text = decodedString(value);
    return text ? colorFormatFromRawValue(*text) : std::nullopt;
}

} // namespace

std::optional<QByteArray> encodePayload(const Payload& payload)
{
    auto history = encoded(payload.history);
    auto keptColors = encoded(payload.keptColors);
    if (!history || !keptColors) {
        return std::nullopt;
    }
    auto collections = ordered_json::array();
    for (const ColorCollection& collection : payload.collections) {
        if (!hasText(collection.createdAt)) {
            return std::nullopt;
        }
        collections.push_back(encoded(collection));
    }
    ordered_json object;
    object["history"] = *std::move(history);
    object["collections"] = std::move(collections);
    const bool isKnown = isKnownToAllVersions(payload.defaultFormat);
    object["defaultFormat"] = rawValue(isKnown ? payload.defaultFormat : ColorFormat::Hex6).toStdString();
    // Earlier versions ignore the keys that follow. Without need of them the file is that of such a version.
    if (!isKnown) {
        object["laterFormat"] = rawValue(payload.defaultFormat).toStdString();
    }
    if (payload.colorTemplate != defaultColorTemplate()) {
        object["colorTemplate"] = payload.colorTemplate.toStdString();
    }
    if (!keptColors->empty()) {
        object["keptColors"] = *std::move(keptColors);
    }

    constexpr int indentation = 2;
    std::string text = object.dump(indentation);
    if (isTooLarge(text)) {
        shortenNumbers(object["history"]);
        if (object.contains("keptColors")) {
            shortenNumbers(object["keptColors"]);
        }
        text = object.dump();
    }
    return isTooLarge(text) ? std::nullopt : std::optional(QByteArray::fromStdString(text));
}

std::optional<Payload> decodePayload(QByteArrayView text)
{
    // The parser ends at a zero byte and would ignore the text after it.
    if (text.size() > largestPayload || text.contains('\0')) {
        return std::nullopt;
    }
    Validator validator;
    if (!json::sax_parse(text.begin(), text.end(), &validator)) {
        return std::nullopt;
    }

    const json object = json::parse(text.begin(), text.end(), nullptr, false);
    if (!object.is_object()) {
        return std::nullopt;
    }
    auto history = decodedList(member(object, "history"), decodedColor);
    auto collections = decodedList(member(object, "collections"), decodedCollection);
    const auto defaultFormat = decodedFormat(member(object, "defaultFormat"));
    const auto laterFormat = decodedFormat(member(object, "laterFormat"));
    const auto colorTemplate = decodedString(member(object, "colorTemplate"));
    const json* kept = member(object, "keptColors");
    auto keptColors = kept && !kept->is_null() ? decodedList(kept, decodedColor) : QList<CapturedColor>();
    if (!history || !collections || !defaultFormat || !keptColors) {
        return std::nullopt;
    }
    Payload payload{*std::move(history), *std::move(collections), *defaultFormat, *std::move(keptColors)};
    payload.defaultFormat = laterFormat.value_or(payload.defaultFormat);
    payload.colorTemplate = colorTemplate.value_or(payload.colorTemplate);
    return payload;
}

Payload asStored(const Payload& payload)
{
    const auto text = encodePayload(payload);
    const auto stored = text ? decodePayload(*text) : std::nullopt;
    return stored.value_or(payload);
}

} // namespace tintwick
