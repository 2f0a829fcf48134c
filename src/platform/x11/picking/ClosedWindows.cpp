#include "ClosedWindows.h"

#include "StackedWindow.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

namespace tintwick {

namespace {

constexpr std::chrono::seconds memory{1};

} // namespace

ClosedWindows::ClosedWindows(const XcbConnection& connection)
    : m_connection(connection)
{
    qGuiApp->installEventFilter(this);
}

QRegion ClosedWindows::region() const
{
    const auto oldest = std::chrono::steady_clock::now() - memory;
    QRegion region;
    for (const ClosedWindow& window : m_windows) {
        if (window.when >= oldest) {
            region += window.area;
        }
    }
    return region;
}

// The server destroys a popup's window shortly after this, and the toolkit reports its geometry only in its own scale.
bool ClosedWindows::eventFilter(QObject* watched, QEvent* event)
{
    const auto* window = event->type() == QEvent::Hide ? qobject_cast<const QWindow*>(watched) : nullptr;
    if (!window || !window->handle()) {
        return false;
    }
    xcb_connection_t* c = m_connection.get();
    const auto id = static_cast<xcb_window_t>(window->winId());
    const auto geometryCookie = xcb_get_geometry(c, id);
    const auto originCookie = xcb_translate_coordinates(c, id, m_connection.root(), 0, 0);
    const XcbReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(c, geometryCookie, nullptr));
    const XcbReply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(c, originCookie, nullptr));
    if (geometry && origin) {
        add({origin->dst_x, origin->dst_y, geometry->width, geometry->height});
    }
    return false;
}

void ClosedWindows::add(const QRect& frame)
{
    const auto now = std::chrono::steady_clock::now();
    std::erase_if(m_windows, [&](const ClosedWindow& closed) { return closed.when < now - memory; });
    m_windows.push_back({withShadow(frame), now});
}

} // namespace tintwick
