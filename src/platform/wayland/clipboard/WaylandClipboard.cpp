#include "WaylandClipboard.h"

#include "OfferedText.h"

#include <wlr-data-control-unstable-v1-client-protocol.h>

namespace tintwick {

namespace {

constexpr std::uint32_t managerVersion = 3;

// What other clients offer is not read here, so the offers are destroyed at once.
constexpr zwlr_data_control_device_v1_listener controlDeviceHandlers{
    .data_offer = [](void*, zwlr_data_control_device_v1*,
                     zwlr_data_control_offer_v1* offer) { zwlr_data_control_offer_v1_destroy(offer); },
    .selection = [](void*, zwlr_data_control_device_v1*, zwlr_data_control_offer_v1*) {},
    .finished = [](void*, zwlr_data_control_device_v1*) {},
    .primary_selection = [](void*, zwlr_data_control_device_v1*, zwlr_data_control_offer_v1*) {}};

constexpr wl_data_device_listener deviceHandlers{
    .data_offer = [](void*, wl_data_device*, wl_data_offer* offer) { wl_data_offer_destroy(offer); },
    .enter = [](void*, wl_data_device*, std::uint32_t, wl_surface*, wl_fixed_t, wl_fixed_t,
                wl_data_offer*) {},
    .leave = [](void*, wl_data_device*) {},
    .motion = [](void*, wl_data_device*, std::uint32_t, wl_fixed_t, wl_fixed_t) {},
    .drop = [](void*, wl_data_device*) {},
    .selection = [](void*, wl_data_device*, wl_data_offer*) {}};

} // namespace

void WaylandDelete<zwlr_data_control_device_v1>::operator()(zwlr_data_control_device_v1* proxy) const
{
    zwlr_data_control_device_v1_destroy(proxy);
}

void WaylandDelete<zwlr_data_control_manager_v1>::operator()(zwlr_data_control_manager_v1* proxy) const
{
    zwlr_data_control_manager_v1_destroy(proxy);
}

void WaylandDelete<zwlr_data_control_source_v1>::operator()(zwlr_data_control_source_v1* proxy) const
{
    zwlr_data_control_source_v1_destroy(proxy);
}

WaylandClipboard::WaylandClipboard(WaylandConnection& connection, wl_seat* seat)
    : m_connection(connection)
{
    if (!seat) {
        return;
    }
    m_controlManager.reset(
        connection.bind<zwlr_data_control_manager_v1>(zwlr_data_control_manager_v1_interface, 1));
    if (m_controlManager) {
        m_controlDevice.reset(zwlr_data_control_manager_v1_get_data_device(m_controlManager.get(), seat));
        zwlr_data_control_device_v1_add_listener(m_controlDevice.get(), &controlDeviceHandlers, this);
        return;
    }
    m_manager.reset(
        connection.bind<wl_data_device_manager>(wl_data_device_manager_interface, managerVersion));
    if (m_manager) {
        m_device.reset(wl_data_device_manager_get_data_device(m_manager.get(), seat));
        wl_data_device_add_listener(m_device.get(), &deviceHandlers, this);
    }
}

WaylandClipboard::~WaylandClipboard() = default;

bool WaylandClipboard::copy(const QByteArray& text, std::uint32_t serial)
{
    m_text = text;
    if (m_controlDevice) {
        offerByControl();
    } else if (m_device) {
        offerBySerial(serial);
    } else {
        return false;
    }
    return m_connection.waitUntilHandled();
}

void WaylandClipboard::offerByControl()
{
    static constexpr zwlr_data_control_source_v1_listener handlers{
        .send = [](void* self, zwlr_data_control_source_v1*, const char*,
                   std::int32_t pipe) { sendText(static_cast<WaylandClipboard*>(self)->m_text, pipe); },
        .cancelled =
            [](void* self, zwlr_data_control_source_v1*) {
                static_cast<WaylandClipboard*>(self)->m_controlSource.reset();
            }};
    WaylandHandle<zwlr_data_control_source_v1> source(
        zwlr_data_control_manager_v1_create_data_source(m_controlManager.get()));
    zwlr_data_control_source_v1_add_listener(source.get(), &handlers, this);
    for (const char* type : textTypes) {
        zwlr_data_control_source_v1_offer(source.get(), type);
    }
    zwlr_data_control_device_v1_set_selection(m_controlDevice.get(), source.get());
    m_controlSource = std::move(source);
}

void WaylandClipboard::offerBySerial(std::uint32_t serial)
{
    static constexpr wl_data_source_listener handlers{
        .target = [](void*, wl_data_source*, const char*) {},
        .send = [](void* self, wl_data_source*, const char*,
                   std::int32_t pipe) { sendText(static_cast<WaylandClipboard*>(self)->m_text, pipe); },
        .cancelled = [](void* self,
                        wl_data_source*) { static_cast<WaylandClipboard*>(self)->m_source.reset(); },
        .dnd_drop_performed = [](void*, wl_data_source*) {},
        .dnd_finished = [](void*, wl_data_source*) {},
        .action = [](void*, wl_data_source*, std::uint32_t) {}};
    WlDataSource source(wl_data_device_manager_create_data_source(m_manager.get()));
    wl_data_source_add_listener(source.get(), &handlers, this);
    for (const char* type : textTypes) {
        wl_data_source_offer(source.get(), type);
    }
    wl_data_device_set_selection(m_device.get(), source.get(), serial);
    m_source = std::move(source);
}

} // namespace tintwick
