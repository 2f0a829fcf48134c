#include "CoverShell.h"

#include <viewporter-client-protocol.h>
#include <wlr-layer-shell-unstable-v1-client-protocol.h>
#include <xdg-shell-client-protocol.h>

namespace tintwick {

namespace {

constexpr std::uint32_t layerShellVersion = 4;

} // namespace

void WaylandDelete<wp_viewport>::operator()(wp_viewport* proxy) const
{
    wp_viewport_destroy(proxy);
}

void WaylandDelete<wp_viewporter>::operator()(wp_viewporter* proxy) const
{
    wp_viewporter_destroy(proxy);
}

void WaylandDelete<xdg_surface>::operator()(xdg_surface* proxy) const
{
    xdg_surface_destroy(proxy);
}

void WaylandDelete<xdg_toplevel>::operator()(xdg_toplevel* proxy) const
{
    xdg_toplevel_destroy(proxy);
}

void WaylandDelete<xdg_wm_base>::operator()(xdg_wm_base* proxy) const
{
    xdg_wm_base_destroy(proxy);
}

void WaylandDelete<zwlr_layer_shell_v1>::operator()(zwlr_layer_shell_v1* proxy) const
{
    if (zwlr_layer_shell_v1_get_version(proxy) >= ZWLR_LAYER_SHELL_V1_DESTROY_SINCE_VERSION) {
        zwlr_layer_shell_v1_destroy(proxy);
    } else {
        wl_proxy_destroy(reinterpret_cast<wl_proxy*>(proxy));
    }
}

void WaylandDelete<zwlr_layer_surface_v1>::operator()(zwlr_layer_surface_v1* proxy) const
{
    zwlr_layer_surface_v1_destroy(proxy);
}

CoverShell::CoverShell(WaylandConnection& connection)
    : m_connection(connection)
    , m_viewporter(connection.bind<wp_viewporter>(wp_viewporter_interface, 1))
    , m_layerShell(connection.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, layerShellVersion))
    , m_windowShell(connection.bind<xdg_wm_base>(xdg_wm_base_interface, 1))
{
    static constexpr xdg_wm_base_listener answer{
        [](void*, xdg_wm_base* shell, std::uint32_t serial) { xdg_wm_base_pong(shell, serial); }};
    if (m_windowShell) {
        xdg_wm_base_add_listener(m_windowShell.get(), &answer, nullptr);
    }
}

CoverShell::~CoverShell() = default;

bool CoverShell::isUsable() const
{
    return m_viewporter && (m_layerShell || m_windowShell);
}

} // namespace tintwick
