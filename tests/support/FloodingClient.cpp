#include "support/FloodingClient.h"

#include "support/DesktopConnection.h"
#include "support/TestWindow.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace tintwick {

namespace {

// Small parts far apart, so that their damage does not merge.
constexpr int side = 6;

xcb_rectangle_t randomPart(std::uint32_t random, const QSize& size)
{
    const auto x = (random >> 8U) % static_cast<std::uint32_t>(size.width() - side);
    const auto y = (random >> 20U) % static_cast<std::uint32_t>(size.height() - side);
    return {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), side, side};
}

} // namespace

FloodingClient::FloodingClient(const QByteArray& display, const QRect& area, int count)
    : m_thread([this, display, area, count] { draw(display, area, count); })
{
}

FloodingClient::~FloodingClient()
{
    m_isStopped = true;
    m_thread.join();
}

void FloodingClient::draw(const QByteArray& display, const QRect& area, int count)
{
    DesktopConnection connection(display);
    const QSize size(area.width() / count, area.height());
    std::vector<std::unique_ptr<TestWindow>> windows;
    for (int i = 0; i < count; ++i) {
        const QRect place(area.topLeft() + QPoint(i * size.width(), 0), size);
        windows.push_back(std::make_unique<TestWindow>(connection, TestWindow::Options{.geometry = place}));
        windows.back()->show();
    }
    xcb_connection_t* c = connection.get();
    const xcb_gcontext_t gc = connection.newId();
    xcb_create_gc(c, gc, windows.front()->id(), 0, nullptr);
    std::uint32_t random = 1;
    while (!m_isStopped) {
        for (const auto& window : windows) {
            random = random * 1664525U + 1013904223U;
            xcb_change_gc(c, gc, XCB_GC_FOREGROUND, &random);
            const xcb_rectangle_t part = randomPart(random, size);
            xcb_poly_fill_rectangle(c, window->id(), gc, 1, &part);
        }
        xcb_flush(c);
    }
}

} // namespace tintwick
