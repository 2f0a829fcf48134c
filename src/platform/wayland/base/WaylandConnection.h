#pragma once

#include "WaylandHandle.h"
#include "WaylandOutput.h"

#include <QObject>

#include <chrono>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

class QSocketNotifier;

namespace tintwick {

/// The program's own connection to the compositor, beside that of the toolkit.
class WaylandConnection final : public QObject
{
    Q_OBJECT

public:
    /// Null when no compositor answers. Returns once the globals and the outputs are known.
    [[nodiscard]] static std::unique_ptr<WaylandConnection> open();
    ~WaylandConnection() override;

    /// From now on the event loop delivers the compositor's events and sends our requests before it waits. Call once the
    /// application object exists; further calls do nothing.
    void listen();
    /// Sends the requests now.
    void flush();
    /// Waits until the compositor has handled all requests so far. Delivers no event. False when the connection is
    /// lost.
    bool waitUntilHandled();
    /// Waits for events and delivers them, without an event loop. False when none came in time or the connection is lost.
    bool waitForEvents(std::chrono::milliseconds patience = std::chrono::milliseconds(-1));
    /// Delivers all events that the compositor has sent so far. False when the connection is lost.
    bool deliverAll();

    [[nodiscard]] wl_display* get() const { return m_display; }
    /// Never null.
    [[nodiscard]] wl_compositor* compositor() const { return m_compositor.get(); }
    /// Never null.
    [[nodiscard]] wl_subcompositor* subcompositor() const { return m_subcompositor.get(); }
    /// Never null.
    [[nodiscard]] wl_shm* shm() const { return m_shm.get(); }
    /// Whether surfaces may show buffers of this wl_shm_format.
    [[nodiscard]] bool showsFormat(std::uint32_t format) const { return m_formats.contains(format); }

    /// Binds a global that the compositor offers, with this version at most. Null when it offers none.
    template <typename Proxy>
    [[nodiscard]] Proxy* bind(const wl_interface& interface, std::uint32_t version) const
    {
        return static_cast<Proxy*>(bindGlobal(interface, version));
    }

    [[nodiscard]] const std::vector<std::unique_ptr<WaylandOutput>>& outputs() const { return m_outputs; }

Q_SIGNALS:
    /// All events that were there have been delivered.
    void drained();
    /// The output is destroyed when the slots have returned.
    void outputRemoved(tintwick::WaylandOutput* output);
    /// The compositor has ended the connection. Nothing works any more.
    void closed();

private:
    struct Global
    {
        std::uint32_t name;
        std::string_view interface;
        std::uint32_t version;
    };

    explicit WaylandConnection(wl_display* display);

    [[nodiscard]] void* bindGlobal(const wl_interface& interface, std::uint32_t version) const;
    void addGlobal(std::uint32_t name, std::string_view interface, std::uint32_t version);
    void removeGlobal(std::uint32_t name);
    void addOutput(std::uint32_t name, std::uint32_t version);
    void drain();
    void reportLoss();

    wl_display* m_display;
    WlRegistry m_registry;
    std::vector<Global> m_globals;
    /// Owns the names that m_globals views.
    std::set<std::string, std::less<>> m_interfaceNames;
    WlCompositor m_compositor;
    WlSubcompositor m_subcompositor;
    WlShm m_shm;
    std::set<std::uint32_t> m_formats;
    zxdg_output_manager_v1* m_outputDescriptions = nullptr;
    std::vector<std::unique_ptr<WaylandOutput>> m_outputs;
    std::unique_ptr<QSocketNotifier> m_readable;
    std::unique_ptr<QSocketNotifier> m_writable;
    bool m_isLost = false;
};

} // namespace tintwick
