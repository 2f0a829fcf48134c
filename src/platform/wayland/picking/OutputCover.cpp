#include "OutputCover.h"

#include <viewporter-client-protocol.h>
#include <wlr-layer-shell-unstable-v1-client-protocol.h>
#include <xdg-shell-client-protocol.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace tintwick {

namespace {

constexpr std::uint32_t allEdges = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
                                   ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
constexpr int coverBars = -1;
constexpr int bytesPerPixel = 4;

/// An upright copy of the picture in a format that every compositor shows. Null when there is no memory for it.
std::unique_ptr<ShmBuffer> convert(const OutputPicture& picture, wl_shm& shm)
{
    const QSize size = picture.size();
    auto buffer = ShmBuffer::create(shm, {size, size.width() * bytesPerPixel, WL_SHM_FORMAT_XRGB8888});
    for (int y = 0; buffer && y < size.height(); ++y) {
        const QImage row = picture.read({0, y, size.width(), 1});
        std::memcpy(buffer->data() + static_cast<std::ptrdiff_t>(y) * buffer->layout().stride,
                    row.constScanLine(0), static_cast<std::size_t>(buffer->layout().stride));
    }
    return buffer;
}

} // namespace

OutputCover::OutputCover(CoverShell& shell, WaylandOutput& output, Reports reports)
    : m_shell(shell)
    , m_output(output)
    , m_reports(std::move(reports))
    , m_surface(wl_compositor_create_surface(shell.connection().compositor()))
    , m_viewport(wp_viewporter_get_viewport(shell.viewporter(), m_surface.get()))
{
    if (shell.layerShell()) {
        createLayer();
    } else {
        createWindow();
    }
    wl_surface_commit(m_surface.get());
}

OutputCover::~OutputCover() = default;

void OutputCover::createLayer()
{
    static constexpr zwlr_layer_surface_v1_listener handlers{
        .configure =
            [](void* self, zwlr_layer_surface_v1* layer, std::uint32_t serial, std::uint32_t width,
               std::uint32_t height) {
                zwlr_layer_surface_v1_ack_configure(layer, serial);
                static_cast<OutputCover*>(self)->configure(
                    {static_cast<int>(width), static_cast<int>(height)});
            },
        .closed = [](void* self,
                     zwlr_layer_surface_v1*) { static_cast<OutputCover*>(self)->m_reports.closed(); }};
    m_layer.reset(zwlr_layer_shell_v1_get_layer_surface(m_shell.layerShell(), m_surface.get(), m_output.get(),
                                                        ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "tintwick-loupe"));
    zwlr_layer_surface_v1_add_listener(m_layer.get(), &handlers, this);
    zwlr_layer_surface_v1_set_anchor(m_layer.get(), allEdges);
    zwlr_layer_surface_v1_set_exclusive_zone(m_layer.get(), coverBars);
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_layer.get(),
                                                     ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE);
}

void OutputCover::createWindow()
{
    static constexpr xdg_surface_listener surfaceHandlers{
        .configure = [](void* self, xdg_surface* surface, std::uint32_t serial) {
            xdg_surface_ack_configure(surface, serial);
            auto& me = *static_cast<OutputCover*>(self);
            me.configure(me.m_windowSize);
        }};
    static constexpr xdg_toplevel_listener windowHandlers{
        .configure =
            [](void* self, xdg_toplevel*, std::int32_t width, std::int32_t height, wl_array*) {
                static_cast<OutputCover*>(self)->m_windowSize = {width, height};
            },
        .close = [](void* self, xdg_toplevel*) { static_cast<OutputCover*>(self)->m_reports.closed(); },
        .configure_bounds = [](void*, xdg_toplevel*, std::int32_t, std::int32_t) {},
        .wm_capabilities = [](void*, xdg_toplevel*, wl_array*) {}};
    m_windowSurface.reset(xdg_wm_base_get_xdg_surface(m_shell.windowShell(), m_surface.get()));
    xdg_surface_add_listener(m_windowSurface.get(), &surfaceHandlers, this);
    m_window.reset(xdg_surface_get_toplevel(m_windowSurface.get()));
    xdg_toplevel_add_listener(m_window.get(), &windowHandlers, this);
    xdg_toplevel_set_title(m_window.get(), "Tintwick Loupe");
    xdg_toplevel_set_app_id(m_window.get(), "org.tintwick.Tintwick");
    xdg_toplevel_set_fullscreen(m_window.get(), m_output.get());
}

