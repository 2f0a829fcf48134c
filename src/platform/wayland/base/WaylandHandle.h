#pragma once

#include <wayland-client.h>

#include <memory>

namespace tintwick {

/// Sends the request that destroys an object of the compositor. Specialized for each type, also beside the code that uses
/// the type.
template <typename Proxy>
struct WaylandDelete;

/// An object of the compositor, destroyed with the handle. Null when there is none.
template <typename Proxy>
using WaylandHandle = std::unique_ptr<Proxy, WaylandDelete<Proxy>>;

template <>
struct WaylandDelete<wl_buffer>
{
    void operator()(wl_buffer* proxy) const { wl_buffer_destroy(proxy); }
};

template <>
struct WaylandDelete<wl_callback>
{
    void operator()(wl_callback* proxy) const { wl_callback_destroy(proxy); }
};

template <>
struct WaylandDelete<wl_compositor>
{
    void operator()(wl_compositor* proxy) const { wl_compositor_destroy(proxy); }
};

template <>
struct WaylandDelete<wl_data_device>
{
    // Early versions have no request for the end.
    void operator()(wl_data_device* proxy) const
    {
        if (wl_data_device_get_version(proxy) >= WL_DATA_DEVICE_RELEASE_SINCE_VERSION) {
            wl_data_device_release(proxy);
        } else {
            wl_data_device_destroy(proxy);
        }
    }
};

template <>
struct WaylandDelete<wl_data_device_manager>
{
    void operator()(wl_data_device_manager* proxy) const { wl_data_device_manager_destroy(proxy); }
};

template <>
struct WaylandDelete<wl_data_source>
{
    void operator()(wl_data_source* proxy) const { wl_data_source_destroy(proxy); }
};

template <>
struct WaylandDelete<wl_keyboard>
{
    // Early versions have no request for the end.
    void operator()(wl_keyboard* proxy) const
    {
        if (wl_keyboard_get_version(proxy) >= WL_KEYBOARD_RELEASE_SINCE_VERSION) {
            wl_keyboard_release(proxy);
        } else {
            wl_keyboard_destroy(proxy);
        }
    }
};

template <>
struct WaylandDelete<wl_output>
{
    // Early versions have no request for the end.
    void operator()(wl_output* proxy) const
    {
        if (wl_output_get_version(proxy) >= WL_OUTPUT_RELEASE_SINCE_VERSION) {
            wl_output_release(proxy);
        } else {
            wl_output_destroy(proxy);
        }
    }
};

template <>
struct WaylandDelete<wl_pointer>
{
    // Early versions have no request for the end.
    void operator()(wl_pointer* proxy) const
    {
        if (wl_pointer_get_version(proxy) >= WL_POINTER_RELEASE_SINCE_VERSION) {
            wl_pointer_release(proxy);
        } else {
            wl_pointer_destroy(proxy);
        }
    }
};

template <>
struct WaylandDelete<wl_region>
{
    void operator()(wl_region* proxy) const { wl_region_destroy(proxy); }
};

template <>
struct WaylandDelete<wl_registry>
{
    void operator()(wl_registry* proxy) const { wl_registry_destroy(proxy); }
};

template <>
struct WaylandDelete<wl_seat>
{
    // Early versions have no request for the end.
    void operator()(wl_seat* proxy) const
    {
        if (wl_seat_get_version(proxy) >= WL_SEAT_RELEASE_SINCE_VERSION) {
            wl_seat_release(proxy);
        } else {
            wl_seat_destroy(proxy);
        }
    }
};

template <>
struct WaylandDelete<wl_shm>
{
    void operator()(wl_shm* proxy) const { wl_shm_destroy(proxy); }
};

template <>
struct WaylandDelete<wl_subcompositor>
{
    void operator()(wl_subcompositor* proxy) const { wl_subcompositor_destroy(proxy); }
};

template <>
struct WaylandDelete<wl_subsurface>
{
    void operator()(wl_subsurface* proxy) const { wl_subsurface_destroy(proxy); }
};

template <>
struct WaylandDelete<wl_surface>
{
    void operator()(wl_surface* proxy) const { wl_surface_destroy(proxy); }
};

template <>
struct WaylandDelete<wl_touch>
{
    // Early versions have no request for the end.
    void operator()(wl_touch* proxy) const
    {
        if (wl_touch_get_version(proxy) >= WL_TOUCH_RELEASE_SINCE_VERSION) {
            wl_touch_release(proxy);
        } else {
            wl_touch_destroy(proxy);
        }
    }
};

using WlBuffer = WaylandHandle<wl_buffer>;
using WlCallback = WaylandHandle<wl_callback>;
using WlCompositor = WaylandHandle<wl_compositor>;
using WlDataDevice = WaylandHandle<wl_data_device>;
using WlDataDeviceManager = WaylandHandle<wl_data_device_manager>;
using WlDataSource = WaylandHandle<wl_data_source>;
using WlKeyboard = WaylandHandle<wl_keyboard>;
using WlOutput = WaylandHandle<wl_output>;
using WlPointer = WaylandHandle<wl_pointer>;
using WlRegion = WaylandHandle<wl_region>;
using WlRegistry = WaylandHandle<wl_registry>;
using WlSeat = WaylandHandle<wl_seat>;
using WlShm = WaylandHandle<wl_shm>;
using WlSubcompositor = WaylandHandle<wl_subcompositor>;
using WlSubsurface = WaylandHandle<wl_subsurface>;
using WlSurface = WaylandHandle<wl_surface>;
using WlTouch = WaylandHandle<wl_touch>;

} // namespace tintwick
