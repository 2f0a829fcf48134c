#include "InputGrab.h"

#include "EvdevKeys.h"
#include "GrabRetry.h"
#include "ToolkitConnection.h"
#include "XInput.h"

#include <utility>

namespace tintwick {

namespace {

constexpr std::uint32_t pointerEvents =
    XCB_INPUT_XI_EVENT_MASK_MOTION | XCB_INPUT_XI_EVENT_MASK_BUTTON_PRESS |
    XCB_INPUT_XI_EVENT_MASK_BUTTON_RELEASE | XCB_INPUT_XI_EVENT_MASK_DEVICE_CHANGED;
constexpr std::uint32_t keyboardEvents =
    XCB_INPUT_XI_EVENT_MASK_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_KEY_RELEASE;

constexpr std::uint32_t wheelUp = 4;
constexpr std::uint32_t wheelDown = 5;
constexpr std::uint32_t firstPlainButtonAfterWheel = 8;

double toDouble(xcb_input_fp1616_t value)
{
    return value / 65536.0;
}

double toDouble(xcb_input_fp3232_t value)
{
    return value.integral + value.frac / 4294967296.0;
}

PointerButton toButton(std::uint32_t button)
{
    switch (button) {
    case 1:
        return PointerButton::Primary;
    case 2:
        return PointerButton::Middle;
    case 3:
        return PointerButton::Secondary;
    default:
        return PointerButton::Other;
    }
}

XcbCursor createBlankCursor(XcbConnection& connection)
{
    xcb_connection_t* c = connection.get();
    const auto pixmap = XcbPixmap::withNewId(c);
    xcb_create_pixmap(c, 1, pixmap.id(), connection.root(), 1, 1);
    const auto gc = XcbGraphicsContext::withNewId(c);
    const std::uint32_t transparent = 0;
    xcb_create_gc(c, gc.id(), pixmap.id(), XCB_GC_FOREGROUND, &transparent);
    const xcb_rectangle_t pixel{0, 0, 1, 1};
    xcb_poly_fill_rectangle(c, pixmap.id(), gc.id(), 1, &pixel);
    XcbCursor cursor = XcbCursor::withNewId(c);
    xcb_create_cursor(c, cursor.id(), pixmap.id(), pixmap.id(), 0, 0, 0, 0, 0, 0, 0, 0);
    return cursor;
}

} // namespace

InputGrab::InputGrab(XcbConnection& connection, XkbKeymap& keymap)
    : m_connection(connection)
    , m_extension(openInputExtension(connection))
    , m_tappingProperty(connection.atom("libinput Tapping Enabled"))
    , m_keymap(keymap)
{
}

InputGrab::~InputGrab()
{
    m_buttonsDown.clear();
    m_keysDown.clear();
    end();
}

InputGrab::Outcome InputGrab::begin(Listener& listener, Patience patience)
{
    // What the toolkit has already released must not look grabbed.
    toolkit::sync();
    if (m_extension == 0 || !findDevices()) {
        return Outcome::NoInputExtension;
    }
    if (!m_blankCursor) {
        m_blankCursor = createBlankCursor(m_connection);
    }
    Outcome outcome = Outcome::Started;
    const auto grabBoth = [&] {
        if (!grabPointer(m_blankCursor.id())) {
            outcome = Outcome::PointerIsHeld;
            return false;
        }
        if (!grabKeyboard()) {
            outcome = Outcome::KeyboardIsHeld;
            ungrab(m_pointer);
            return false;
        }
        return true;
    };
    if (patience == Patience::Brief ? !retryGrab(grabBoth) : !grabBoth()) {
        m_holdsPointer = m_holdsKeyboard = false;
        m_buttonsDown.clear();
        m_keysDown.clear();
        m_subscription = {};
        m_connection.flush();
        return outcome;
    }
    m_holdsPointer = m_holdsKeyboard = true;
    m_listener = &listener;
    m_pendingMove.reset();
    // Devices that were plugged in meanwhile may have the numbers of others; the layout may be another one.
    m_scrollsInPoints.clear();
    m_modifiers.reset();
    m_lastWarp = 0;
    m_subscription = m_connection.subscribe(*this);
    return Outcome::Started;
}

void InputGrab::end()
{
    m_listener = nullptr;
    m_pendingMove.reset();
    releaseIdleGrabs();
    if (m_holdsPointer) {
        // The release of the button is still grabbed, but the pointer is visible again.
        static_cast<void>(grabPointer(XCB_CURSOR_NONE));
    }
}

QPointF InputGrab::pointerPosition() const
{
    xcb_connection_t* c = m_connection.get();
    const XcbReply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(c, xcb_query_pointer(c, m_connection.root()), nullptr));
    return pointer ? QPointF(pointer->root_x, pointer->root_y) : QPointF();
}

