#pragma once

#include "Coordinates.h"
#include "ScreenGrabber.h"

class QImage;

namespace tintwick {

/// Where the loupe's picture is shown, above everything else; it takes no input. Destroying it takes it off the screen.
class LoupeSurface
{
public:
    virtual ~LoupeSurface() = default;

    /// What captures look below.
    [[nodiscard]] virtual SurfaceId id() const = 0;

    /// Shows one frame; picture and place change together. The picture is premultiplied ARGB in physical pixels, its top
    /// left corner in desktop space; what falls between pixels is rounded.
    virtual void present(const QImage& picture, DesktopPoint topLeft) = 0;
};

} // namespace tintwick
