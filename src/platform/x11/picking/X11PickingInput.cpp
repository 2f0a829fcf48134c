#include "X11PickingInput.h"

#include "EvdevKeys.h"
#include "KeyCode.h"
#include "ToolkitConnection.h"
#include "XInput.h"

#include <algorithm>
#include <cerrno>
#include <ctime>

namespace tintwick {

namespace {

// A grab that another program holds for a moment (a menu that is closing) is worth waiting for.
constexpr int grabAttempts = 30;
constexpr timespec pauseBetweenAttempts{0, 5'000'000};

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

int toModifiers(std::uint32_t mods)
{
    int result = 0;
    result |= (mods & XCB_MOD_MASK_SHIFT) != 0 ? modifier::shift : 0;
    result |= (mods & XCB_MOD_MASK_CONTROL) != 0 ? modifier::control : 0;
    result |= (mods & XCB_MOD_MASK_1) != 0 ? modifier::alt : 0;
    result |= (mods & XCB_MOD_MASK_4) != 0 ? modifier::super : 0;
    return result;
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

X11PickingInput::X11PickingInput(XcbConnection& connection)
    : m_connection(connection)
    , m_extension(openInputExtension(connection))
    , m_tappingProperty(connection.atom("libinput Tapping Enabled"))
{
}

X11PickingInput::~X11PickingInput()
{
    m_buttonsDown.clear();
    m_keysDown.clear();
    end();
}

PickingInput::Outcome X11PickingInput::begin(Listener& listener)
{
    // What the toolkit has already given back must not look taken.
    toolkit::sync();
    if (m_extension == 0 || !findDevices()) {
        return Outcome::Refused;
    }
    if (!m_blankCursor) {
        m_blankCursor = createBlankCursor(m_connection);
    }
    for (int attempt = 1; !grabBoth(); ++attempt) {
        if (attempt == grabAttempts) {
            m_holdsPointer = m_holdsKeyboard = false;
            m_buttonsDown.clear();
            m_keysDown.clear();
            m_subscription = {};
            m_connection.flush();
            return Outcome::Refused;
        }
        nanosleep(&pauseBetweenAttempts, nullptr);
    }
    m_holdsPointer = m_holdsKeyboard = true;
    m_listener = &listener;
    m_pendingMove.reset();
    // Numbers of devices are given anew when devices come and go.
    m_scrollsInPoints.clear();
    m_subscription = m_connection.subscribe(*this);
    return Outcome::Started;
}

void X11PickingInput::end()
{
    m_listener = nullptr;
    m_pendingMove.reset();
    releaseWhatIsUp();
    if (m_holdsPointer) {
        // The release of the button is still ours, but the pointer shows again.
        static_cast<void>(grabPointer(XCB_CURSOR_NONE));
    }
}

DesktopPoint X11PickingInput::pointerPosition() const
{
    xcb_connection_t* c = m_connection.get();
    const XcbReply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(c, xcb_query_pointer(c, m_connection.root()), nullptr));
    return pointer ? DesktopPoint{static_cast<double>(pointer->root_x), static_cast<double>(pointer->root_y)}
                   : DesktopPoint{};
}

void X11PickingInput::movePointerBy(double dx, double dy)
{
    xcb_warp_pointer(m_connection.get(), XCB_NONE, XCB_NONE, 0, 0, 0, 0, static_cast<std::int16_t>(dx),
                     static_cast<std::int16_t>(dy));
    m_connection.flush();
}

void X11PickingInput::handleEvent(const xcb_generic_event_t& event)
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

void X11PickingInput::eventsDrained()
{
    deliverPendingMove();
}

void X11PickingInput::handleButton(const xcb_input_button_press_event_t& event, bool isPress)
{
    deliverPendingMove();
    const bool isWheel = event.detail >= wheelUp && event.detail < firstPlainButtonAfterWheel;
    if (isWheel) {
        // A smooth wheel sends these beside its axis.
        const bool isEcho = (event.flags & XCB_INPUT_POINTER_EVENT_FLAGS_POINTER_EMULATED) != 0;
        if (isPress && !isEcho && m_listener && (event.detail == wheelUp || event.detail == wheelDown)) {
            m_listener->scrolled({event.detail == wheelUp ? 1.0 : -1.0, false});
        }
        return;
    }
    if (!isPress) {
        m_buttonsDown.erase(event.detail);
        if (!m_listener) {
            releaseWhatIsUp();
        }
        return;
    }
    // A press that was under way when its device was given back is not ours to wait for.
    if (m_holdsPointer) {
        m_buttonsDown.insert(event.detail);
    }
    if (m_listener) {
        m_listener->buttonPressed(toButton(event.detail), {toDouble(event.root_x), toDouble(event.root_y)});
    }
}

void X11PickingInput::handleKey(const xcb_input_key_press_event_t& event, bool isPress)
{
    deliverPendingMove();
    if (!isPress) {
        m_keysDown.erase(event.detail);
        if (!m_listener) {
            releaseWhatIsUp();
        }
        return;
    }
    if (m_holdsKeyboard) {
        m_keysDown.insert(event.detail);
    }
    if (m_listener) {
        const bool isRepeat = (event.flags & XCB_INPUT_KEY_EVENT_FLAGS_KEY_REPEAT) != 0;
        const auto position = keyCodeForEvdev(static_cast<int>(event.detail) - xKeycodeOffset);
        m_listener->keyPressed({position.value_or(-1), toModifiers(event.mods.effective), isRepeat, 0});
    }
}

void X11PickingInput::handleMotion(const xcb_input_motion_event_t& event)
{
    if (!m_listener) {
        return;
    }
    m_pendingMove = DesktopPoint{toDouble(event.root_x), toDouble(event.root_y)};
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

void X11PickingInput::deliverPendingMove()
{
    if (m_listener && m_pendingMove) {
        const DesktopPoint position = *std::exchange(m_pendingMove, std::nullopt);
        m_listener->pointerMoved(position);
    }
}

bool X11PickingInput::findDevices()
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

void X11PickingInput::readScrollAxes(xcb_input_device_class_iterator_t classes)
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
bool X11PickingInput::scrollsInPoints(xcb_input_device_id_t device)
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

bool X11PickingInput::grab(xcb_input_device_id_t device, xcb_cursor_t cursor, std::uint32_t events) const
{
    xcb_connection_t* c = m_connection.get();
    const auto cookie = xcb_input_xi_grab_device(c, m_connection.root(), XCB_CURRENT_TIME, cursor, device,
                                                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                                                 XCB_INPUT_GRAB_OWNER_NO_OWNER, 1, &events);
    const XcbReply<xcb_input_xi_grab_device_reply_t> reply(
        xcb_input_xi_grab_device_reply(c, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

bool X11PickingInput::grabBoth() const
{
    if (!grabPointer(m_blankCursor.id())) {
        return false;
    }
    if (!grabKeyboard()) {
        ungrab(m_pointer);
        return false;
    }
    return true;
}

bool X11PickingInput::grabPointer(xcb_cursor_t cursor) const
{
    return grab(m_pointer, cursor, pointerEvents);
}

bool X11PickingInput::grabKeyboard() const
{
    return grab(m_keyboard, XCB_CURSOR_NONE, keyboardEvents);
}

void X11PickingInput::ungrab(xcb_input_device_id_t device) const
{
    xcb_input_xi_ungrab_device(m_connection.get(), XCB_CURRENT_TIME, device);
}

// Gives back the pointer once no button, and the keyboard once no key of the ended pick is down.
void X11PickingInput::releaseWhatIsUp()
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
