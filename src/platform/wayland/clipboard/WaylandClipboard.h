#pragma once

#include "WaylandConnection.h"

#include <QByteArray>

#include <cstdint>

struct zwlr_data_control_device_v1;
struct zwlr_data_control_manager_v1;
struct zwlr_data_control_source_v1;

namespace tintwick {

template <>
struct WaylandDelete<zwlr_data_control_device_v1>
{
    void operator()(zwlr_data_control_device_v1* proxy) const;
};

template <>
struct WaylandDelete<zwlr_data_control_manager_v1>
{
    void operator()(zwlr_data_control_manager_v1* proxy) const;
};

template <>
struct WaylandDelete<zwlr_data_control_source_v1>
{
    void operator()(zwlr_data_control_source_v1* proxy) const;
};

/// Owns the clipboard with a text, and serves it for as long as the object lives.
class WaylandClipboard final
{
public:
    /// The seat may be null: then nothing can be copied. Connection and seat must outlive the object.
    WaylandClipboard(WaylandConnection& connection, wl_seat* seat);
    WaylandClipboard(const WaylandClipboard&) = delete;
    WaylandClipboard& operator=(const WaylandClipboard&) = delete;
    ~WaylandClipboard();

    /// Whether the clipboard can be set at any time, without an action of the user.
    [[nodiscard]] bool isAlwaysSettable() const { return m_controlDevice != nullptr; }

    /// Copies the text (UTF-8). The serial is that of the user's newest action on a surface of the connection, which must still
    /// stand. Returns once the compositor has handled it; false when it cannot.
    bool copy(const QByteArray& text, std::uint32_t serial);

    /// Whether other clients get the text of the last copy().
    [[nodiscard]] bool isOwner() const { return m_controlSource || m_source; }
    /// The text of the last copy(), UTF-8.
    [[nodiscard]] const QByteArray& text() const { return m_text; }

private:
    void offerByControl();
    void offerBySerial(std::uint32_t serial);

    WaylandConnection& m_connection;
    WaylandHandle<zwlr_data_control_manager_v1> m_controlManager;
    WaylandHandle<zwlr_data_control_device_v1> m_controlDevice;
    WaylandHandle<zwlr_data_control_source_v1> m_controlSource;
    WlDataDeviceManager m_manager;
    WlDataDevice m_device;
    WlDataSource m_source;
    QByteArray m_text;
};

} // namespace tintwick
