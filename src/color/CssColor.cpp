#include "CssColor.h"

#include "CssColorNames.h"
#include "CssColorScanner.h"
#include "GamutMapping.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace tintwick {

namespace {

using Unit = CssNumber::Unit;

/// The arguments of a colour function.
struct Arguments
{
    std::array<CssNumber, 3> components{};
    double alpha = 1;
    /// Separated by commas, as functions were before Level 4.
    bool isLegacy = false;
};

bool equals(QStringView text, QStringView keyword)
{
    return text.compare(keyword, Qt::CaseInsensitive) == 0;
}

CssColor fromRgb(std::uint32_t rgb)
{
    const auto component = [rgb](int shift) { return ((rgb >> shift) & 0xFF) / 255.0; };
    return {{component(16), component(8), component(0)}, 1, false};
}

std::optional<CssColor> parseHex(QStringView digits)
{
    const qsizetype count = digits.size();
    if (count != 3 && count != 4 && count != 6 && count != 8) {
        return std::nullopt;
    }
    const bool isShort = count < 6;
    std::array<double, 4> components{0, 0, 0, 1};
    const qsizetype width = isShort ? 1 : 2;
    for (qsizetype start = 0; start < count; start += width) {
        bool isNumber = false;
        const QStringView part = digits.sliced(start, width);
        // A sign or a space would be accepted as part of a number.
        const bool isHex = std::ranges::all_of(
            part, [](QChar c) { return c.isDigit() || QStringView(u"abcdefABCDEF").contains(c); });
        const uint value = part.toUInt(&isNumber, 16);
        if (!isHex || !isNumber) {
            return std::nullopt;
        }
        components.at(static_cast<std::size_t>(start / width)) = (isShort ? value * 0x11 : value) / 255.0;
    }
    return CssColor{{components[0], components[1], components[2]}, components[3], false};
}

std::optional<CssColor> parseName(QStringView name)
{
    if (equals(name, u"transparent")) {
        return CssColor{{0, 0, 0}, 0, false};
    }
    const auto* const found = std::ranges::find_if(
        cssColorNames, [name](const CssColorName& row) { return equals(name, row.name); });
    return found == cssColorNames.end() ? std::nullopt : std::optional(fromRgb(found->rgb));
}

/// A number as it is, a percentage as its part of `whole`.
double scaled(const CssNumber& number, double whole)
{
    return number.unit == Unit::Percent ? number.value / 100 * whole : number.value;
}

std::optional<double> readAlpha(CssColorScanner& scanner)
{
    scanner.skipSpace();
    const auto alpha = scanner.readNumber();
    if (!alpha || alpha->unit == Unit::Angle) {
        return std::nullopt;
    }
    return std::clamp(scaled(*alpha, 1), 0.0, 1.0);
}

/// The arguments up to the closing bracket.
std::optional<Arguments> readArguments(CssColorScanner& scanner)
{
    Arguments arguments;
    for (std::size_t i = 0; i < arguments.components.size(); ++i) {
        if (i == 1) {
            arguments.isLegacy = scanner.skip(u',');
        } else if (i == 2 && arguments.isLegacy && !scanner.skip(u',')) {
            return std::nullopt;
        }
        scanner.skipSpace();
        const auto number = scanner.readNumber();
        if (!number) {
            return std::nullopt;
        }
        arguments.components.at(i) = *number;
    }
    if (scanner.skip(arguments.isLegacy ? u',' : u'/')) {
        const auto alpha = readAlpha(scanner);
        if (!alpha) {
            return std::nullopt;
        }
        arguments.alpha = *alpha;
    }
    return scanner.skip(u')') ? std::optional(arguments) : std::nullopt;
}

/// Only the hue may be an angle, and only it may not be a percentage. -1 for a function without a hue.
bool hasUnitsFor(const Arguments& arguments, int hue)
{
    for (int i = 0; i < 3; ++i) {
        const Unit unit = arguments.components.at(static_cast<std::size_t>(i)).unit;
        const bool isWrong = i == hue ? unit == Unit::Percent : unit == Unit::Angle;
        if (isWrong || (arguments.isLegacy && unit == Unit::None)) {
            return false;
        }
    }
    return true;
}

/// A colour whose components were written for sRGB. They are clipped, as they have always been in these functions.
CssColor clippedSrgb(Components srgb, double alpha)
{
    for (double& component : srgb) {
        component = std::clamp(component, 0.0, 1.0);
    }
    return {srgb, alpha, false};
}

CssColor mapped(const Components& xyzD65, double alpha)
{
    return {gamutMapped(xyzD65), alpha, !isInGamut(srgbFromXyzD65(xyzD65))};
}

std::optional<CssColor> rgb(const Arguments& arguments)
{
    const auto& [red, green, blue] = arguments.components;
    const bool isMixed = red.unit != green.unit || green.unit != blue.unit;
    if (!hasUnitsFor(arguments, -1) || (arguments.isLegacy && isMixed)) {
        return std::nullopt;
    }
    return clippedSrgb({scaled(red, 255) / 255, scaled(green, 255) / 255, scaled(blue, 255) / 255},
                       arguments.alpha);
}

/// hsl() and hwb(): a hue and two percentages, which may be written as numbers since Level 4.
std::optional<std::array<double, 3>> hueAndPercentages(const Arguments& arguments)
{
    const auto& [hue, second, third] = arguments.components;
    const bool arePercentages = second.unit == Unit::Percent && third.unit == Unit::Percent;
    if (!hasUnitsFor(arguments, 0) || (arguments.isLegacy && !arePercentages)) {
        return std::nullopt;
    }
    return std::array{hue.value, second.value / 100, third.value / 100};
}

std::optional<CssColor> hsl(const Arguments& arguments)
{
    const auto values = hueAndPercentages(arguments);
    if (!values) {
        return std::nullopt;
    }
    const auto [hue, saturation, lightness] = *values;
    return clippedSrgb(srgbFromHsl({hue, std::max(saturation, 0.0), lightness}), arguments.alpha);
}

std::optional<CssColor> hwb(const Arguments& arguments)
{
    const auto values = hueAndPercentages(arguments);
    if (!values || arguments.isLegacy) {
        return std::nullopt;
    }
    const auto [hue, white, black] = *values;
    return clippedSrgb(srgbFromHwb({hue, std::max(white, 0.0), std::max(black, 0.0)}), arguments.alpha);
}

/// How lab(), lch(), oklab() and oklch() are written.
struct LabForm
{
    QStringView name;
    /// What 100 % of the lightness is.
    double lightness = 0;
    /// What 100 % of a, b or the chroma is.
    double chroma = 0;
    bool isPolar = false;
    Components (*toXyzD65)(const Components&) = nullptr;
};

constexpr std::array<LabForm, 4> labForms{{{u"lab", 100, 125, false, xyzD65FromLab},
                                           {u"lch", 100, 150, true, xyzD65FromLab},
                                           {u"oklab", 1, 0.4, false, xyzD65FromOklab},
                                           {u"oklch", 1, 0.4, true, xyzD65FromOklab}}};

std::optional<CssColor> lab(const LabForm& form, const Arguments& arguments)
{
    if (arguments.isLegacy || !hasUnitsFor(arguments, form.isPolar ? 2 : -1)) {
        return std::nullopt;
    }
    const auto& [first, second, third] = arguments.components;
    Components values{std::clamp(scaled(first, form.lightness), 0.0, form.lightness),
                      scaled(second, form.chroma), scaled(third, form.isPolar ? 1 : form.chroma)};
    if (form.isPolar) {
        values[1] = std::max(values[1], 0.0);
        values = labFromLch(values);
    }
    return mapped(form.toXyzD65(values), arguments.alpha);
}

/// A space of color().
struct PredefinedSpace
{
    QStringView name;
    Components (*toXyzD65)(const Components&) = nullptr;
};

constexpr std::array<PredefinedSpace, 9> predefinedSpaces{{
    {u"srgb", xyzD65FromSrgb},
    {u"srgb-linear", xyzD65FromLinearSrgb},
    {u"display-p3", xyzD65FromDisplayP3},
    {u"display-p3-linear", xyzD65FromLinearDisplayP3},
    {u"a98-rgb", xyzD65FromA98Rgb},
    {u"prophoto-rgb", xyzD65FromProPhotoRgb},
    {u"rec2020", xyzD65FromRec2020},
    {u"xyz-d50", xyzD65FromXyzD50},
    {u"xyz-d65", [](const Components& xyz) { return xyz; }},
}};

std::optional<CssColor> predefined(QStringView space, const Arguments& arguments)
{
    const QStringView name = equals(space, u"xyz") ? QStringView(u"xyz-d65") : space;
    const auto* const found = std::ranges::find_if(
        predefinedSpaces, [name](const PredefinedSpace& row) { return equals(name, row.name); });
    if (found == predefinedSpaces.end() || arguments.isLegacy || !hasUnitsFor(arguments, -1)) {
        return std::nullopt;
    }
    const auto& [first, second, third] = arguments.components;
    return mapped(found->toXyzD65({scaled(first, 1), scaled(second, 1), scaled(third, 1)}), arguments.alpha);
}

std::optional<CssColor> parseFunction(QStringView name, CssColorScanner& scanner)
{
    QStringView space;
    if (equals(name, u"color")) {
        scanner.skipSpace();
        space = scanner.readWord();
        if (!scanner.skipSpace()) {
            return std::nullopt;
        }
    }
    const auto arguments = readArguments(scanner);
    if (!arguments) {
        return std::nullopt;
    }
    if (!space.isEmpty()) {
        return predefined(space, *arguments);
    }
    if (equals(name, u"rgb") || equals(name, u"rgba")) {
        return rgb(*arguments);
    }
    if (equals(name, u"hsl") || equals(name, u"hsla")) {
        return hsl(*arguments);
    }
    if (equals(name, u"hwb")) {
        return hwb(*arguments);
    }
    const auto* const form =
        std::ranges::find_if(labForms, [name](const LabForm& row) { return equals(name, row.name); });
    return form == labForms.end() ? std::nullopt : lab(*form, *arguments);
}

} // namespace

std::optional<CssColor> parseCssColor(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    if (trimmed.startsWith(u'#')) {
        return parseHex(trimmed.mid(1));
    }
    CssColorScanner scanner(trimmed);
    scanner.skipSpace();
    const QStringView word = scanner.readWord();
    // A bracket follows its name without space.
    const bool isFunction = !scanner.skipSpace() && scanner.skip(u'(');
    const std::optional<CssColor> color = isFunction ? parseFunction(word, scanner) : parseName(word);
    scanner.skipSpace();
    return scanner.isAtEnd() ? color : std::nullopt;
}

} // namespace tintwick
