#pragma once

#include "KeyPress.h"
#include "ModifierMap.h"
#include "PickingSession.h"
#include "ScrollDelta.h"
#include "ScrollValuators.h"
#include "XcbConnection.h"
#include "XcbHandle.h"
#include "XkbKeymap.h"

#include <QPointF>

#include <xcb/xinput.h>

#include <cstdint>
#include <map>
#include <optional>
#include <set>

namespace tintwick {

/// Active grabs of the pointer and the keyboard, with an empty cursor. The server releases both when the connection
/// closes, however the process ends. Positions are in root coordinates, with fractions.
class InputGrab final : private XcbConnection::Sink
{
public:
    class Listener
    {
    public:
        virtual void pointerMoved(QPointF position) = 0;
        virtual void buttonPressed(PointerButton button, QPointF position, int modifiers) = 0;
        virtual void scrolled(ScrollDelta delta) = 0;
        virtual void keyPressed(const KeyPress& press) = 0;

    protected:
        ~Listener() = default;
    };

    enum class Outcome : std::uint8_t { Started, NoInputExtension, PointerIsHeld, KeyboardIsHeld };

    /// Both must outlive this object.
    InputGrab(XcbConnection& connection, XkbKeymap& keymap);
    ~InputGrab();

    enum class Patience : std::uint8_t {
        None,
        /// Waits for at most 150 ms while another client holds the pointer or the keyboard.
        Brief
    };

    /// Nothing is hidden or grabbed unless it returns Started. The listener must live until end().
    [[nodiscard]] Outcome begin(Listener& listener, Patience patience);
    /// Shows the pointer and releases each grab once no button or key of the pick is down, so that no other client
    /// receives their releases. Does nothing when not begun.
    void end();

    /// The pointer position in whole pixels; the origin when the server does not reply.
    [[nodiscard]] QPointF pointerPosition() const;
    /// Moves the pointer. Earlier moves are no longer reported.
    void warpPointer(QPoint position);

private:
    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsDrained() override;
    void handleButton(const xcb_input_button_press_event_t& event, bool isPress);
    void handleKey(const xcb_input_key_press_event_t& event, bool isPress);
    void handleMotion(const xcb_input_motion_event_t& event);
    void deliverPendingMove();
    [[nodiscard]] KeyPress toKeyPress(const xcb_input_key_press_event_t& event);
    [[nodiscard]] const ModifierMap& modifierMap();
    [[nodiscard]] bool findDevices();
    void readScrollAxes(xcb_input_device_class_iterator_t classes);
    [[nodiscard]] bool scrollsInPoints(xcb_input_device_id_t device);
    [[nodiscard]] bool grab(xcb_input_device_id_t device, xcb_cursor_t cursor, std::uint32_t events) const;
    [[nodiscard]] bool grabPointer(xcb_cursor_t cursor) const;
    [[nodiscard]] bool grabKeyboard() const;
    void ungrab(xcb_input_device_id_t device) const;
    void releaseIdleGrabs();

    XcbConnection& m_connection;
    std::uint8_t m_extension = 0;
    xcb_input_device_id_t m_pointer = 0;
    xcb_input_device_id_t m_keyboard = 0;
    XcbCursor m_blankCursor;
    xcb_atom_t m_tappingProperty = XCB_ATOM_NONE;
    /// Null while idle, and after end() until the last button or key of the pick is released.
    Listener* m_listener = nullptr;
    bool m_holdsPointer = false;
    bool m_holdsKeyboard = false;
    std::set<std::uint32_t> m_buttonsDown;
    std::set<std::uint32_t> m_keysDown;
    std::optional<QPointF> m_pendingMove;
    /// Moves that the server reports before this request are outdated.
    std::uint32_t m_lastWarp = 0;
    XkbKeymap& m_keymap;
    /// Queried with the first key or button of a pick.
    std::optional<ModifierMap> m_modifiers;
    ScrollValuators m_scrollAxes;
    std::map<xcb_input_device_id_t, bool> m_scrollsInPoints;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
