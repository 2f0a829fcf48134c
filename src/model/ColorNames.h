#pragma once

#include "NearestColor.h"

#include <QString>
#include <QStringView>

#include <span>

namespace tintwick {

struct CapturedColor;

/// Gives a colour a human name: the nearest of 133 named colours.
class ColorNames final
{
public:
    [[nodiscard]] static const ColorNames& shared();

    /// Names from another table: `names` and `colors` are equally long and outlive the service.
    ColorNames(std::span<const QStringView> names, const ColorColumns& colors);

    /// The name of the entry at the smallest Euclidean distance in sRGB; of equally near ones the first in
    /// the table. Alpha does not count. "Unknown" when the table is empty.
    [[nodiscard]] QString nearest(const CapturedColor& color) const;

private:
    std::span<const QStringView> m_names;
    ColorColumns m_colors;
};

} // namespace tintwick
