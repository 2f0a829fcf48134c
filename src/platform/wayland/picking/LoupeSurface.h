#pragma once

#include "CoverShell.h"
#include "LogicalGrid.h"
#include "ShmBuffer.h"

#include <QImage>
#include <QPoint>

#include <memory>
#include <vector>

namespace tintwick {

/// The loupe above a cover. It takes no input.
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
    [[nodiscard]] ShmBuffer* freeBuffer(QSize size);

    CoverShell& m_shell;
    const LogicalGrid& m_grid;
    WlSurface m_surface;
    WlSubsurface m_subsurface;
    WaylandHandle<wp_viewport> m_viewport;
    std::vector<std::unique_ptr<ShmBuffer>> m_buffers;
};

} // namespace tintwick
