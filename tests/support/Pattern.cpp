#include "support/Pattern.h"

namespace tintwick {

QImage patternImage(const QRect& rect)
{
    QImage image(rect.size(), QImage::Format_RGB32);
    for (int y = 0; y < rect.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < rect.width(); ++x) {
            line[x] = patternPixel(rect.x() + x, rect.y() + y);
        }
    }
    return image;
}

} // namespace tintwick
