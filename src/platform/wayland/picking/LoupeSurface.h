#pragma once

#include "PictureSurface.h"

namespace tintwick {

/// The loupe above a cover.
class LoupeSurface final
{
public:
    /// Everything given must outlive this object.
    LoupeSurface(CoverShell& shell, wl_surface& cover, const LogicalGrid& grid);
    LoupeSurface(const LoupeSurface&) = delete;
    LoupeSurface& operator=(const LoupeSurface&) = delete;
    ~LoupeSurface();

    /// Prepares picture and place, in pixels of the output; the next commit of the cover shows both. The picture is
    /// premultiplied ARGB32. False when the compositor still reads all buffers: try again when it has released one.
    [[nodiscard]] bool show(const QImage& picture, QPoint topLeft);
    /// The next commit of the cover removes the loupe.
    void hide();

private:
    const LogicalGrid& m_grid;
    PictureSurface m_surface;
    WlSubsurface m_subsurface;
};

} // namespace tintwick
