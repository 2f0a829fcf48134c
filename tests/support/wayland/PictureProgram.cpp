// Covers each output of a Wayland compositor with the test picture or a colour, below all other windows: one pixel of the
// picture on each physical pixel. Where clients have no access to the background it opens full screen windows instead.
//
// usage: picture_program [COLOR]

#include "support/Pattern.h"
#include "support/wayland/PixelBuffer.h"
#include "support/wayland/WaylandClient.h"

#include <QColor>
#include <QSize>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <list>
#include <memory>

namespace {

using namespace tintwick;

struct Globals
{
    explicit Globals(WaylandClient& client)
        : compositor(client.bind<wl_compositor>(wl_compositor_interface, 4))
        , shm(client.bind<wl_shm>(wl_shm_interface, 1))
        , viewporter(client.bind<wp_viewporter>(wp_viewporter_interface, 1))
        , layers(client.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, 3))
        , windows(client.bind<xdg_wm_base>(xdg_wm_base_interface, 1))
    {
        static constexpr xdg_wm_base_listener listener{
            .ping = [](void*, xdg_wm_base* base, std::uint32_t serial) { xdg_wm_base_pong(base, serial); }};
        xdg_wm_base_add_listener(windows.get(), &listener, nullptr);
    }

    ClientHandle<wl_compositor> compositor;
    ClientHandle<wl_shm> shm;
    ClientHandle<wp_viewporter> viewporter;
    ClientHandle<zwlr_layer_shell_v1> layers;
    ClientHandle<xdg_wm_base> windows;
};

/// The picture on one output.
class Picture final
{
public:
    /// An invalid colour stands for the test picture.
    Picture(const Globals& globals, const WaylandClient::Output& output, const QColor& color)
        : m_globals(globals)
        , m_color(color)
        , m_output(output)
        , m_id(output.id)
        , m_surface(wl_compositor_create_surface(globals.compositor.get()))
        , m_viewport(wp_viewporter_get_viewport(globals.viewporter.get(), m_surface.get()))
    {
        if (globals.layers) {
            makeLayer();
        } else {
            makeWindow();
        }
        wl_surface_commit(m_surface.get());
    }

    [[nodiscard]] std::uint32_t outputId() const { return m_id; }

    /// Draws the picture when the size or the place of the output has changed.
    void update()
    {
        const QRect place(m_output.place.topLeft(), m_output.size());
        if (m_logicalSize.isEmpty() || (place == m_shown && m_logicalSize == m_shownLogicalSize)) {
            return;
        }
        m_shown = place;
        m_shownLogicalSize = m_logicalSize;
        const auto stride = static_cast<std::uint32_t>(place.width()) * 4;
        m_buffer =
            std::make_unique<PixelBuffer>(m_globals.shm.get(), place.size(), stride, WL_SHM_FORMAT_XRGB8888);
        QImage image = patternImage(place);
        if (m_color.isValid()) {
            image.fill(m_color);
        }
        std::copy_n(image.constBits(), image.sizeInBytes(), m_buffer->pixels());
        wp_viewport_set_destination(m_viewport.get(), m_logicalSize.width(), m_logicalSize.height());
        wl_surface_attach(m_surface.get(), m_buffer->buffer(), 0, 0);
        wl_surface_damage_buffer(m_surface.get(), 0, 0, place.width(), place.height());
        wl_surface_commit(m_surface.get());
    }

private:
    void makeLayer()
    {
        static constexpr zwlr_layer_surface_v1_listener listener{
            .configure =
                [](void* self, zwlr_layer_surface_v1* layer, std::uint32_t serial, std::uint32_t width,
                   std::uint32_t height) {
                    zwlr_layer_surface_v1_ack_configure(layer, serial);
                    auto& picture = *static_cast<Picture*>(self);
                    picture.m_logicalSize = {static_cast<int>(width), static_cast<int>(height)};
                },
            .closed = [](void* self,
                         zwlr_layer_surface_v1*) { static_cast<Picture*>(self)->m_logicalSize = {}; }};
        m_layer.reset(zwlr_layer_shell_v1_get_layer_surface(
            m_globals.layers.get(), m_surface.get(), m_output.handle.get(),
            m_color.isValid() ? ZWLR_LAYER_SHELL_V1_LAYER_BOTTOM : ZWLR_LAYER_SHELL_V1_LAYER_BACKGROUND,
            "picture"));
        zwlr_layer_surface_v1_add_listener(m_layer.get(), &listener, this);
        zwlr_layer_surface_v1_set_anchor(
            m_layer.get(), ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
                               ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT);
        zwlr_layer_surface_v1_set_exclusive_zone(m_layer.get(), -1);
    }

