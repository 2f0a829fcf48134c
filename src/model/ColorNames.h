#pragma once

#include "NearestColor.h"

#include <QString>
#include <QStringView>

#include <span>

namespace tintwick {

struct CapturedColor;

/// Finds the nearest of 133 named colours.
class ColorNames final
{
public:
    [[nodiscard]] static const ColorNames& shared();

    /// Uses another table. `names` and `colors` have equal length and must outlive this object.
    ColorNames(std::span<const QStringView> names, const ColorColumns& colors);

    /// The name at the smallest Euclidean distance in sRGB; the first of equally near ones. Ignores alpha. "Unknown" when
    /// the table is empty.
    [[nodiscard]] QString nearest(const CapturedColor& color) const;
    /// The same in words: "near Sea Green" for a colour that is more than `farDistance` from the named one.
    [[nodiscard]] QString description(const CapturedColor& color) const;

    /// Euclidean, in sRGB with components of 0 to 255. Three of four colours are nearer to their name.
    static constexpr double farDistance = 42;

private:
    std::span<const QStringView> m_names;
    ColorColumns m_colors;
};

} // namespace tintwick
