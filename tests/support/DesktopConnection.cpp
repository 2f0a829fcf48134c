#include "support/DesktopConnection.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace tintwick {

namespace {

xcb_window_t windowOf(const xcb_generic_event_t& event)
{
    switch (event.response_type & ~0x80) {
    case XCB_KEY_PRESS:
    case XCB_KEY_RELEASE:
    case XCB_BUTTON_PRESS:
    case XCB_BUTTON_RELEASE:
    case XCB_MOTION_NOTIFY:
        return reinterpret_cast<const xcb_button_press_event_t&>(event).event;
    case XCB_MAP_NOTIFY:
        return reinterpret_cast<const xcb_map_notify_event_t&>(event).event;
    case XCB_SELECTION_REQUEST:
        return reinterpret_cast<const xcb_selection_request_event_t&>(event).owner;
    default:
        return XCB_NONE;
    }
}

} // namespace

DesktopConnection::DesktopConnection(const QByteArray& display)
    : m_connection(xcb_connect(display.constData(), nullptr))
{
    if (xcb_connection_has_error(m_connection) != 0) {
        xcb_disconnect(m_connection);
        throw std::runtime_error("no X server at " + display.toStdString());
    }
    m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
}

DesktopConnection::~DesktopConnection()
{
    xcb_disconnect(m_connection);
}

std::optional<xcb_visualid_t> DesktopConnection::translucentVisual() const
{
    for (auto depth = xcb_screen_allowed_depths_iterator(m_screen); depth.rem > 0; xcb_depth_next(&depth)) {
        if (depth.data->depth != 32) {
            continue;
        }
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem > 0;
             xcb_visualtype_next(&visual)) {
            if (visual.data->_class == XCB_VISUAL_CLASS_TRUE_COLOR) {
                return visual.data->visual_id;
            }
        }
    }
    return std::nullopt;
}

xcb_atom_t DesktopConnection::atom(const QByteArray& name)
{
    auto& atom = m_atoms[name];
    if (atom == XCB_ATOM_NONE) {
        const auto cookie =
            xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
        const ServerReply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(m_connection, cookie, nullptr));
        atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
    return atom;
}

void DesktopConnection::sync() const
{
    const ServerReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

xcb_window_t DesktopConnection::selectionOwner(const QByteArray& selection)
{
    const ServerReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        m_connection, xcb_get_selection_owner(m_connection, atom(selection)), nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_NONE};
}

xcb_window_t DesktopConnection::focusedWindow() const
{
    const ServerReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return reply ? reply->focus : XCB_NONE;
}

QByteArray DesktopConnection::property(xcb_window_t window, const QByteArray& name)
{
    constexpr std::uint32_t longest = 1024;
    const auto cookie =
        xcb_get_property(m_connection, 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, longest);
    const ServerReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply) {
        return {};
    }
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

bool DesktopConnection::hasProperty(xcb_window_t window, const QByteArray& name)
{
    const auto cookie =
        xcb_get_property(m_connection, 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
    const ServerReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
    return reply && reply->type != XCB_ATOM_NONE;
}

std::vector<xcb_window_t> DesktopConnection::children(xcb_window_t window) const
{
    const ServerReply<xcb_query_tree_reply_t> reply(
        xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
    if (!reply) {
        return {};
    }
    const auto* first = xcb_query_tree_children(reply.get());
    return {first, first + xcb_query_tree_children_length(reply.get())};
}

std::vector<xcb_window_t> DesktopConnection::tree(xcb_window_t window) const
{
    std::vector<xcb_window_t> all{window};
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto inside = children(all[i]);
        all.insert(all.end(), inside.begin(), inside.end());
    }
    return all;
}

bool DesktopConnection::isViewable(xcb_window_t window) const
{
    const ServerReply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

QRect DesktopConnection::geometry(xcb_window_t window) const
{
    const auto sizeCookie = xcb_get_geometry(m_connection, window);
    const auto placeCookie = xcb_translate_coordinates(m_connection, window, root(), 0, 0);
    const ServerReply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(m_connection, sizeCookie, nullptr));
    const ServerReply<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(m_connection, placeCookie, nullptr));
    if (!size || !place) {
        return {};
    }
    return {place->dst_x, place->dst_y, size->width, size->height};
}

QImage DesktopConnection::screenshot(const QRect& rect) const
{
    return drawnBy(root(), rect);
}

QImage DesktopConnection::drawnBy(xcb_window_t window, const QRect& rect) const
{
    const auto cookie =
        xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, static_cast<std::int16_t>(rect.x()),
                      static_cast<std::int16_t>(rect.y()), static_cast<std::uint16_t>(rect.width()),
                      static_cast<std::uint16_t>(rect.height()), ~0U);
    const ServerReply<xcb_get_image_reply_t> reply(xcb_get_image_reply(m_connection, cookie, nullptr));
    QImage image(rect.size(), QImage::Format_RGB32);
    if (!reply || xcb_get_image_data_length(reply.get()) < image.sizeInBytes()) {
        return {};
    }
    const auto* pixels = reinterpret_cast<const QRgb*>(xcb_get_image_data(reply.get()));
    for (int y = 0; y < rect.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::transform(pixels, pixels + rect.width(), line, [](QRgb pixel) { return pixel | 0xff000000U; });
        pixels += rect.width();
    }
    return image;
}

QRgb DesktopConnection::pixel(QPoint position) const
{
    return screenshot({position, QSize(1, 1)}).pixel(0, 0);
}

bool DesktopConnection::grabPointer()
{
    const auto cookie =
        xcb_grab_pointer(m_connection, 0, root(), XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    const ServerReply<xcb_grab_pointer_reply_t> reply(xcb_grab_pointer_reply(m_connection, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

bool DesktopConnection::grabKeyboard()
{
    const auto cookie = xcb_grab_keyboard(m_connection, 0, root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                                          XCB_GRAB_MODE_ASYNC);
    const ServerReply<xcb_grab_keyboard_reply_t> reply(
        xcb_grab_keyboard_reply(m_connection, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void DesktopConnection::ungrabAll()
{
    xcb_ungrab_pointer(m_connection, XCB_CURRENT_TIME);
    xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
    sync();
}

bool DesktopConnection::inputIsFree()
{
    xcb_grab_server(m_connection);
    const bool hasPointer = grabPointer();
    const bool hasKeyboard = grabKeyboard();
    xcb_ungrab_pointer(m_connection, XCB_CURRENT_TIME);
    xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
    xcb_ungrab_server(m_connection);
    sync();
    return hasPointer && hasKeyboard;
}

bool DesktopConnection::keyboardIsFree()
{
    xcb_grab_server(m_connection);
    const bool hasKeyboard = grabKeyboard();
    xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
    xcb_ungrab_server(m_connection);
    sync();
    return hasKeyboard;
}

void DesktopConnection::setEventHandler(xcb_window_t window, const EventHandler& handler)
{
    m_handlers.insert(window, handler);
}

void DesktopConnection::removeEventHandler(xcb_window_t window)
{
    m_handlers.remove(window);
}

void DesktopConnection::dispatchEvents()
{
    sync();
    while (ServerReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
        if (const auto handler = m_handlers.constFind(windowOf(*event)); handler != m_handlers.constEnd()) {
            (*handler)(*event);
        }
    }
}

} // namespace tintwick
