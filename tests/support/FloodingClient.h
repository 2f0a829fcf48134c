#pragma once

#include <QByteArray>
#include <QRect>

#include <atomic>
#include <thread>

namespace tintwick {

/// A client that draws into its windows as fast as the server accepts it, from a thread of its own, until destroyed.
class FloodingClient final
{
public:
    /// Divides this part of the screen into `count` windows side by side.
    FloodingClient(const QByteArray& display, const QRect& area, int count);
    ~FloodingClient();
    FloodingClient(const FloodingClient&) = delete;
    FloodingClient& operator=(const FloodingClient&) = delete;

private:
    void draw(const QByteArray& display, const QRect& area, int count);

    std::atomic_bool m_isStopped = false;
    std::thread m_thread;
};

} // namespace tintwick
