#include "platform/x11/WindowStack.h"

#include <xcb/composite.h>
#include <xcb/damage.h>
#include <xcb/shape.h>
#include <xcb/xcb_renderutil.h>

#include <algorithm>

namespace tintwick {

namespace {

// A compositor may draw a shadow this far around a window, in pixels.
constexpr int shadowExtent = 48;

QRect outerFrame(int x, int y, int width, int height, int border)
{
    return {x, y, width + 2 * border, height + 2 * border};
}

QRect withShadow(const QRect& frame)
{
    return frame.adjusted(-shadowExtent, -shadowExtent, shadowExtent, shadowExtent);
}

QRegion visibleArea(const StackedWindow& window)
{
    return window.isMapped && !window.showsNothing ? QRegion(withShadow(window.frame)) : QRegion();
}

bool isFromClient(xcb_window_t id, const xcb_setup_t& client)
{
    return (id & ~client.resource_id_mask) == client.resource_id_base;
}

template <typename Event>
const Event& as(const xcb_generic_event_t& event)
{
    return reinterpret_cast<const Event&>(event);
}

} // namespace

WindowStack::WindowStack(XcbConnection& connection)
    : m_connection(connection)
    , m_damageEvent(xcb_get_extension_data(connection.get(), &xcb_damage_id)->first_event)
    , m_shapeEvent(xcb_get_extension_data(connection.get(), &xcb_shape_id)->first_event)
{
    xcb_connection_t* c = m_connection.get();
    const XcbReply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(c, xcb_query_tree(c, m_connection.root()), nullptr));
    if (!tree) {
        return;
    }
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    const auto count = static_cast<std::size_t>(xcb_query_tree_children_length(tree.get()));

    std::vector<xcb_get_window_attributes_cookie_t> attributeCookies(count);
    std::vector<xcb_get_geometry_cookie_t> geometryCookies(count);
    for (std::size_t i = 0; i < count; ++i) {
        attributeCookies[i] = xcb_get_window_attributes(c, children[i]);
        geometryCookies[i] = xcb_get_geometry(c, children[i]);
    }
    m_windows.reserve(count + 8);
    for (std::size_t i = 0; i < count; ++i) {
        const XcbReply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(c, attributeCookies[i], nullptr));
        const XcbReply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(c, geometryCookies[i], nullptr));
        if (!attributes || !geometry) {
            continue;
        }
        StackedWindow& window = m_windows.emplace_back();
        window.id = children[i];
        window.border = geometry->border_width;
        window.frame = outerFrame(geometry->x, geometry->y, geometry->width, geometry->height, window.border);
        window.showsNothing =
            attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY || isOurs(children[i]);
        window.isMapped = attributes->map_state == XCB_MAP_STATE_VIEWABLE;
        if (window.isMapped) {
            watch(window);
        }
    }
}

