#include "WaylandOutput.h"

#include <xdg-output-unstable-v1-client-protocol.h>

#include <utility>

namespace tintwick {

namespace {

bool swapsSides(int transform)
{
    return (transform & WL_OUTPUT_TRANSFORM_90) != 0;
}

} // namespace

WaylandOutput::WaylandOutput(WlOutput output, std::uint32_t globalName)
    : m_output(std::move(output))
    , m_globalName(globalName)
{
    static constexpr wl_output_listener listener{
        .geometry =
            [](void* self, wl_output*, std::int32_t x, std::int32_t y, std::int32_t, std::int32_t,
               std::int32_t, const char*, const char*, std::int32_t transform) {
                auto& me = *static_cast<WaylandOutput*>(self);
                me.m_position = {x, y};
                me.m_transform = transform;
            },
        .mode =
            [](void* self, wl_output*, std::uint32_t flags, std::int32_t width, std::int32_t height,
               std::int32_t) {
                if ((flags & WL_OUTPUT_MODE_CURRENT) != 0) {
                    static_cast<WaylandOutput*>(self)->m_mode = {width, height};
                }
            },
        .done = [](void*, wl_output*) {},
        .scale = [](void* self, wl_output*,
                    std::int32_t factor) { static_cast<WaylandOutput*>(self)->m_integerScale = factor; },
        .name = [](void* self, wl_output*,
                   const char* name) { static_cast<WaylandOutput*>(self)->m_name = QString::fromUtf8(name); },
        .description = [](void*, wl_output*, const char*) {}};
    wl_output_add_listener(m_output.get(), &listener, this);
}

WaylandOutput::~WaylandOutput()
{
    if (m_description) {
        zxdg_output_v1_destroy(m_description);
    }
}

void WaylandOutput::describe(zxdg_output_manager_v1& manager)
{
    if (m_description) {
        return;
    }
    static constexpr zxdg_output_v1_listener listener{
        .logical_position = [](void* self, zxdg_output_v1*, std::int32_t x,
                               std::int32_t y) { static_cast<WaylandOutput*>(self)->m_logical.moveTo(x, y); },
        .logical_size =
            [](void* self, zxdg_output_v1*, std::int32_t width, std::int32_t height) {
                static_cast<WaylandOutput*>(self)->m_logical.setSize({width, height});
            },
        .done = [](void*, zxdg_output_v1*) {},
        .name = [](void* self, zxdg_output_v1*,
                   const char* name) { static_cast<WaylandOutput*>(self)->m_name = QString::fromUtf8(name); },
        .description = [](void*, zxdg_output_v1*, const char*) {}};
    m_description = zxdg_output_manager_v1_get_xdg_output(&manager, m_output.get());
    zxdg_output_v1_add_listener(m_description, &listener, this);
}

QSize WaylandOutput::pixels() const
{
    return swapsSides(m_transform) ? m_mode.transposed() : m_mode;
}

QRect WaylandOutput::logical() const
{
    return m_logical.isEmpty() ? QRect(m_position, pixels() / m_integerScale) : m_logical;
}

} // namespace tintwick
