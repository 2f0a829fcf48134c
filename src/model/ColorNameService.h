#pragma once

#include <QString>

namespace tintwick {

struct CapturedColor;

/// Gives a colour a human name: the nearest of 133 named colours.
class ColorNameService final
{
public:
    [[nodiscard]] static const ColorNameService& shared();

    /// The name of the entry at the smallest Euclidean distance in sRGB; of equally near ones the first in the table.
    /// Alpha does not count.
    [[nodiscard]] QString nearest(const CapturedColor& color) const;

private:
    ColorNameService() = default;
};

} // namespace tintwick