QRegion WindowStack::handleEvent(const xcb_generic_event_t& event)
{
    const int type = event.response_type & 0x7f;
    if (type == m_damageEvent + XCB_DAMAGE_NOTIFY) {
        const auto& notify = as<xcb_damage_notify_event_t>(event);
        const StackedWindow* window = find(notify.drawable);
        if (!window || window->damage.id() != notify.damage) {
            return {};
        }
        // The next change is told again only after this one was taken back.
        xcb_damage_subtract(m_connection.get(), notify.damage, XCB_NONE, XCB_NONE);
        return QRect(notify.geometry.x + notify.area.x, notify.geometry.y + notify.area.y, notify.area.width,
                     notify.area.height);
    }
    if (type == m_shapeEvent + XCB_SHAPE_NOTIFY) {
        StackedWindow* window = find(as<xcb_shape_notify_event_t>(event).affected_window);
        if (!window) {
            return {};
        }
        window->content.reset();
        return visibleArea(*window);
    }

    switch (type) {
    case XCB_CREATE_NOTIFY: {
        const auto& notify = as<xcb_create_notify_event_t>(event);
        if (notify.parent == m_connection.root()) {
            add(notify.window);
        }
        return {};
    }
    case XCB_DESTROY_NOTIFY:
        return remove(as<xcb_destroy_notify_event_t>(event).window);
    case XCB_REPARENT_NOTIFY: {
        const auto& notify = as<xcb_reparent_notify_event_t>(event);
        if (notify.parent != m_connection.root()) {
            return remove(notify.window);
        }
        add(notify.window);
        return {};
    }
    case XCB_MAP_NOTIFY: {
        StackedWindow* window = find(as<xcb_map_notify_event_t>(event).window);
        if (!window) {
            return {};
        }
        window->isMapped = true;
        window->content.reset();
        window->contentIsMissing = false;
        watch(*window);
        return visibleArea(*window);
    }
    case XCB_UNMAP_NOTIFY: {
        StackedWindow* window = find(as<xcb_unmap_notify_event_t>(event).window);
        if (!window || !window->isMapped) {
            return {};
        }
        const QRegion changed = visibleArea(*window);
        window->isMapped = false;
        window->content.reset();
        return changed;
    }
    case XCB_CONFIGURE_NOTIFY: {
        const auto& notify = as<xcb_configure_notify_event_t>(event);
        StackedWindow* window = find(notify.window);
        if (!window) {
            return {};
        }
        const QRect before = window->frame;
        QRegion changed = visibleArea(*window);
        window->border = notify.border_width;
        window->frame = outerFrame(notify.x, notify.y, notify.width, notify.height, notify.border_width);
        if (window->frame.size() != before.size()) {
            window->content.reset();
            window->contentIsMissing = false;
        }
        changed = window->frame != before ? changed + visibleArea(*window) : QRegion();
        return changed + moveAbove(notify.window, notify.above_sibling);
    }
    case XCB_CIRCULATE_NOTIFY: {
        const auto& notify = as<xcb_circulate_notify_event_t>(event);
        const bool toTop = notify.place == XCB_PLACE_ON_TOP && !m_windows.empty();
        return moveAbove(notify.window, toTop ? m_windows.back().id : xcb_window_t{XCB_WINDOW_NONE});
    }
    default:
        return {};
    }
}

std::vector<const StackedWindow*> WindowStack::windowsIn(const QRect& rect)
{
    std::vector<const StackedWindow*> result;
    for (auto window = m_windows.rbegin(); window != m_windows.rend(); ++window) {
        if (!window->isMapped || window->showsNothing || !window->frame.intersects(rect)) {
            continue;
        }
        if (!window->content && !window->contentIsMissing) {
            loadContent(*window);
        }
        if (!window->content) {
            continue;
        }
        result.push_back(&*window);
        if (!window->content->hasAlpha && !window->content->isShaped && window->frame.contains(rect)) {
            break;
        }
    }
    std::reverse(result.begin(), result.end());
    return result;
}

QRegion WindowStack::coveredRegion() const
{
    QRegion covered;
    for (const StackedWindow& window : m_windows) {
        if (window.isMapped && !window.showsNothing) {
            covered += window.frame;
        }
    }
    return covered;
}

QRegion WindowStack::unmappedRegionOf(const xcb_setup_t& client) const
{
    QRegion region;
    for (const StackedWindow& window : m_windows) {
        if (!window.isMapped && isFromClient(window.id, client)) {
            region += withShadow(window.frame);
        }
    }
    return region;
}

StackedWindow* WindowStack::find(xcb_window_t id)
{
    const auto window = std::find_if(m_windows.begin(), m_windows.end(),
                                     [id](const StackedWindow& candidate) { return candidate.id == id; });
    return window == m_windows.end() ? nullptr : &*window;
}

bool WindowStack::isOurs(xcb_window_t id) const
{
    return isFromClient(id, *xcb_get_setup(m_connection.get()));
}

void WindowStack::watch(StackedWindow& window)
{
    if (window.damage || window.showsNothing) {
        return;
    }
    xcb_connection_t* c = m_connection.get();
    window.damage = XcbDamage::withNewId(c);
    xcb_damage_create(c, window.damage.id(), window.id, XCB_DAMAGE_REPORT_LEVEL_BOUNDING_BOX);
    xcb_shape_select_input(c, window.id, 1);
}

