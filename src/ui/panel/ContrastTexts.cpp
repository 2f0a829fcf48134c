#include "ContrastTexts.h"

#include "ColorContrast.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

QString translated(const char* text)
{
    return QCoreApplication::translate("ContrastTexts", text);
}

/// Rounds a number, but not up to a limit that it misses.
template <typename Limits>
QString rounded(double number, int decimals, const Limits& limits)
{
    const double unit = std::pow(10, decimals);
    double shown = std::round(number * unit) / unit;
    for (const double limit : limits) {
        if (number < limit && shown >= limit) {
            shown = std::floor(number * unit) / unit;
        }
    }
    return QString::number(shown, 'f', decimals);
}

QString roundedRatio(double ratio)
{
    return rounded(ratio, 2, std::array{3.0, 4.5, 7.0});
}

struct Advice
{
    double least;
    const char* sentence;
};

// The uses that the documentation of APCA names for its levels of contrast. The spaces in sizes do not break.
constexpr std::array advices{
    Advice{90, QT_TRANSLATE_NOOP("ContrastTexts", "Enough for any text, also small.")},
    Advice{75, QT_TRANSLATE_NOOP("ContrastTexts", "Enough for body text from 18\u00a0px.")},
    Advice{60, QT_TRANSLATE_NOOP("ContrastTexts", "Enough for text from 24\u00a0px, or 16\u00a0px bold.")},
    Advice{45,
           QT_TRANSLATE_NOOP("ContrastTexts", "Enough for headlines from 36\u00a0px, or 24\u00a0px bold.")},
    Advice{30, QT_TRANSLATE_NOOP("ContrastTexts", "Enough for placeholders and large icons.")},
    Advice{15, QT_TRANSLATE_NOOP("ContrastTexts", "Enough for dividers, not for text.")},
    Advice{0, QT_TRANSLATE_NOOP("ContrastTexts", "Invisible to many people.")},
};

std::array<double, advices.size()> adviceLimits()
{
    std::array<double, advices.size()> limits{};
    std::ranges::transform(advices, limits.begin(), &Advice::least);
    return limits;
}

} // namespace

QString ratioText(double ratio)
{
    return translated("%1 : 1").arg(roundedRatio(ratio));
}

QString limitText(double limit)
{
    return translated("%1 : 1").arg(limit);
}

QString spokenRatio(double ratio)
{
    return translated("%1 to 1").arg(roundedRatio(ratio));
}

QString lightnessText(double lightness)
{
    return u"Lc %1%2"_s.arg(lightness < 0 ? u"−"_s : QString(),
                            rounded(std::abs(lightness), 1, adviceLimits()));
}

QString lightnessAdvice(double lightness)
{
    const auto* advice =
        std::ranges::find_if(advices, [&](const Advice& each) { return std::abs(lightness) >= each.least; });
    return translated(advice->sentence);
}

QString verdict(const ColorContrast& contrast)
{
    if (contrast.passes(ContrastUse::NormalText, ContrastLevel::AAA)) {
        return translated("passes AA and AAA");
    }
    if (contrast.passes(ContrastUse::NormalText, ContrastLevel::AA)) {
        return translated("passes AA, fails AAA");
    }
    return translated("fails AA and AAA");
}

QString levelName(ContrastLevel level)
{
    return level == ContrastLevel::AA ? u"AA"_s : u"AAA"_s;
}

QString useName(ContrastUse use)
{
    switch (use) {
    case ContrastUse::NormalText:
        return translated("Normal text");
    case ContrastUse::LargeText:
        return translated("Large text");
    case ContrastUse::Graphics:
        break;
    }
    return translated("Graphics");
}

} // namespace tintwick
