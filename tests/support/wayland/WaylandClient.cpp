#include "support/wayland/WaylandClient.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>

namespace tintwick {

WaylandClient::WaylandClient(const QByteArray& socket)
    : m_display(wl_display_connect(socket.constData()))
{
    if (!m_display) {
        throw std::runtime_error("no compositor answers");
    }
    static constexpr wl_registry_listener listener{
        .global =
            [](void* self, wl_registry*, std::uint32_t id, const char* interface, std::uint32_t version) {
                static_cast<WaylandClient*>(self)->added(id, interface, version);
            },
        .global_remove = [](void* self, wl_registry*,
                            std::uint32_t id) { static_cast<WaylandClient*>(self)->removed(id); }};
    m_registry.reset(wl_display_get_registry(m_display.get()));
    wl_registry_add_listener(m_registry.get(), &listener, this);
    synchronize();
    m_placeManager = bind<zxdg_output_manager_v1>(zxdg_output_manager_v1_interface, 3);
    for (Output& output : m_outputs) {
        watchPlace(output);
    }
    synchronize();
}

WaylandClient::~WaylandClient() = default;

bool WaylandClient::synchronize()
{
    const bool isThere = wl_display_roundtrip(m_display.get()) >= 0;
    m_outputs.sort([](const Output& a, const Output& b) {
        return std::tuple(a.place.x(), a.place.y()) < std::tuple(b.place.x(), b.place.y());
    });
    return isThere;
}

bool WaylandClient::dispatch()
{
    return wl_display_dispatch(m_display.get()) >= 0;
}

void WaylandClient::added(std::uint32_t id, const std::string& interface, std::uint32_t version)
{
    m_globals[interface] = {.id = id, .version = version};
    if (interface == wl_output_interface.name) {
        addOutput(id, version);
    }
}

void WaylandClient::removed(std::uint32_t id)
{
    m_outputs.remove_if([id](const Output& output) { return output.id == id; });
    std::erase_if(m_globals, [id](const auto& global) { return global.second.id == id; });
}

void WaylandClient::addOutput(std::uint32_t id, std::uint32_t version)
{
    static constexpr wl_output_listener listener{
        .geometry =
            [](void* self, wl_output*, std::int32_t, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
               const char*, const char*, std::int32_t transform) {
                static_cast<Output*>(self)->transform = static_cast<wl_output_transform>(transform);
            },
        .mode =
            [](void* self, wl_output*, std::uint32_t flags, std::int32_t width, std::int32_t height,
               std::int32_t) {
                if ((flags & WL_OUTPUT_MODE_CURRENT) != 0) {
                    static_cast<Output*>(self)->mode = {width, height};
                }
            },
        .done = [](void*, wl_output*) {},
        .scale = [](void*, wl_output*, std::int32_t) {},
        .name = [](void*, wl_output*, const char*) {},
        .description = [](void*, wl_output*, const char*) {}};
    Output& output = m_outputs.emplace_back();
    output.id = id;
    output.handle.reset(static_cast<wl_output*>(
        wl_registry_bind(m_registry.get(), id, &wl_output_interface, std::min(version, 2U))));
    wl_output_add_listener(output.handle.get(), &listener, &output);
    watchPlace(output);
}

void WaylandClient::watchPlace(Output& output)
{
    static constexpr zxdg_output_v1_listener listener{
        .logical_position =
            [](void* self, zxdg_output_v1*, std::int32_t x, std::int32_t y) {
                static_cast<Output*>(self)->place.moveTopLeft({x, y});
            },
        .logical_size =
            [](void* self, zxdg_output_v1*, std::int32_t width, std::int32_t height) {
                static_cast<Output*>(self)->place.setSize({width, height});
            },
        .done = [](void*, zxdg_output_v1*) {},
        .name = [](void* self, zxdg_output_v1*,
                   const char* name) { static_cast<Output*>(self)->name = name; },
        .description = [](void*, zxdg_output_v1*, const char*) {}};
    if (m_placeManager) {
        output.logical.reset(
            zxdg_output_manager_v1_get_xdg_output(m_placeManager.get(), output.handle.get()));
        zxdg_output_v1_add_listener(output.logical.get(), &listener, &output);
    }
}

} // namespace tintwick
