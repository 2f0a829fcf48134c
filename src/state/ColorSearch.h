#pragma once

#include "CapturedColor.h"

#include <QList>
#include <QString>

namespace tintwick {

class AppState;

/// The colours for which each word of a text occurs in the name, the hexadecimal code, the token of the nearest Tailwind colour
/// or the name of a palette that holds the colour. The history comes first, then the colours that only palettes hold. All of
/// them for a text without words.
[[nodiscard]] QList<CapturedColor> matchingColors(const AppState& state, const QString& text);
/// All colours, those first that look most like `color`: by the distance in Oklab, and among equals by that of the opacity.
[[nodiscard]] QList<CapturedColor> similarColors(const AppState& state, const CapturedColor& color);

} // namespace tintwick