// Several round trips, but once for each window that is really looked at.
void WindowStack::loadContent(StackedWindow& window)
{
    xcb_connection_t* c = m_connection.get();
    window.contentIsMissing = true;

    StackedWindow::Content content;
    content.pixmap = XcbPixmap::withNewId(c);
    const auto nameCookie = xcb_composite_name_window_pixmap_checked(c, window.id, content.pixmap.id());
    const auto attributeCookie = xcb_get_window_attributes(c, window.id);
    const auto shapeCookie = xcb_shape_query_extents(c, window.id);
    const auto rectanglesCookie = xcb_shape_get_rectangles(c, window.id, XCB_SHAPE_SK_BOUNDING);

    const XcbReply<xcb_generic_error_t> nameError(xcb_request_check(c, nameCookie));
    const XcbReply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(c, attributeCookie, nullptr));
    const XcbReply<xcb_shape_query_extents_reply_t> shape(
        xcb_shape_query_extents_reply(c, shapeCookie, nullptr));
    const XcbReply<xcb_shape_get_rectangles_reply_t> rectangles(
        xcb_shape_get_rectangles_reply(c, rectanglesCookie, nullptr));
    if (nameError || !attributes) {
        return;
    }
    const xcb_render_query_pict_formats_reply_t* formats = xcb_render_util_query_formats(c);
    const xcb_render_pictvisual_t* visual = xcb_render_util_find_visual_format(formats, attributes->visual);
    if (!visual) {
        return;
    }
    const auto infos = xcb_render_query_pict_formats_formats(formats);
    const auto* info = std::find_if(
        infos, infos + xcb_render_query_pict_formats_formats_length(formats),
        [&](const xcb_render_pictforminfo_t& candidate) { return candidate.id == visual->format; });
    content.hasAlpha = info->direct.alpha_mask != 0;
    content.picture = XcbPicture::withNewId(c);
    xcb_render_create_picture(c, content.picture.id(), content.pixmap.id(), visual->format, 0, nullptr);
    if (shape && shape->bounding_shaped != 0 && rectangles) {
        content.isShaped = true;
        // The shape counts from the window's origin inside its border, the pixmap from the border's corner.
        const auto border = static_cast<std::int16_t>(window.border);
        const int length = xcb_shape_get_rectangles_rectangles_length(rectangles.get());
        xcb_render_set_picture_clip_rectangles(c, content.picture.id(), border, border,
                                               static_cast<std::uint32_t>(length),
                                               xcb_shape_get_rectangles_rectangles(rectangles.get()));
    }
    window.content = std::move(content);
    window.contentIsMissing = false;
}

// `sibling` none means the bottom.
QRegion WindowStack::moveAbove(xcb_window_t id, xcb_window_t sibling)
{
    const auto has = [](xcb_window_t wanted) {
        return [wanted](const StackedWindow& window) { return window.id == wanted; };
    };
    const auto from = std::find_if(m_windows.begin(), m_windows.end(), has(id));
    if (from == m_windows.end()) {
        return {};
    }
    const auto target = std::find_if(m_windows.begin(), m_windows.end(), has(sibling));
    if (sibling != XCB_WINDOW_NONE && target == m_windows.end()) {
        return {};
    }
    const auto before = std::distance(m_windows.begin(), from);
    auto after = sibling == XCB_WINDOW_NONE ? 0 : std::distance(m_windows.begin(), target) + 1;
    if (after > before) {
        --after;
    }
    if (after == before) {
        return {};
    }
    const QRegion changed = visibleArea(*from);
    if (after < before) {
        std::rotate(m_windows.begin() + after, from, from + 1);
    } else {
        std::rotate(from, from + 1, m_windows.begin() + after + 1);
    }
    return changed;
}

void WindowStack::add(xcb_window_t id)
{
    if (find(id)) {
        return;
    }
    xcb_connection_t* c = m_connection.get();
    const XcbReply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(c, xcb_get_geometry(c, id), nullptr));
    StackedWindow& window = m_windows.emplace_back();
    window.id = id;
    window.showsNothing = isOurs(id);
    if (geometry) {
        window.border = geometry->border_width;
        window.frame = outerFrame(geometry->x, geometry->y, geometry->width, geometry->height, window.border);
    }
}

QRegion WindowStack::remove(xcb_window_t id)
{
    const auto window = std::find_if(m_windows.begin(), m_windows.end(),
                                     [id](const StackedWindow& candidate) { return candidate.id == id; });
    if (window == m_windows.end()) {
        return {};
    }
    const QRegion changed = visibleArea(*window);
    m_windows.erase(window);
    return changed;
}

} // namespace tintwick
