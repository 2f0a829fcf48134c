#pragma once

#include "CoverShell.h"
#include "LogicalGrid.h"
#include "ShmBuffer.h"

#include <QImage>
#include <QPoint>
#include <QRect>

#include <memory>
#include <optional>
#include <vector>

namespace tintwick {

/// A small surface without input whose picture lies on whole pixels of an output. Its role comes from the owner.
class PictureSurface final
{
public:
    /// The shell must outlive this object.
    explicit PictureSurface(CoverShell& shell);
    PictureSurface(const PictureSurface&) = delete;
    PictureSurface& operator=(const PictureSurface&) = delete;
    ~PictureSurface();

    [[nodiscard]] wl_surface* get() const { return m_surface.get(); }

    /// Attaches a picture, premultiplied ARGB32, whose place is in pixels of the output. The next commit shows it. Returns
    /// where the surface must be then, in logical units of the output: empty where nothing of it is on the output; none
    /// when the compositor still reads all buffers, so try again when it has released one.
    [[nodiscard]] std::optional<QRect> attach(const QImage& picture, QPoint topLeft, const LogicalGrid& grid);
    /// The next commit shows nothing.
    void clear();

private:
    [[nodiscard]] ShmBuffer* freeBuffer(QSize size);

    CoverShell& m_shell;
    WlSurface m_surface;
    WaylandHandle<wp_viewport> m_viewport;
    std::vector<std::unique_ptr<ShmBuffer>> m_buffers;
};

} // namespace tintwick
