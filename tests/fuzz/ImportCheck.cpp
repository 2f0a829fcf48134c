#include "ImportCheck.h"

#include "AdobeReaders.h"
#include "GimpPaletteReader.h"

#include <algorithm>

namespace tintwick::test {

namespace {

bool isInGamut(const CapturedColor& color)
{
    return std::ranges::all_of(std::array{color.red, color.green, color.blue, color.alpha},
                               [](double component) { return component >= 0 && component <= 1; });
}

bool isAccepted(const Import& result)
{
    const auto* palette = std::get_if<ImportedPalette>(&result);
    if (palette != nullptr && !std::ranges::all_of(palette->colors, isInGamut)) {
        qFatal("A reader gives a colour outside the gamut");
    }
    return palette != nullptr;
}

} // namespace

bool checkImport(QByteArrayView bytes)
{
    if (isAdobeSwatchExchange(bytes)) {
        return isAccepted(readAdobeSwatchExchange(bytes));
    }
    if (isAdobeColorTable(bytes)) {
        return isAccepted(readAdobeColorTable(bytes));
    }
    return isGimpPalette(bytes) && isAccepted(readGimpPalette(bytes));
}

} // namespace tintwick::test
