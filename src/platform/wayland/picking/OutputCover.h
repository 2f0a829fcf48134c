#pragma once

#include "CoverShell.h"
#include "LogicalGrid.h"
#include "LoupeSurface.h"
#include "OutputPicture.h"
#include "Screen.h"

#include <QImage>
#include <QPoint>
#include <QPointF>
#include <QRect>

#include <functional>
#include <memory>
#include <optional>

namespace tintwick {

/// A surface that covers one output with a picture of it, and the loupe above.
class OutputCover final
{
public:
    struct Reports
    {
        /// The surface covers the output now.
        std::function<void()> shown;
        /// The compositor has taken the surface away, with or without its output.
        std::function<void()> closed;
    };

    /// Asks for the surface. Shell and output must outlive this object.
    OutputCover(CoverShell& shell, WaylandOutput& output, Reports reports);
    OutputCover(const OutputCover&) = delete;
    OutputCover& operator=(const OutputCover&) = delete;
    ~OutputCover();

    /// Shows the picture as soon as the compositor has given the surface its size.
    void show(std::unique_ptr<OutputPicture> picture);
    /// Removes the loupe and keeps taking the input; reports nothing any more. The picture is removed too where a surface
    /// may be transparent.
    void clear();

    [[nodiscard]] const WaylandOutput& output() const { return m_output; }
    [[nodiscard]] wl_surface* surface() const { return m_surface.get(); }
    /// Null until the cover is shown.
    [[nodiscard]] const OutputPicture* picture() const { return m_isShown ? m_picture.get() : nullptr; }
    /// Only when shown.
    [[nodiscard]] Screen screen() const;
    /// From logical units of the surface to physical pixels of the screen; only when shown.
    [[nodiscard]] QPointF toPixels(QPointF logical) const;

    /// Shows one frame of the loupe; see PickingSession::showLoupe(). False when the compositor still reads all buffers.
    [[nodiscard]] bool showLoupe(const QImage& picture, QPoint topLeft);
    void hideLoupe();

private:
    void createLayer();
    void createWindow();
    void configure(QSize logical);
    void showWhenReady();

    CoverShell& m_shell;
    WaylandOutput& m_output;
    Reports m_reports;
    WlSurface m_surface;
    WaylandHandle<wp_viewport> m_viewport;
    WaylandHandle<zwlr_layer_surface_v1> m_layer;
    WaylandHandle<xdg_surface> m_windowSurface;
    WaylandHandle<xdg_toplevel> m_window;
    /// Of the window, until the next configure of its surface.
    QSize m_windowSize;
    /// Empty until the compositor has given the size.
    QSize m_logical;
    bool m_isShown = false;
    bool m_isCleared = false;
    std::unique_ptr<OutputPicture> m_picture;
    /// The picture in a format that surfaces show, where the picture's own is none.
    std::unique_ptr<ShmBuffer> m_converted;
    std::unique_ptr<ShmBuffer> m_transparent;
    std::optional<LogicalGrid> m_grid;
    std::optional<LoupeSurface> m_loupe;
};

} // namespace tintwick
