#pragma once

#include "CapturedColor.h"

#include <QByteArray>
#include <QImage>
#include <QList>

#include <cstdint>

namespace tintwick {

enum class SwatchLabels : std::uint8_t { None, Codes };

/// The scale of a picture with codes.
inline constexpr int swatchCodesScale = 2;

/// Swatches on a dark ground; see SwatchSheet. The picture is opaque and tagged as sRGB, with one pixel per point. With codes
/// it has two, and each swatch shows the code of its colour; this needs a QGuiApplication. Null for an empty list.
[[nodiscard]] QImage swatchPicture(const QList<CapturedColor>& colors, SwatchLabels labels);
/// The same without codes as a vector picture. A translucent swatch stays so; the title of each is the colour's name.
[[nodiscard]] QByteArray buildSvg(const QList<CapturedColor>& colors);

} // namespace tintwick
