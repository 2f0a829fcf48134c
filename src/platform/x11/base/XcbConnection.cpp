#include "XcbConnection.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QSocketNotifier>

#include <algorithm>
#include <chrono>

namespace tintwick {

namespace {

// A client that draws without pause causes events faster than they are handled. What is due when the queue is empty,
// such as a move of the pointer, waits for no longer than this.
constexpr std::chrono::milliseconds longestTurn{8};

xcb_screen_t* screenOfNumber(xcb_connection_t* connection, int number)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; number > 0 && screens.rem > 1; --number) {
        xcb_screen_next(&screens);
    }
    return screens.data;
}

} // namespace

XcbConnection::Subscription::~Subscription()
{
    if (m_connection) {
        m_connection->unsubscribe(*m_sink);
    }
}

std::unique_ptr<XcbConnection> XcbConnection::open()
{
    int screenNumber = 0;
    xcb_connection_t* connection = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        return nullptr;
    }
    return std::unique_ptr<XcbConnection>(new XcbConnection(connection, screenNumber));
}

XcbConnection::XcbConnection(xcb_connection_t* connection, int screenNumber)
    : m_connection(connection)
    , m_screenNumber(screenNumber)
    , m_screen(screenOfNumber(connection, screenNumber))
{
}

XcbConnection::~XcbConnection()
{
    m_notifier.reset();
    xcb_disconnect(m_connection);
}

XcbConnection::Subscription XcbConnection::subscribe(Sink& sink)
{
    listen();
    m_sinks.push_back(&sink);
    return {*this, sink};
}

void XcbConnection::unsubscribe(Sink& sink)
{
    // A sink that subscribes again is briefly listed twice.
    const auto oldest = std::find(m_sinks.begin(), m_sinks.end(), &sink);
    if (oldest != m_sinks.end()) {
        m_sinks.erase(oldest);
    }
}

// Listening starts with the first sink, because the connection is opened before the application object exists.
void XcbConnection::listen()
{
    if (m_notifier) {
        return;
    }
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &XcbConnection::drain);
    // Waiting for a reply can move events into the queue without another notification of the socket.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &XcbConnection::drain);
}

void XcbConnection::drain()
{
    if (std::exchange(m_isDraining, true)) {
        return;
    }
    // A sink may subscribe or unsubscribe others while it handles the event.
    const auto forEachSink = [this](const auto& deliver) {
        for (Sink* sink : std::vector<Sink*>(m_sinks)) {
            if (std::find(m_sinks.begin(), m_sinks.end(), sink) != m_sinks.end()) {
                deliver(*sink);
            }
        }
    };
    bool handledAny = false;
    const auto end = std::chrono::steady_clock::now() + longestTurn;
    while (const XcbReply<xcb_generic_event_t> event{
        std::chrono::steady_clock::now() < end ? xcb_poll_for_event(m_connection) : nullptr}) {
        handledAny = true;
        forEachSink([&](Sink& sink) { sink.handleEvent(*event); });
    }
    if (handledAny) {
        forEachSink([](Sink& sink) { sink.eventsDrained(); });
        // Requests of the sinks may have queued further events.
        QMetaObject::invokeMethod(this, &XcbConnection::drain, Qt::QueuedConnection);
    }
    m_isDraining = false;
    if (xcb_connection_has_error(m_connection) != 0 && m_notifier) {
        m_notifier->setEnabled(false);
        QCoreApplication::exit(EXIT_FAILURE);
        return;
    }
    flush();
}

xcb_atom_t XcbConnection::atom(const std::string& name) const
{
    const auto known = m_atoms.find(name);
    if (known != m_atoms.end()) {
        return known->second;
    }
    const auto cookie =
        xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return m_atoms[name] = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_window_t XcbConnection::selectionOwner(xcb_atom_t selection) const
{
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        m_connection, xcb_get_selection_owner(m_connection, selection), nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_NONE};
}

} // namespace tintwick
