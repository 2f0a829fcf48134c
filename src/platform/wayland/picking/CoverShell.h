#pragma once

#include "WaylandConnection.h"

struct wp_viewport;
struct wp_viewporter;
struct xdg_surface;
struct xdg_toplevel;
struct xdg_wm_base;
struct zwlr_layer_shell_v1;
struct zwlr_layer_surface_v1;

namespace tintwick {

template <>
struct WaylandDelete<wp_viewport>
{
    void operator()(wp_viewport* proxy) const;
};

template <>
struct WaylandDelete<wp_viewporter>
{
    void operator()(wp_viewporter* proxy) const;
};

template <>
struct WaylandDelete<xdg_surface>
{
    void operator()(xdg_surface* proxy) const;
};

template <>
struct WaylandDelete<xdg_toplevel>
{
    void operator()(xdg_toplevel* proxy) const;
};

template <>
struct WaylandDelete<xdg_wm_base>
{
    void operator()(xdg_wm_base* proxy) const;
};

template <>
struct WaylandDelete<zwlr_layer_shell_v1>
{
    void operator()(zwlr_layer_shell_v1* proxy) const;
};

template <>
struct WaylandDelete<zwlr_layer_surface_v1>
{
    void operator()(zwlr_layer_surface_v1* proxy) const;
};

/// What the compositor offers to cover an output with a surface.
class CoverShell final
{
public:
    /// The connection must outlive this object.
    explicit CoverShell(WaylandConnection& connection);
    CoverShell(const CoverShell&) = delete;
    CoverShell& operator=(const CoverShell&) = delete;
    ~CoverShell();

    /// Whether an output can be covered. When false, nothing else may be used.
    [[nodiscard]] bool isUsable() const;

    [[nodiscard]] WaylandConnection& connection() const { return m_connection; }
    [[nodiscard]] wp_viewporter* viewporter() const { return m_viewporter.get(); }
    /// Null where only windows can cover an output.
    [[nodiscard]] zwlr_layer_shell_v1* layerShell() const { return m_layerShell.get(); }
    [[nodiscard]] xdg_wm_base* windowShell() const { return m_windowShell.get(); }

private:
    WaylandConnection& m_connection;
    WaylandHandle<wp_viewporter> m_viewporter;
    WaylandHandle<zwlr_layer_shell_v1> m_layerShell;
    WaylandHandle<xdg_wm_base> m_windowShell;
};

} // namespace tintwick