    void makeWindow()
    {
        static constexpr xdg_surface_listener surfaceListener{
            .configure = [](void* self, xdg_surface* window, std::uint32_t serial) {
                xdg_surface_ack_configure(window, serial);
                auto& picture = *static_cast<Picture*>(self);
                picture.m_logicalSize = picture.m_windowSize;
            }};
        static constexpr xdg_toplevel_listener listener{
            .configure =
                [](void* self, xdg_toplevel*, std::int32_t width, std::int32_t height, wl_array*) {
                    static_cast<Picture*>(self)->m_windowSize = {width, height};
                },
            .close = [](void*, xdg_toplevel*) {},
            .configure_bounds = [](void*, xdg_toplevel*, std::int32_t, std::int32_t) {},
            .wm_capabilities = [](void*, xdg_toplevel*, wl_array*) {}};
        m_window.reset(xdg_wm_base_get_xdg_surface(m_globals.windows.get(), m_surface.get()));
        xdg_surface_add_listener(m_window.get(), &surfaceListener, this);
        m_toplevel.reset(xdg_surface_get_toplevel(m_window.get()));
        xdg_toplevel_add_listener(m_toplevel.get(), &listener, this);
        xdg_toplevel_set_title(m_toplevel.get(), "picture");
        xdg_toplevel_set_fullscreen(m_toplevel.get(), m_output.handle.get());
    }

    const Globals& m_globals;
    QColor m_color;
    const WaylandClient::Output& m_output;
    std::uint32_t m_id;
    std::unique_ptr<PixelBuffer> m_buffer;
    ClientHandle<wl_surface> m_surface;
    ClientHandle<wp_viewport> m_viewport;
    ClientHandle<zwlr_layer_surface_v1> m_layer;
    ClientHandle<xdg_surface> m_window;
    ClientHandle<xdg_toplevel> m_toplevel;
    QSize m_windowSize;
    QSize m_logicalSize;
    QRect m_shown;
    QSize m_shownLogicalSize;
};

void show(WaylandClient& client, const QColor& color)
{
    const Globals globals(client);
    std::list<Picture> pictures;
    do {
        const auto& outputs = client.outputs();
        pictures.remove_if([&](const Picture& picture) {
            return std::none_of(outputs.begin(), outputs.end(),
                                [&](const auto& output) { return output.id == picture.outputId(); });
        });
        for (const auto& output : outputs) {
            const bool isKnown = std::any_of(pictures.begin(), pictures.end(), [&](const Picture& picture) {
                return picture.outputId() == output.id;
            });
            // A new output reports its size later.
            if (!isKnown && !output.place.isEmpty() && !output.mode.isEmpty()) {
                pictures.emplace_back(globals, output, color);
            }
        }
        for (Picture& picture : pictures) {
            picture.update();
        }
        wl_display_flush(client.display());
    } while (client.dispatch());
}

} // namespace

int main(int argc, char** argv)
{
    try {
        WaylandClient client(qgetenv("WAYLAND_DISPLAY"));
        show(client, argc > 1 ? QColor(QLatin1StringView(argv[1])) : QColor());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
