#pragma once

#include "support/wayland/ClientHandle.h"

#include <QByteArray>
#include <QRect>
#include <QSize>

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>

namespace tintwick {

/// A client of a compositor, with its globals and outputs.
class WaylandClient final
{
public:
    struct Output
    {
        std::uint32_t id = 0;
        QByteArray name;
        /// In the logical units of the compositor.
        QRect place;
        /// In physical pixels, as the output scans them out: not rotated.
        QSize mode;
        wl_output_transform transform = WL_OUTPUT_TRANSFORM_NORMAL;
        ClientHandle<wl_output> handle;
        ClientHandle<zxdg_output_v1> logical;

        [[nodiscard]] bool isOnItsSide() const { return (transform & WL_OUTPUT_TRANSFORM_90) != 0; }
        /// In physical pixels, as the user sees it.
        [[nodiscard]] QSize size() const { return isOnItsSide() ? mode.transposed() : mode; }
    };

    /// Throws std::runtime_error when no compositor answers at the socket.
    explicit WaylandClient(const QByteArray& socket);
    ~WaylandClient();
    WaylandClient(const WaylandClient&) = delete;
    WaylandClient& operator=(const WaylandClient&) = delete;

    [[nodiscard]] wl_display* display() const { return m_display.get(); }
    /// Sends the requests, waits for the answers and handles all events. Returns false when the compositor is gone.
    bool synchronize();
    /// Waits for events and handles them. Returns false when the compositor is gone.
    bool dispatch();

    /// Null where the compositor does not offer the interface.
    template <typename Object, typename Handle = ClientHandle<Object>>
    [[nodiscard]] Handle bind(const wl_interface& interface, std::uint32_t version);

    /// Ordered by place, from left to right and from top to bottom.
    [[nodiscard]] const std::list<Output>& outputs() const { return m_outputs; }

private:
    struct Global
    {
        std::uint32_t id = 0;
        std::uint32_t version = 0;
    };

    void added(std::uint32_t id, const std::string& interface, std::uint32_t version);
    void removed(std::uint32_t id);
    void addOutput(std::uint32_t id, std::uint32_t version);
    void watchPlace(Output& output);

    ClientHandle<wl_display> m_display;
    ClientHandle<wl_registry> m_registry;
    ClientHandle<zxdg_output_manager_v1> m_placeManager;
    std::map<std::string, Global> m_globals;
    std::list<Output> m_outputs;
};

template <typename Object, typename Handle>
Handle WaylandClient::bind(const wl_interface& interface, std::uint32_t version)
{
    const auto found = m_globals.find(interface.name);
    if (found == m_globals.end()) {
        return nullptr;
    }
    return Handle(static_cast<Object*>(wl_registry_bind(m_registry.get(), found->second.id, &interface,
                                                        std::min(version, found->second.version))));
}

} // namespace tintwick
