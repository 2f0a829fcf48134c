#include "LoupeWindow.h"

#include "ScreenReader.h"

#include <utility>

namespace tintwick {

LoupeWindow::LoupeWindow(XcbConnection& connection, ScreenReader& reader)
    : m_connection(connection)
    , m_reader(reader)
    , m_isComposited(reader.isComposited())
    , m_window(connection, "Tintwick Loupe")
{
    m_subscription = m_connection.subscribe(*this);
}

void LoupeWindow::show(const QImage& picture, QPoint topLeft)
{
    const bool isComposited = m_reader.isComposited();
    const QRect before = m_window.frame();
    m_reader.loupeWillCover(QRect(topLeft, picture.size()));
    if (picture.size() != before.size() || isComposited != m_isComposited) {
        if (m_window.isMapped()) {
            // It grows before it moves.
            m_reader.loupeWillCover(QRect(before.topLeft(), picture.size()));
        }
        m_isComposited = isComposited;
        m_window.fit(picture, isComposited);
    }
    m_window.show(picture, topLeft);
    m_connection.flush();
}

void LoupeWindow::handleEvent(const xcb_generic_event_t& event)
{
    const int type = event.response_type & 0x7f;
    if (type == XCB_MAP_NOTIFY) {
        m_isCovered |= reinterpret_cast<const xcb_map_notify_event_t&>(event).window != m_window.id();
    } else if (type == XCB_CONFIGURE_NOTIFY) {
        const auto& notify = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
        m_isCovered |= notify.above_sibling == m_window.id();
    }
}

// A window that opens or is raised covers the loupe.
void LoupeWindow::eventsDrained()
{
    if (std::exchange(m_isCovered, false)) {
        m_reader.loupeWillCover(m_window.frame());
        m_window.raise();
        m_reader.putFrozenBelow(m_window.id());
    }
}

} // namespace tintwick
