#pragma once

#include <QDateTime>
#include <QHashFunctions>
#include <QString>
#include <QUuid>

#include <cstdint>
#include <optional>

namespace tintwick {

/// Hue in degrees (0 to 360, both included), saturation and lightness in percent, rounded.
struct Hsl
{
    int hue = 0;
    int saturation = 0;
    int lightness = 0;

    friend constexpr bool operator==(const Hsl&, const Hsl&) = default;
};

/// A colour picked from the screen: a value with an id.
struct CapturedColor
{
    QUuid id;
    /// sRGB components and opacity, 0 to 1. A colour from a data file may have any finite number.
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
    QDateTime capturedAt;
    /// Absent for a colour without a name; never empty when set through AppState.
    std::optional<QString> customName;

    /// A colour captured now: a new id, no name, each component clamped to 0 to 1.
    [[nodiscard]] static CapturedColor capture(double red, double green, double blue, double alpha);
    /// The same for an opaque colour given as 0xRRGGBB; higher bits do not count.
    [[nodiscard]] static CapturedColor capture(std::uint32_t rgb);

    /// "#3B82F6"
    [[nodiscard]] QString hex6() const;
    /// "#3B82F6FF", alpha last
    [[nodiscard]] QString hex8() const;
    /// "rgb(59, 130, 246)"
    [[nodiscard]] QString cssRGB() const;
    /// "rgba(59, 130, 246, 1.00)"
    [[nodiscard]] QString cssRGBA() const;
    [[nodiscard]] Hsl hsl() const;
    /// "hsl(217, 91%, 60%)"
    [[nodiscard]] QString cssHSL() const;
    /// "hsla(217, 91%, 60%, 1.00)"
    [[nodiscard]] QString cssHSLA() const;

    friend bool operator==(const CapturedColor&, const CapturedColor&) = default;
};

[[nodiscard]] size_t qHash(const CapturedColor& color, size_t seed = 0) noexcept;

} // namespace tintwick
