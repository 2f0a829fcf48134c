#include "ColorTemplate.h"

#include "CapturedColor.h"
#include "ColorNames.h"
#include "ColorNumbers.h"
#include "Slug.h"
#include "TailwindColors.h"

#include <QRegularExpression>

#include <array>
#include <cmath>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int byteLimit = 255;

/// How a number is written; from the part of a field after the colon.
struct NumberForm
{
    bool fillsWithZeros = false;
    int width = 0;
    int decimals = 0;
    /// "x", "X" or empty.
    QString base;
};

std::optional<NumberForm> numberForm(QStringView text)
{
    static const QRegularExpression form(u"^(0?)([1-9]?[0-9]?)(?:\\.([0-9]))?([xX]?)$"_s);
    const auto match = form.match(text.toString());
    if (!match.hasMatch() || (!match.captured(3).isEmpty() && !match.captured(4).isEmpty())) {
        return std::nullopt;
    }
    return NumberForm{!match.captured(1).isEmpty(), match.captured(2).toInt(), match.captured(3).toInt(),
                      match.captured(4)};
}

struct NumberField
{
    double value = 0;
    /// The value that stands for 255; 0 when the field has no hexadecimal form.
    double full = 0;
    int decimals = 0;
};

std::optional<NumberField> numberField(QStringView name, const ColorNumbers& numbers)
{
    constexpr double percent = 100;
    constexpr int hundredths = 2;
    constexpr int thousandths = 3;
    const auto& [red, green, blue] = numbers.rgb;
    const auto& [cyan, magenta, yellow, black] = numbers.cmyk;
    const auto& [lightness, chroma, hue] = numbers.oklch;
    const std::array<std::pair<QStringView, NumberField>, 19> fields{{
        {u"r", {red * byteLimit, byteLimit, 0}},
        {u"g", {green * byteLimit, byteLimit, 0}},
        {u"b", {blue * byteLimit, byteLimit, 0}},
        {u"rf", {red, 1, thousandths}},
        {u"gf", {green, 1, thousandths}},
        {u"bf", {blue, 1, thousandths}},
        {u"a", {numbers.alpha, 1, hundredths}},
        {u"h", {numbers.hue, 0, 0}},
        {u"s", {numbers.saturation * percent, 0, 0}},
        {u"l", {numbers.lightness * percent, 0, 0}},
        {u"sv", {numbers.hsvSaturation * percent, 0, 0}},
        {u"v", {numbers.value * percent, 0, 0}},
        {u"c", {cyan * percent, 0, 0}},
        {u"m", {magenta * percent, 0, 0}},
        {u"y", {yellow * percent, 0, 0}},
        {u"k", {black * percent, 0, 0}},
        {u"L", {lightness, 0, thousandths}},
        {u"C", {chroma, 0, thousandths}},
        {u"H", {hue, 0, hundredths}},
    }};
    for (const auto& [field, number] : fields) {
        if (field == name) {
            return number;
        }
    }
    return std::nullopt;
}

std::optional<QString> numberText(const NumberField& field, QStringView form)
{
    const auto parsed = numberForm(form);
    if (!parsed || (!parsed->base.isEmpty() && field.full == 0)) {
        return std::nullopt;
    }
    QString text;
    if (parsed->base.isEmpty()) {
        text = QString::number(field.value, 'f', form.contains(u'.') ? parsed->decimals : field.decimals);
    } else {
        const auto byte = static_cast<uint>(std::lround(field.value / field.full * byteLimit));
        text = QString::number(byte, 16);
        text = parsed->base == "X"_L1 ? text.toUpper() : text;
    }
    return text.rightJustified(parsed->width, parsed->fillsWithZeros ? u'0' : u' ');
}

std::optional<QString> plainText(QStringView name, const CapturedColor& color)
{
    const auto nameOf = [&] { return color.customName.value_or(ColorNames::shared().nearest(color)); };
    if (name == u"name") {
        return nameOf();
    }
    if (name == u"slug") {
        return slugify(nameOf());
    }
    if (name == u"tailwind") {
        return TailwindColors::shared().nearest(color).value_or(QString());
    }
    return std::nullopt;
}

/// The text of a field, which is given without its braces.
std::optional<QString> fieldText(QStringView field, const CapturedColor& color)
{
    const qsizetype colon = field.indexOf(u':');
    const QStringView name = colon < 0 ? field : field.first(colon);
    const QStringView form = colon < 0 ? QStringView() : field.sliced(colon + 1);
    if (colon >= 0 && form.isEmpty()) {
        return std::nullopt;
    }
    if (name == u"hex" && (form.isEmpty() || form == u"x" || form == u"X")) {
        const QString hex = color.hex6().mid(1);
        return form == u"x" ? hex.toLower() : hex;
    }
    if (const auto number = numberField(name, ColorNumbers(color))) {
        return numberText(*number, form);
    }
    return form.isEmpty() ? plainText(name, color) : std::nullopt;
}

struct Filling
{
    QString text;
    std::optional<QString> invalidPart;
};

Filling fill(QStringView text, const CapturedColor& color)
{
    Filling filling;
    const auto keep = [&](QStringView part) {
        filling.text += part;
        if (!filling.invalidPart) {
            filling.invalidPart = part.toString();
        }
    };
    while (!text.isEmpty()) {
        const QChar first = text.front();
        qsizetype length = 1;
        if (first != u'{' && first != u'}') {
            filling.text += first;
        } else if (text.size() > 1 && text[1] == first) {
            filling.text += first;
            length = 2;
        } else if (const qsizetype end = text.indexOf(u'}'); first == u'{' && end > 0) {
            length = end + 1;
            const auto value = fieldText(text.sliced(1, end - 1), color);
            value ? static_cast<void>(filling.text += *value) : keep(text.first(length));
        } else {
            keep(text.first(1));
        }
        text = text.sliced(length);
    }
    return filling;
}

} // namespace

QString defaultColorTemplate()
{
    return u"{name}: #{hex}"_s;
}

QString filledTemplate(const QString& text, const CapturedColor& color)
{
    return fill(text, color).text;
}

std::optional<QString> invalidTemplatePart(const QString& text)
{
    return fill(text, CapturedColor{}).invalidPart;
}

} // namespace tintwick