void InputGrab::warpPointer(QPoint position)
{
    m_pendingMove.reset();
    m_lastWarp =
        xcb_warp_pointer(m_connection.get(), XCB_NONE, m_connection.root(), 0, 0, 0, 0,
                         static_cast<std::int16_t>(position.x()), static_cast<std::int16_t>(position.y()))
            .sequence;
    m_connection.flush();
}

void InputGrab::handleEvent(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) != XCB_GE_GENERIC) {
        return;
    }
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (generic.extension != m_extension) {
        return;
    }
    switch (generic.event_type) {
    case XCB_INPUT_MOTION:
        handleMotion(reinterpret_cast<const xcb_input_motion_event_t&>(event));
        break;
    case XCB_INPUT_BUTTON_PRESS:
    case XCB_INPUT_BUTTON_RELEASE:
        handleButton(reinterpret_cast<const xcb_input_button_press_event_t&>(event),
                     generic.event_type == XCB_INPUT_BUTTON_PRESS);
        break;
    case XCB_INPUT_KEY_PRESS:
    case XCB_INPUT_KEY_RELEASE:
        handleKey(reinterpret_cast<const xcb_input_key_press_event_t&>(event),
                  generic.event_type == XCB_INPUT_KEY_PRESS);
        break;
    case XCB_INPUT_DEVICE_CHANGED:
        readScrollAxes(xcb_input_device_changed_classes_iterator(
            &reinterpret_cast<const xcb_input_device_changed_event_t&>(event)));
        break;
    default:
        break;
    }
}

void InputGrab::eventsDrained()
{
    deliverPendingMove();
}

void InputGrab::handleButton(const xcb_input_button_press_event_t& event, bool isPress)
{
    deliverPendingMove();
    const bool isWheel = event.detail >= wheelUp && event.detail < firstPlainButtonAfterWheel;
    if (isWheel) {
        // The server emulates these buttons for the axis of a smooth wheel.
        const bool isEcho = (event.flags & XCB_INPUT_POINTER_EVENT_FLAGS_POINTER_EMULATED) != 0;
        if (isPress && !isEcho && m_listener && (event.detail == wheelUp || event.detail == wheelDown)) {
            m_listener->scrolled({event.detail == wheelUp ? 1.0 : -1.0, false});
        }
        return;
    }
    if (!isPress) {
        m_buttonsDown.erase(event.detail);
        if (!m_listener) {
            releaseIdleGrabs();
        }
        return;
    }
    // A press from before the ungrab can still arrive; its release will not.
    if (m_holdsPointer) {
        m_buttonsDown.insert(event.detail);
    }
    if (m_listener) {
        m_listener->buttonPressed(toButton(event.detail), {toDouble(event.root_x), toDouble(event.root_y)},
                                  modifierMap().modifiers(event.mods.effective));
    }
}

void InputGrab::handleKey(const xcb_input_key_press_event_t& event, bool isPress)
{
    deliverPendingMove();
    if (!isPress) {
        m_keysDown.erase(event.detail);
        if (!m_listener) {
            releaseIdleGrabs();
        }
        return;
    }
    if (m_holdsKeyboard) {
        m_keysDown.insert(event.detail);
    }
    if (m_listener) {
        m_listener->keyPressed(toKeyPress(event));
    }
}

const ModifierMap& InputGrab::modifierMap()
{
    if (!m_modifiers) {
        m_modifiers = ModifierMap::read(m_connection).value_or(ModifierMap{});
    }
    return *m_modifiers;
}

KeyPress InputGrab::toKeyPress(const xcb_input_key_press_event_t& event)
{
    const auto position = keyCodeForEvdev(static_cast<int>(event.detail) - xKeycodeOffset);
    return {.keyCode = position.value_or(-1),
            .modifiers = modifierMap().modifiers(event.mods.effective),
            .isRepeat = (event.flags & XCB_INPUT_KEY_EVENT_FLAGS_KEY_REPEAT) != 0,
            .character = m_keymap.character(event.detail, event.mods.effective, event.group.effective)};
}

void InputGrab::handleMotion(const xcb_input_motion_event_t& event)
{
    if (!m_listener) {
        return;
    }
    // Sequence numbers wrap around, so compare their distance.
    if (m_lastWarp == 0 || static_cast<std::int32_t>(event.full_sequence - m_lastWarp) >= 0) {
        m_pendingMove = QPointF{toDouble(event.root_x), toDouble(event.root_y)};
    }
    if (!m_scrollAxes.hasAxis()) {
        return;
    }
    const std::uint32_t* mask = xcb_input_button_press_valuator_mask(&event);
    const xcb_input_fp3232_t* value = xcb_input_button_press_axisvalues(&event);
    for (int axis = 0; axis < event.valuators_len * 32; ++axis) {
        if ((mask[axis / 32] >> (axis % 32) & 1U) == 0) {
            continue;
        }
        const auto delta = m_scrollAxes.moved(axis, toDouble(*value++), scrollsInPoints(event.sourceid));
        if (delta && m_listener) {
            deliverPendingMove();
            m_listener->scrolled(*delta);
        }
    }
}

