#pragma once

#include "NearestColor.h"

#include <QString>

#include <optional>

namespace tintwick {

struct CapturedColor;

/// Finds the nearest colour of the Tailwind CSS version 3 default palette.
class TailwindColors final
{
public:
    [[nodiscard]] static const TailwindColors& shared();

    /// Uses another palette: complete families of eleven shades, in the order of the default palette. The columns must
    /// outlive this object.
    explicit TailwindColors(const ColorColumns& palette);

    /// The token of the nearest entry, for example "blue-500": at the smallest Euclidean distance in sRGB, the first of
    /// equally near ones. Ignores alpha. None when the palette is empty.
    [[nodiscard]] std::optional<QString> nearest(const CapturedColor& color) const;

private:
    ColorColumns m_palette;
};

} // namespace tintwick
