#include "PillContent.h"

#include "CapturedColor.h"
#include "ColorNames.h"

namespace tintwick {

namespace {

/// 0 to 1; the weights of Rec. 709 on the encoded components, without linearization.
double luminance(QRgb color)
{
    return (0.2126 * qRed(color) + 0.7152 * qGreen(color) + 0.0722 * qBlue(color)) / 255;
}

} // namespace

PillContent PillContent::of(QRgb color)
{
    // The name depends on the components only. CapturedColor::capture() would create a random id for every frame.
    CapturedColor unnamed;
    unnamed.red = qRed(color) / 255.0;
    unnamed.green = qGreen(color) / 255.0;
    unnamed.blue = qBlue(color) / 255.0;
    return {.hex =
                QString::asprintf("%02X%02X%02X", static_cast<unsigned>(qRed(color)),
                                  static_cast<unsigned>(qGreen(color)), static_cast<unsigned>(qBlue(color))),
            .name = ColorNames::shared().description(unnamed),
            .tone = luminance(color) > 0.45 ? PillTone::LightBackground : PillTone::DarkBackground};
}

} // namespace tintwick
