#pragma once

#include "LogicalGrid.h"
#include "OverlayShell.h"
#include "ShmBuffer.h"

#include <QImage>
#include <QPoint>

#include <memory>
#include <vector>

namespace tintwick {

/// The loupe above an overlay. It takes no input.
class LoupeSurface final
{
public:
    /// Everything given must outlive this object.
    LoupeSurface(OverlayShell& shell, wl_surface& overlay, const LogicalGrid& grid);
    LoupeSurface(const LoupeSurface&) = delete;
    LoupeSurface& operator=(const LoupeSurface&) = delete;
    ~LoupeSurface();

    /// Prepares picture and place, in pixels of the output; the next commit of the overlay shows both. The picture is
    /// premultiplied ARGB32. False when the compositor still reads all buffers: try again when it has released one.
    [[nodiscard]] bool show(const QImage& picture, QPoint topLeft);
    /// The next commit of the overlay removes the loupe.
    void hide();

private:
    [[nodiscard]] ShmBuffer* freeBuffer(QSize size);

    OverlayShell& m_shell;
    const LogicalGrid& m_grid;
    WlSurface m_surface;
    WlSubsurface m_subsurface;
    WaylandHandle<wp_viewport> m_viewport;
    std::vector<std::unique_ptr<ShmBuffer>> m_buffers;
};

} // namespace tintwick
