#pragma once

#include <QObject>
#include <QString>

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QSocketNotifier;

namespace tintwick {

/// Replies, errors and events are the receiver's to free.
struct XcbFree
{
    void operator()(void* memory) const { std::free(memory); }
};
template <typename Reply>
using XcbReply = std::unique_ptr<Reply, XcbFree>;

/// A private connection to the X server, separate from the toolkit's. The server releases its grabs and redirections
/// when it closes, however the process ends. Events are read on the event loop and passed to each sink in turn, also
/// while a sink runs a nested event loop.
class XcbConnection final : public QObject
{
    Q_OBJECT

public:
    class Sink
    {
    public:
        /// Every sink receives every event and selects its own.
        virtual void handleEvent(const xcb_generic_event_t& event) = 0;
        /// The queue is empty, or many events have been handled. Process the collected events here.
        virtual void eventsDrained() {}

    protected:
        ~Sink() = default;
    };

    /// Removes its sink when destroyed.
    class Subscription final
    {
    public:
        Subscription() = default;
        Subscription(XcbConnection& connection, Sink& sink)
            : m_connection(&connection)
            , m_sink(&sink)
        {
        }
        Subscription(Subscription&& other) noexcept { swap(other); }
        Subscription& operator=(Subscription&& other) noexcept
        {
            swap(other);
            return *this;
        }
        Subscription(const Subscription&) = delete;
        Subscription& operator=(const Subscription&) = delete;
        ~Subscription();

    private:
        void swap(Subscription& other) noexcept
        {
            std::swap(m_connection, other.m_connection);
            std::swap(m_sink, other.m_sink);
        }

        XcbConnection* m_connection = nullptr;
        Sink* m_sink = nullptr;
    };

    /// Connects to $DISPLAY; null when there is no server.
    [[nodiscard]] static std::unique_ptr<XcbConnection> open();
    ~XcbConnection() override;

    [[nodiscard]] xcb_connection_t* get() const { return m_connection; }
    [[nodiscard]] const xcb_screen_t& screen() const { return *m_screen; }
    [[nodiscard]] xcb_window_t root() const { return m_screen->root; }
    [[nodiscard]] int screenNumber() const { return m_screenNumber; }

    [[nodiscard]] Subscription subscribe(Sink& sink);

    /// Sends one request for each name.
    [[nodiscard]] xcb_atom_t atom(const std::string& name) const;
    /// XCB_NONE when the selection has no owner.
    [[nodiscard]] xcb_window_t selectionOwner(xcb_atom_t selection) const;
    [[nodiscard]] std::uint32_t newId() const { return xcb_generate_id(m_connection); }
    void flush() const { xcb_flush(m_connection); }

private:
    XcbConnection(xcb_connection_t* connection, int screenNumber);

    void listen();
    void drain();
    void unsubscribe(Sink& sink);

    xcb_connection_t* m_connection;
    int m_screenNumber;
    xcb_screen_t* m_screen;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::vector<Sink*> m_sinks;
    bool m_isDraining = false;
    mutable std::map<std::string, xcb_atom_t> m_atoms;
};

} // namespace tintwick
