#include "DropShadow.h"

#include "GaussianBlur.h"

namespace tintwick {

QImage shadowOf(const QImage& shape, const DropShadow& shadow)
{
    return blurred(
        shape, {.standardDeviation = shadow.blur / 2, .offsetY = shadow.offsetY, .opacity = shadow.opacity});
}

} // namespace tintwick
