#include "ColorNotation.h"

#include "ColorSpaces.h"

#include <QList>
#include <QRegularExpression>

#include <algorithm>
#include <cstdint>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

double byteAt(std::uint32_t number, int shift)
{
    return ((number >> shift) & 0xffU) / 255.0;
}

std::optional<CapturedColor> fromHexDigits(QStringView text)
{
    const bool hasPrefix = text.startsWith("0x"_L1, Qt::CaseInsensitive);
    const QStringView digits = hasPrefix ? text.mid(2) : text;
    const bool areDigits = std::ranges::all_of(digits, [](QChar digit) {
        return (digit >= u'0' && digit <= u'9') || (digit.toLower() >= u'a' && digit.toLower() <= u'f');
    });
    if (!areDigits || (digits.size() != 6 && digits.size() != 8)) {
        return std::nullopt;
    }
    const std::uint32_t number = digits.toUInt(nullptr, 16);
    if (digits.size() == 6) {
        return CapturedColor::capture(number);
    }
    return hasPrefix ? CapturedColor::capture(byteAt(number, 16), byteAt(number, 8), byteAt(number, 0),
                                              byteAt(number, 24))
                     : CapturedColor::capture(byteAt(number, 24), byteAt(number, 16), byteAt(number, 8),
                                              byteAt(number, 0));
}

/// Numbers between commas or white space; nothing if anything else is there. A percentage is divided by 100.
std::optional<QList<double>> numbersIn(QStringView text)
{
    static const QRegularExpression separator(u"\\s*,\\s*|\\s+"_s);
    static const QRegularExpression number(u"^(\\d+(?:\\.\\d*)?|\\.\\d+)(%?)$"_s);
    QList<double> numbers;
    for (const QStringView part : text.trimmed().split(separator)) {
        const QRegularExpressionMatch match = number.match(part.toString());
        if (!match.hasMatch()) {
            return std::nullopt;
        }
        const double value = match.capturedView(1).toDouble();
        numbers.append(match.capturedView(2).isEmpty() ? value : value / 100);
    }
    return numbers;
}

bool areFractions(const QList<double>& numbers)
{
    return std::ranges::all_of(numbers, [](double number) { return number <= 1; });
}

std::optional<CapturedColor> fromFunction(QStringView name, const QList<double>& numbers)
{
    const bool isHsv = name == "hsv"_L1 || name == "hsb"_L1;
    if (isHsv && numbers.size() == 3 && areFractions(numbers.mid(1))) {
        const double saturation = numbers[1];
        const double value = numbers[2];
        const auto [red, green, blue] = srgbFromHwb({numbers[0], (1 - saturation) * value, 1 - value});
        return CapturedColor::capture(red, green, blue, 1);
    }
    if (name == "cmyk"_L1 && numbers.size() == 4 && areFractions(numbers)) {
        const double light = 1 - numbers[3];
        return CapturedColor::capture((1 - numbers[0]) * light, (1 - numbers[1]) * light,
                                      (1 - numbers[2]) * light, 1);
    }
    return std::nullopt;
}

std::optional<CapturedColor> fromThreeNumbers(QStringView text)
{
    const auto numbers = numbersIn(text);
    if (!numbers || numbers->size() != 3 || text.contains(u'%')) {
        return std::nullopt;
    }
    const bool hasPoint = text.contains(u'.');
    const double greatest = hasPoint ? 1 : 255;
    if (*std::ranges::max_element(*numbers) > greatest) {
        return std::nullopt;
    }
    return CapturedColor::capture(numbers->at(0) / greatest, numbers->at(1) / greatest,
                                  numbers->at(2) / greatest, 1);
}

} // namespace

std::optional<CapturedColor> colorFromNotation(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    if (const auto color = fromHexDigits(trimmed)) {
        return color;
    }
    static const QRegularExpression function(u"^(\\w+)\\((.*)\\)$"_s);
    if (const QRegularExpressionMatch match = function.match(trimmed.toString()); match.hasMatch()) {
        const auto numbers = numbersIn(match.capturedView(2));
        return numbers ? fromFunction(match.captured(1).toLower(), *numbers) : std::nullopt;
    }
    return fromThreeNumbers(trimmed);
}

} // namespace tintwick
