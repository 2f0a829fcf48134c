#pragma once

#include "ColorComponent.h"

#include <QString>
#include <QStringView>

#include <optional>

namespace tintwick {

/// How the numbers of a component are shown: in percent, in degrees, or as they are.
struct ComponentText
{
    QString name;
    /// From the value to the number that is shown.
    double factor = 1;
    int decimals = 0;
    QString unit;
    /// The unit for screen readers.
    QString spokenUnit;
    /// Of the arrow keys, in shown numbers; ten times as much for large steps.
    double step = 1;

    [[nodiscard]] static ComponentText of(ColorComponent component);

    /// "62.3%"
    [[nodiscard]] QString text(double value) const;
    /// "62.3 percent"
    [[nodiscard]] QString spokenText(double value) const;
    /// Reads a number that the user has typed, with or without its unit, and with a decimal point or comma. Nothing for other
    /// texts.
    [[nodiscard]] std::optional<double> value(QStringView text) const;
};

} // namespace tintwick