void InputGrab::deliverPendingMove()
{
    if (m_listener && m_pendingMove) {
        const QPointF position = *std::exchange(m_pendingMove, std::nullopt);
        m_listener->pointerMoved(position);
    }
}

bool InputGrab::findDevices()
{
    xcb_connection_t* c = m_connection.get();
    const XcbReply<xcb_input_xi_get_client_pointer_reply_t> client(
        xcb_input_xi_get_client_pointer_reply(c, xcb_input_xi_get_client_pointer(c, XCB_NONE), nullptr));
    if (!client || client->set == 0) {
        return false;
    }
    m_pointer = client->deviceid;
    const XcbReply<xcb_input_xi_query_device_reply_t> devices(
        xcb_input_xi_query_device_reply(c, xcb_input_xi_query_device(c, m_pointer), nullptr));
    if (!devices || devices->num_infos == 0) {
        return false;
    }
    const auto info = xcb_input_xi_query_device_infos_iterator(devices.get());
    m_keyboard = info.data->attachment;
    readScrollAxes(xcb_input_xi_device_info_classes_iterator(info.data));
    return true;
}

void InputGrab::readScrollAxes(xcb_input_device_class_iterator_t classes)
{
    m_scrollAxes.clear();
    std::map<int, double> values;
    std::map<int, double> increments;
    for (; classes.rem > 0; xcb_input_device_class_next(&classes)) {
        if (classes.data->type == XCB_INPUT_DEVICE_CLASS_TYPE_VALUATOR) {
            const auto& valuator = reinterpret_cast<const xcb_input_valuator_class_t&>(*classes.data);
            values[valuator.number] = toDouble(valuator.value);
        } else if (classes.data->type == XCB_INPUT_DEVICE_CLASS_TYPE_SCROLL) {
            const auto& scroll = reinterpret_cast<const xcb_input_scroll_class_t&>(*classes.data);
            if (scroll.scroll_type == XCB_INPUT_SCROLL_TYPE_VERTICAL) {
                increments[scroll.number] = toDouble(scroll.increment);
            }
        }
    }
    for (const auto& [number, increment] : increments) {
        m_scrollAxes.addAxis(number, increment, values[number]);
    }
}

// Touchpads scroll by distances, wheels by notches; only a touchpad can be tapped.
bool InputGrab::scrollsInPoints(xcb_input_device_id_t device)
{
    const auto known = m_scrollsInPoints.find(device);
    if (known != m_scrollsInPoints.end()) {
        return known->second;
    }
    xcb_connection_t* c = m_connection.get();
    const XcbReply<xcb_input_xi_get_property_reply_t> property(xcb_input_xi_get_property_reply(
        c, xcb_input_xi_get_property(c, device, 0, m_tappingProperty, XCB_ATOM_ANY, 0, 0), nullptr));
    return m_scrollsInPoints[device] = property && property->type != XCB_ATOM_NONE;
}

bool InputGrab::grab(xcb_input_device_id_t device, xcb_cursor_t cursor, std::uint32_t events) const
{
    xcb_connection_t* c = m_connection.get();
    const auto cookie = xcb_input_xi_grab_device(c, m_connection.root(), XCB_CURRENT_TIME, cursor, device,
                                                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                                                 XCB_INPUT_GRAB_OWNER_NO_OWNER, 1, &events);
    const XcbReply<xcb_input_xi_grab_device_reply_t> reply(
        xcb_input_xi_grab_device_reply(c, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

bool InputGrab::grabPointer(xcb_cursor_t cursor) const
{
    return grab(m_pointer, cursor, pointerEvents);
}

bool InputGrab::grabKeyboard() const
{
    return grab(m_keyboard, XCB_CURSOR_NONE, keyboardEvents);
}

void InputGrab::ungrab(xcb_input_device_id_t device) const
{
    xcb_input_xi_ungrab_device(m_connection.get(), XCB_CURRENT_TIME, device);
}

// Releases the pointer once no button is down, and the keyboard once no key is.
void InputGrab::releaseIdleGrabs()
{
    if (m_buttonsDown.empty() && std::exchange(m_holdsPointer, false)) {
        ungrab(m_pointer);
    }
    if (m_keysDown.empty() && std::exchange(m_holdsKeyboard, false)) {
        ungrab(m_keyboard);
    }
    if (!m_holdsPointer && !m_holdsKeyboard) {
        m_subscription = {};
    }
    m_connection.flush();
}

} // namespace tintwick
