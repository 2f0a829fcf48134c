#pragma once

#include "PictureWindow.h"
#include "PointerBadge.h"
#include "XcbConnection.h"

#include <QPoint>

#include <cstdint>
#include <optional>

namespace tintwick {

class ClosedWindows;

/// The badge as a window of its own beside the pointer. Moves with the raw motion of the devices, which the server
/// reports also while another client holds the pointer.
class X11PointerBadge final : public PointerBadge, private XcbConnection::Sink
{
public:
    /// Both must outlive the badge. The application object must exist.
    X11PointerBadge(XcbConnection& connection, ClosedWindows& closedWindows);
    ~X11PointerBadge() override;

    void show(const Draw& draw, Place place) override;
    void hide() override;

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsDrained() override;
    [[nodiscard]] QPoint pointer() const;
    void selectMotion(bool selects);
    /// Draws for the screen with the pointer.
    void drawAt(QPoint pointer);

    XcbConnection& m_connection;
    ClosedWindows& m_closedWindows;
    std::uint8_t m_inputExtension;
    Draw m_draw;
    std::optional<PictureWindow> m_window;
    bool m_hasMoved = false;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
