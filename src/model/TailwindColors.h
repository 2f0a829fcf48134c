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

    /// Searches another palette: whole families of eleven shades in the order of the default palette, or its
    /// first part. The columns outlive the service.
    explicit TailwindColors(const ColorColumns& palette);

    /// The token of the nearest entry, for example "blue-500": smallest Euclidean distance in sRGB, of
    /// equally near ones the first in the palette. Alpha does not count. Nothing when the palette is empty.
    [[nodiscard]] std::optional<QString> nearest(const CapturedColor& color) const;

private:
    ColorColumns m_palette;
};

} // namespace tintwick
