#include "WaylandConnection.h"

#include <xdg-output-unstable-v1-client-protocol.h>

#include <QAbstractEventDispatcher>
#include <QSocketNotifier>

#include <algorithm>
#include <cerrno>
#include <utility>

#include <poll.h>

namespace tintwick {

namespace {

constexpr std::uint32_t compositorVersion = 4;
constexpr std::uint32_t outputVersion = 4;
constexpr std::uint32_t outputManagerVersion = 3;

} // namespace

std::unique_ptr<WaylandConnection> WaylandConnection::open()
{
    wl_display* display = wl_display_connect(nullptr);
    if (!display) {
        return nullptr;
    }
    std::unique_ptr<WaylandConnection> connection(new WaylandConnection(display));
    // The globals, then what the first objects report about themselves.
    if (!connection->deliverAll() || !connection->deliverAll() || !connection->m_compositor ||
        !connection->m_subcompositor || !connection->m_shm) {
        return nullptr;
    }
    return connection;
}

WaylandConnection::WaylandConnection(wl_display* display)
    : m_display(display)
    , m_registry(wl_display_get_registry(display))
{
    static constexpr wl_registry_listener listener{
        .global =
            [](void* self, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t version) {
                static_cast<WaylandConnection*>(self)->addGlobal(name, interface, version);
            },
        .global_remove =
            [](void* self, wl_registry*, std::uint32_t name) {
                static_cast<WaylandConnection*>(self)->removeGlobal(name);
            }};
    wl_registry_add_listener(m_registry.get(), &listener, this);
}

WaylandConnection::~WaylandConnection()
{
    m_readable.reset();
    m_writable.reset();
    m_outputs.clear();
    if (m_outputDescriptions) {
        zxdg_output_manager_v1_destroy(m_outputDescriptions);
    }
    m_shm.reset();
    m_subcompositor.reset();
    m_compositor.reset();
    m_registry.reset();
    wl_display_disconnect(m_display);
}

void WaylandConnection::addGlobal(std::uint32_t name, std::string_view interface, std::uint32_t version)
{
    m_globals.push_back({name, *m_interfaceNames.emplace(interface).first, version});
    if (interface == wl_compositor_interface.name) {
        m_compositor.reset(bind<wl_compositor>(wl_compositor_interface, compositorVersion));
    } else if (interface == wl_subcompositor_interface.name) {
        m_subcompositor.reset(bind<wl_subcompositor>(wl_subcompositor_interface, 1));
    } else if (interface == wl_shm_interface.name) {
        static constexpr wl_shm_listener listener{[](void* self, wl_shm*, std::uint32_t format) {
            static_cast<WaylandConnection*>(self)->m_formats.insert(format);
        }};
        m_shm.reset(bind<wl_shm>(wl_shm_interface, 1));
        wl_shm_add_listener(m_shm.get(), &listener, this);
    } else if (interface == zxdg_output_manager_v1_interface.name) {
        m_outputDescriptions =
            bind<zxdg_output_manager_v1>(zxdg_output_manager_v1_interface, outputManagerVersion);
        for (const auto& output : m_outputs) {
            output->describe(*m_outputDescriptions);
        }
    } else if (interface == wl_output_interface.name) {
        addOutput(name, version);
    }
}

void WaylandConnection::addOutput(std::uint32_t name, std::uint32_t version)
{
    WlOutput output(static_cast<wl_output*>(
        wl_registry_bind(m_registry.get(), name, &wl_output_interface, std::min(version, outputVersion))));
    m_outputs.push_back(std::make_unique<WaylandOutput>(std::move(output), name));
    if (m_outputDescriptions) {
        m_outputs.back()->describe(*m_outputDescriptions);
    }
}

void WaylandConnection::removeGlobal(std::uint32_t name)
{
    std::erase_if(m_globals, [name](const Global& global) { return global.name == name; });
    const auto removed =
        std::ranges::find_if(m_outputs, [name](const auto& output) { return output->globalName() == name; });
    if (removed != m_outputs.end()) {
        const std::unique_ptr<WaylandOutput> output = std::move(*removed);
        m_outputs.erase(removed);
        Q_EMIT outputRemoved(output.get());
    }
}

void* WaylandConnection::bindGlobal(const wl_interface& interface, std::uint32_t version) const
{
    const auto found = std::ranges::find_if(
        m_globals, [&](const Global& global) { return global.interface == interface.name; });
    if (found == m_globals.end()) {
        return nullptr;
    }
    return wl_registry_bind(m_registry.get(), found->name, &interface, std::min(version, found->version));
}

// Listening starts later than the connection, which is opened before the application object exists.
void WaylandConnection::listen()
{
    if (m_readable) {
        return;
    }
    const int file = wl_display_get_fd(m_display);
    m_readable = std::make_unique<QSocketNotifier>(file, QSocketNotifier::Read);
    m_writable = std::make_unique<QSocketNotifier>(file, QSocketNotifier::Write);
    m_writable->setEnabled(false);
    connect(m_readable.get(), &QSocketNotifier::activated, this, &WaylandConnection::drain);
    connect(m_writable.get(), &QSocketNotifier::activated, this, &WaylandConnection::flush);
    // Waiting for the compositor can read events without delivering them.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, [this] {
        if (wl_display_dispatch_pending(m_display) > 0) {
            Q_EMIT drained();
        }
        flush();
    });
    drain();
}

void WaylandConnection::drain()
{
    bool isRead = wl_display_prepare_read(m_display) != 0;
    if (!isRead) {
        isRead = wl_display_read_events(m_display) == 0;
    }
    if (!isRead || wl_display_dispatch_pending(m_display) < 0) {
        reportLoss();
        return;
    }
    Q_EMIT drained();
    flush();
}

void WaylandConnection::flush()
{
    const bool isFull = wl_display_flush(m_display) < 0 && errno == EAGAIN;
    if (m_writable) {
        m_writable->setEnabled(isFull);
    }
    if (wl_display_get_error(m_display) != 0) {
        reportLoss();
    }
}

bool WaylandConnection::waitUntilHandled()
{
    wl_event_queue* queue = wl_display_create_queue(m_display);
    const bool isHandled = wl_display_roundtrip_queue(m_display, queue) >= 0;
    wl_event_queue_destroy(queue);
    return isHandled;
}

bool WaylandConnection::deliverAll()
{
    return wl_display_roundtrip(m_display) >= 0;
}

bool WaylandConnection::waitForEvents(std::chrono::milliseconds patience)
{
    if (wl_display_prepare_read(m_display) == 0) {
        wl_display_flush(m_display);
        pollfd socket{.fd = wl_display_get_fd(m_display), .events = POLLIN, .revents = 0};
        if (::poll(&socket, 1, static_cast<int>(patience.count())) <= 0) {
            wl_display_cancel_read(m_display);
            return false;
        }
        if (wl_display_read_events(m_display) < 0) {
            return false;
        }
    }
    return wl_display_dispatch_pending(m_display) >= 0;
}

void WaylandConnection::reportLoss()
{
    if (std::exchange(m_isLost, true) || !m_readable) {
        return;
    }
    m_readable->setEnabled(false);
    m_writable->setEnabled(false);
    Q_EMIT closed();
}

} // namespace tintwick
