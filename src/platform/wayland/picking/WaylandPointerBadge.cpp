#include "WaylandPointerBadge.h"

#include "PictureSurface.h"

#include <wlr-layer-shell-unstable-v1-client-protocol.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tintwick {

namespace {

// In points.
constexpr QPointF offset(14, 18);
constexpr double roomBelow = 48;

constexpr int overBars = -1;

/// Below and right of the pointer; on its other side where the screen ends.
double placeAlong(double pointer, double distance, int length, int end)
{
    return pointer + distance + length <= end ? pointer + distance : pointer - distance - length;
}

} // namespace

/// The badge on one output.
class WaylandPointerBadge::Sign final
{
public:
    /// Without a position, in pixels of the output, the sign is at the bottom.
    Sign(CoverShell& shell, const WaylandOutput& output, std::optional<QPointF> position)
        : m_output(output)
        , m_grid(output.logical().size(), output.pixels())
        , m_position(position)
        , m_surface(shell)
        , m_layer(zwlr_layer_shell_v1_get_layer_surface(shell.layerShell(), m_surface.get(), output.get(),
                                                        ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "tintwick-badge"))
    {
        static constexpr zwlr_layer_surface_v1_listener handlers{
            .configure =
                [](void* self, zwlr_layer_surface_v1* layer, std::uint32_t serial, std::uint32_t,
                   std::uint32_t) {
                    zwlr_layer_surface_v1_ack_configure(layer, serial);
                    if (auto& sign = *static_cast<Sign*>(self); !std::exchange(sign.m_isConfigured, true)) {
                        sign.update();
                    }
                },
            .closed = [](void*, zwlr_layer_surface_v1*) {}};
        zwlr_layer_surface_v1_add_listener(m_layer.get(), &handlers, this);
        zwlr_layer_surface_v1_set_anchor(m_layer.get(), ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP |
                                                            ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT);
        zwlr_layer_surface_v1_set_exclusive_zone(m_layer.get(), overBars);
    }

    [[nodiscard]] const WaylandOutput& output() const { return m_output; }

    void show(const Draw& draw)
    {
        m_picture = draw(m_grid.scale().width());
        // Size and place come before the first picture.
        const QRect place = m_grid.cover({topLeft(), m_picture.size()}).logical;
        zwlr_layer_surface_v1_set_size(m_layer.get(), static_cast<std::uint32_t>(std::max(1, place.width())),
                                       static_cast<std::uint32_t>(std::max(1, place.height())));
        zwlr_layer_surface_v1_set_margin(m_layer.get(), place.y(), 0, 0, place.x());
        if (m_isConfigured) {
            update();
        } else {
            wl_surface_commit(m_surface.get());
        }
    }

private:
    [[nodiscard]] QPoint topLeft() const
    {
        const double scale = m_grid.scale().width();
        const QSize screen = m_output.pixels();
        if (!m_position) {
            return {(screen.width() - m_picture.width()) / 2,
                    static_cast<int>(std::lround(screen.height() - m_picture.height() - roomBelow * scale))};
        }
        return QPointF(placeAlong(m_position->x(), offset.x() * scale, m_picture.width(), screen.width()),
                       placeAlong(m_position->y(), offset.y() * scale, m_picture.height(), screen.height()))
            .toPoint();
    }

    void update()
    {
        // A picture that finds no free buffer is followed by another within a second, or hidden.
        if (m_surface.attach(m_picture, topLeft(), m_grid)) {
            wl_surface_commit(m_surface.get());
        }
    }

    const WaylandOutput& m_output;
    LogicalGrid m_grid;
    std::optional<QPointF> m_position;
    PictureSurface m_surface;
    WaylandHandle<zwlr_layer_surface_v1> m_layer;
    bool m_isConfigured = false;
    QImage m_picture;
};

WaylandPointerBadge::WaylandPointerBadge(WaylandPickingParts& parts)
    : m_parts(parts)
{
    m_removal = QObject::connect(
        &parts.connection, &WaylandConnection::outputRemoved, &parts, [this](const WaylandOutput* output) {
            std::erase_if(m_signs, [output](const auto& sign) { return &sign->output() == output; });
        });
}

WaylandPointerBadge::~WaylandPointerBadge()
{
    QObject::disconnect(m_removal);
}

void WaylandPointerBadge::show(const Draw& draw, Place place)
{
    if (place != m_place || place == Place::Fixed) {
        m_signs.clear();
    }
    m_place = place;
    if (m_signs.empty()) {
        const auto& last = m_parts.lastPosition;
        for (const auto& output : m_parts.connection.outputs()) {
            if (place == Place::FollowsPointer) {
                m_signs.push_back(std::make_unique<Sign>(m_parts.shell, *output, std::nullopt));
            } else if (last && last->output == output->globalName()) {
                m_signs.push_back(std::make_unique<Sign>(m_parts.shell, *output, last->pixel));
            }
        }
    }
    for (const auto& sign : m_signs) {
        sign->show(draw);
    }
    m_parts.connection.flush();
}

void WaylandPointerBadge::hide()
{
    if (m_signs.empty()) {
        return;
    }
    m_signs.clear();
    // A picture of the screen that is asked for over D-Bus must not contain it.
    m_parts.connection.waitUntilHandled();
}

} // namespace tintwick
