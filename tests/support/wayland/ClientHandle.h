#pragma once

#include <viewporter-client-protocol.h>
#include <virtual-keyboard-client-protocol.h>
#include <wlr-layer-shell-unstable-v1-client-protocol.h>
#include <wlr-screencopy-unstable-v1-client-protocol.h>
#include <wlr-virtual-pointer-unstable-v1-client-protocol.h>
#include <xdg-output-unstable-v1-client-protocol.h>
#include <xdg-shell-client-protocol.h>

#include <wayland-client.h>

#include <memory>

namespace tintwick {

struct ClientDeleter
{
    void operator()(wl_buffer* object) const { wl_buffer_destroy(object); }
    void operator()(wl_callback* object) const { wl_callback_destroy(object); }
    void operator()(wl_compositor* object) const { wl_compositor_destroy(object); }
    void operator()(wl_display* object) const { wl_display_disconnect(object); }
    void operator()(wl_output* object) const { wl_output_destroy(object); }
    void operator()(wl_registry* object) const { wl_registry_destroy(object); }
    void operator()(wl_seat* object) const { wl_seat_destroy(object); }
    void operator()(wl_shm* object) const { wl_shm_destroy(object); }
    void operator()(wl_surface* object) const { wl_surface_destroy(object); }
    void operator()(wp_viewport* object) const { wp_viewport_destroy(object); }
    void operator()(wp_viewporter* object) const { wp_viewporter_destroy(object); }
    void operator()(xdg_surface* object) const { xdg_surface_destroy(object); }
    void operator()(xdg_toplevel* object) const { xdg_toplevel_destroy(object); }
    void operator()(xdg_wm_base* object) const { xdg_wm_base_destroy(object); }
    void operator()(zwlr_layer_shell_v1* object) const { zwlr_layer_shell_v1_destroy(object); }
    void operator()(zwlr_layer_surface_v1* object) const { zwlr_layer_surface_v1_destroy(object); }
    void operator()(zwlr_screencopy_frame_v1* object) const { zwlr_screencopy_frame_v1_destroy(object); }
    void operator()(zwlr_screencopy_manager_v1* object) const { zwlr_screencopy_manager_v1_destroy(object); }
    void operator()(zwlr_virtual_pointer_manager_v1* object) const
    {
        zwlr_virtual_pointer_manager_v1_destroy(object);
    }
    void operator()(zwlr_virtual_pointer_v1* object) const { zwlr_virtual_pointer_v1_destroy(object); }
    void operator()(zwp_virtual_keyboard_manager_v1* object) const
    {
        zwp_virtual_keyboard_manager_v1_destroy(object);
    }
    void operator()(zwp_virtual_keyboard_v1* object) const { zwp_virtual_keyboard_v1_destroy(object); }
    void operator()(zxdg_output_manager_v1* object) const { zxdg_output_manager_v1_destroy(object); }
    void operator()(zxdg_output_v1* object) const { zxdg_output_v1_destroy(object); }
};

/// Owns an object of the Wayland connection, which must outlive it.
template <typename Object>
using ClientHandle = std::unique_ptr<Object, ClientDeleter>;

} // namespace tintwick
