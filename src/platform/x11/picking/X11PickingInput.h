#pragma once

#include "PickingInput.h"
#include "ScrollValuators.h"
#include "XcbConnection.h"
#include "XcbHandle.h"

#include <xcb/xinput.h>

#include <map>
#include <optional>
#include <set>

namespace tintwick {

/// Active grabs of the pointer and the keyboard, with an empty cursor. Nothing is shown and nothing stored; the server
/// gives all back when the connection closes, however the process ends.
class X11PickingInput final : public PickingInput, private XcbConnection::Sink
{
public:
    explicit X11PickingInput(XcbConnection& connection);
    ~X11PickingInput();

    [[nodiscard]] Outcome begin(Listener& listener) override;
    void end() override;
    [[nodiscard]] DesktopPoint pointerPosition() const override;
    void movePointerBy(double dx, double dy) override;

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsDrained() override;
    void handleButton(const xcb_input_button_press_event_t& event, bool isPress);
    void handleKey(const xcb_input_key_press_event_t& event, bool isPress);
    void handleMotion(const xcb_input_motion_event_t& event);
    void deliverPendingMove();

    [[nodiscard]] bool findDevices();
    void readScrollAxes(xcb_input_device_class_iterator_t classes);
    [[nodiscard]] bool scrollsInPoints(xcb_input_device_id_t device);
    [[nodiscard]] bool grab(xcb_input_device_id_t device, xcb_cursor_t cursor, std::uint32_t events) const;
    [[nodiscard]] bool grabBoth() const;
    [[nodiscard]] bool grabPointer(xcb_cursor_t cursor) const;
    [[nodiscard]] bool grabKeyboard() const;
    void ungrab(xcb_input_device_id_t device) const;
    void releaseWhatIsUp();

    XcbConnection& m_connection;
    std::uint8_t m_extension = 0;
    xcb_input_device_id_t m_pointer = 0;
    xcb_input_device_id_t m_keyboard = 0;
    XcbCursor m_blankCursor;
    xcb_atom_t m_tappingProperty = XCB_ATOM_NONE;

    /// None while idle, and while only the releases of the last pick are awaited.
    Listener* m_listener = nullptr;
    bool m_holdsPointer = false;
    bool m_holdsKeyboard = false;
    std::set<std::uint32_t> m_buttonsDown;
    std::set<std::uint32_t> m_keysDown;
    std::optional<DesktopPoint> m_pendingMove;
    ScrollValuators m_scrollAxes;
    std::map<xcb_input_device_id_t, bool> m_scrollsInPoints;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
