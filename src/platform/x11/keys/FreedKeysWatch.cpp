#include "FreedKeysWatch.h"

namespace tintwick {

namespace {

// A program that ends destroys many windows, and so does a user who closes one after the other.
constexpr std::chrono::milliseconds destroyedWindowsDelay{200};

} // namespace

FreedKeysWatch::FreedKeysWatch(std::chrono::milliseconds interval)
{
    m_interval.setInterval(interval);
    // A coarse timer may be early.
    m_interval.setTimerType(Qt::PreciseTimer);
    connect(&m_interval, &QTimer::timeout, this, &FreedKeysWatch::mayBeFree);
    m_afterDestroy.setInterval(destroyedWindowsDelay);
    m_afterDestroy.setSingleShot(true);
    connect(&m_afterDestroy, &QTimer::timeout, this, &FreedKeysWatch::mayBeFree);
}

FreedKeysWatch::~FreedKeysWatch() = default;

void FreedKeysWatch::setActive(bool isActive)
{
    if (isActive == m_interval.isActive()) {
        return;
    }
    if (!isActive) {
        m_interval.stop();
        m_afterDestroy.stop();
        m_subscription.reset();
        m_connection.reset();
        return;
    }
    m_interval.start();
    // The holder may end before the server knows that its windows are watched.
    m_afterDestroy.start();
    m_connection = XcbConnection::open();
    if (m_connection) {
        m_subscription = m_connection->subscribe(*this);
        constexpr std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection->get(), m_connection->root(), XCB_CW_EVENT_MASK, &events);
        m_connection->flush();
    }
}

void FreedKeysWatch::handleEvent(const xcb_generic_event_t& event)
{
    if (event.response_type == XCB_DESTROY_NOTIFY && !m_afterDestroy.isActive()) {
        m_afterDestroy.start();
    }
}

} // namespace tintwick
