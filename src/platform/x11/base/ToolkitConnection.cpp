#include "ToolkitConnection.h"

#include "XcbConnection.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QWindow>

namespace tintwick::toolkit {

namespace {

constexpr int replyTimeout = 100; // milliseconds; a reply takes far less than one

/// Waits for a property change of a window in the toolkit's events.
class PropertyChangeWatch final : public QAbstractNativeEventFilter
{
public:
    explicit PropertyChangeWatch(xcb_window_t window)
        : m_window(window)
    {
        qGuiApp->installNativeEventFilter(this);
    }
    ~PropertyChangeWatch() override { qGuiApp->removeNativeEventFilter(this); }
    PropertyChangeWatch(const PropertyChangeWatch&) = delete;
    PropertyChangeWatch& operator=(const PropertyChangeWatch&) = delete;

    [[nodiscard]] bool wasSeen() const { return m_wasSeen; }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override
    {
        const auto* event = static_cast<const xcb_generic_event_t*>(message);
        if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY &&
            reinterpret_cast<const xcb_property_notify_event_t*>(event)->window == m_window) {
            m_wasSeen = true;
        }
        return false;
    }

private:
    xcb_window_t m_window;
    bool m_wasSeen = false;
};

} // namespace

xcb_connection_t* connection()
{
    if (!qGuiApp) {
        return nullptr;
    }
    const auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return native ? native->connection() : nullptr;
}

void sync()
{
    if (xcb_connection_t* c = connection()) {
        const XcbReply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
    }
}

Clock::Clock() = default;
Clock::~Clock() = default;

void Clock::bringUpToDate()
{
    xcb_connection_t* c = connection();
    if (!c) {
        return;
    }
    if (!m_window) {
        m_window = std::make_unique<QWindow>();
        m_window->create();
    }
    const auto window = static_cast<xcb_window_t>(m_window->winId());
    const PropertyChangeWatch watch(window);
    // Appending nothing leaves the property unchanged, but the server sends an event with its time.
    xcb_change_property(c, XCB_PROP_MODE_APPEND, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 0, nullptr);
    sync();
    const QDeadlineTimer deadline(replyTimeout);
    while (!watch.wasSeen() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                        QEventLoop::ExcludeSocketNotifiers);
    }
}

} // namespace tintwick::toolkit
