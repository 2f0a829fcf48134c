#include "ComponentText.h"

#include <QCoreApplication>

#include <cmath>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

QString words(const char* text)
{
    return QCoreApplication::translate("ComponentText", text);
}

ComponentText percentage(const QString& name, int decimals)
{
    return {.name = name,
            .factor = 100,
            .decimals = decimals,
            .unit = u"%"_s,
            .spokenUnit = words("percent"),
            .step = 1};
}

ComponentText angle()
{
    return {.name = words("Hue"),
            .factor = 1,
            .decimals = 1,
            .unit = u"°"_s,
            .spokenUnit = words("degrees"),
            .step = 1};
}

} // namespace

ComponentText ComponentText::of(ColorComponent component)
{
    switch (component) {
    case ColorComponent::OklchLightness:
    case ColorComponent::HslLightness:
        return percentage(words("Lightness"), 1);
    case ColorComponent::OklchChroma:
        return {
            .name = words("Chroma"), .factor = 1, .decimals = 3, .unit = {}, .spokenUnit = {}, .step = 0.002};
    case ColorComponent::OklchHue:
    case ColorComponent::HslHue:
        return angle();
    case ColorComponent::HslSaturation:
        return percentage(words("Saturation"), 1);
    case ColorComponent::Alpha:
        break;
    }
    return percentage(words("Opacity"), 0);
}

QString ComponentText::text(double value) const
{
    return QString::number(value * factor, 'f', decimals) + unit;
}

QString ComponentText::spokenText(double value) const
{
    const QString number = QString::number(value * factor, 'f', decimals);
    return spokenUnit.isEmpty() ? number : number + u' ' + spokenUnit;
}

std::optional<double> ComponentText::value(QStringView text) const
{
    QString number = text.trimmed().toString();
    if (!unit.isEmpty() && number.endsWith(unit)) {
        number.chop(unit.size());
    }
    bool isNumber = false;
    const double read = number.replace(u',', u'.').trimmed().toDouble(&isNumber);
    return isNumber && std::isfinite(read) ? std::optional(read / factor) : std::nullopt;
}

} // namespace tintwick