void OutputCover::show(std::unique_ptr<OutputPicture> picture)
{
    m_picture = std::move(picture);
    showWhenReady();
}

void OutputCover::configure(QSize logical)
{
    const QSize size = logical.isEmpty() ? m_output.logical().size() : logical;
    // A compositor also reports what has not changed, as when the surface gets the keyboard.
    if (std::exchange(m_logical, size) != size || !m_isShown) {
        showWhenReady();
    }
}

void OutputCover::showWhenReady()
{
    if (!m_picture || m_logical.isEmpty() || m_isCleared) {
        return;
    }
    ShmBuffer* buffer = &m_picture->buffer();
    int transform = m_picture->transform();
    if (!m_shell.connection().showsFormat(buffer->layout().format)) {
        if (!m_converted) {
            m_converted = convert(*m_picture, *m_shell.connection().shm());
        }
        buffer = m_converted ? m_converted.get() : buffer;
        transform = m_converted ? WL_OUTPUT_TRANSFORM_NORMAL : transform;
    }
    m_loupe.reset();
    m_grid.emplace(m_logical, m_picture->size());
    const WlRegion whole(wl_compositor_create_region(m_shell.connection().compositor()));
    wl_region_add(whole.get(), 0, 0, m_logical.width(), m_logical.height());
    wl_surface_set_opaque_region(m_surface.get(), whole.get());
    wl_surface_set_buffer_transform(m_surface.get(), transform);
    wp_viewport_set_destination(m_viewport.get(), m_logical.width(), m_logical.height());
    buffer->attachTo(*m_surface);
    wl_surface_commit(m_surface.get());
    m_isShown = true;
    m_reports.shown();
}

void OutputCover::clear()
{
    m_isCleared = true;
    m_reports = {[] {}, [] {}};
    if (!m_isShown) {
        return;
    }
    if (m_loupe) {
        m_loupe->hide();
    }
    // Nothing is seen below a full-screen window, so its picture stays.
    if (m_layer) {
        m_transparent =
            ShmBuffer::create(*m_shell.connection().shm(), {{1, 1}, bytesPerPixel, WL_SHM_FORMAT_ARGB8888});
        if (m_transparent) {
            wl_surface_set_opaque_region(m_surface.get(), nullptr);
            wl_surface_set_buffer_transform(m_surface.get(), WL_OUTPUT_TRANSFORM_NORMAL);
            m_transparent->attachTo(*m_surface);
            m_isShown = false;
            m_picture.reset();
            m_converted.reset();
        }
    }
    wl_surface_commit(m_surface.get());
}

Screen OutputCover::screen() const
{
    return {.size = m_picture->size(),
            .scale = m_grid->scale().width(),
            .bitsPerChannel = std::clamp(m_picture->bitsPerChannel(), 8, 10)};
}

QPointF OutputCover::toPixels(QPointF logical) const
{
    const QSizeF scale = m_grid->scale();
    return {logical.x() * scale.width(), logical.y() * scale.height()};
}

bool OutputCover::showLoupe(const QImage& picture, QPoint topLeft)
{
    if (!m_isShown) {
        return true;
    }
    if (!m_loupe) {
        m_loupe.emplace(m_shell, *m_surface, *m_grid);
    }
    const bool isDone = m_loupe->show(picture, topLeft);
    wl_surface_commit(m_surface.get());
    return isDone;
}

void OutputCover::hideLoupe()
{
    if (m_loupe) {
        m_loupe->hide();
        wl_surface_commit(m_surface.get());
    }
}

} // namespace tintwick
