#pragma once

#include "Coordinates.h"
#include "LoupeLook.h"
#include "ScreenGrabber.h"

#include <memory>
#include <vector>

namespace tintwick {

class LoupeSurface;
class LoupeRenderer;

/// Carries the loupe's picture on the screen. Destroying it takes the loupe away.
class MagnifierPanel final
{
public:
    explicit MagnifierPanel(std::unique_ptr<LoupeSurface> surface);
    ~MagnifierPanel();

    /// What captures look below in order not to see the loupe.
    [[nodiscard]] SurfaceId windowNumber() const;

    /// Shows the view around the pointer, at the scale and within the bounds of the screen the pointer is on; the primary
    /// screen comes first in the list and counts for a pointer that is on none. Without screens the loupe stays as it is.
    void show(LoupeRenderer& view, const LoupeLook& look, GlobalPoint pointer,
              const std::vector<Screen>& screens);

private:
    std::unique_ptr<LoupeSurface> m_surface;
};

} // namespace tintwick
