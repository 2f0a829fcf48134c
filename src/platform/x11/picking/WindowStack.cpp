#include "WindowStack.h"

#include "PickingExtensions.h"

#include <xcb/composite.h>
#include <xcb/damage.h>
#include <xcb/shape.h>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

QRegion visibleArea(const StackedWindow& window)
{
    return window.isVisible() ? QRegion(withShadow(window.frame)) : QRegion();
}

template <typename Event>
const Event& as(const xcb_generic_event_t& event)
{
    return reinterpret_cast<const Event&>(event);
}

auto hasId(xcb_window_t id)
{
    return [id](const StackedWindow& window) { return window.id == id; };
}

void dropContent(StackedWindow& window)
{
    window.picture = {};
    window.pixmap = {};
    window.contentIsMissing = false;
}

} // namespace

WindowStack::WindowStack(XcbConnection& connection, const PickingExtensions& extensions)
    : m_connection(connection)
    , m_extensions(extensions)
{
    xcb_connection_t* c = m_connection.get();
    const XcbReply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(c, xcb_query_tree(c, m_connection.root()), nullptr));
    if (!tree) {
        return;
    }
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    m_windows.resize(static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
    std::vector<StackedWindow*> all;
    for (StackedWindow& window : m_windows) {
        window.id = *children++;
        all.push_back(&window);
    }
    describe(m_connection, all);
    for (StackedWindow& window : m_windows) {
        if (window.isMapped) {
            watch(window);
        }
    }
    m_damageCountsFrom = xcb_no_operation(c).sequence;
}

WindowStack::~WindowStack()
{
    for (const StackedWindow& window : m_windows) {
        if (window.damage) {
            xcb_shape_select_input(m_connection.get(), window.id, 0);
        }
        if (window.isRedirected) {
            xcb_composite_unredirect_window(m_connection.get(), window.id, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
        }
    }
}

QRegion WindowStack::handleEvent(const xcb_generic_event_t& event)
{
    const int type = event.response_type & 0x7f;
    if (type == m_extensions.damageEvent + XCB_DAMAGE_NOTIFY) {
        return handleDamage(event);
    }
    if (type == m_extensions.shapeEvent + XCB_SHAPE_NOTIFY) {
        return handleShape(as<xcb_shape_notify_event_t>(event));
    }
    switch (type) {
    case XCB_CREATE_NOTIFY:
        if (as<xcb_create_notify_event_t>(event).parent == m_connection.root()) {
            add(as<xcb_create_notify_event_t>(event).window);
        }
        return {};
    case XCB_DESTROY_NOTIFY:
        return remove(as<xcb_destroy_notify_event_t>(event).window);
    case XCB_REPARENT_NOTIFY:
        return handleReparent(as<xcb_reparent_notify_event_t>(event));
    case XCB_MAP_NOTIFY:
        return handleMap(as<xcb_map_notify_event_t>(event));
    case XCB_UNMAP_NOTIFY:
        return handleUnmap(as<xcb_unmap_notify_event_t>(event));
    case XCB_CONFIGURE_NOTIFY:
        return handleConfigure(as<xcb_configure_notify_event_t>(event));
    case XCB_CIRCULATE_NOTIFY:
        return handleCirculate(as<xcb_circulate_notify_event_t>(event));
    default:
        return {};
    }
}

QRegion WindowStack::handleDamage(const xcb_generic_event_t& event)
{
    const auto& notify = as<xcb_damage_notify_event_t>(event);
    const StackedWindow* window = find(notify.drawable);
    if (!window || window->damage.id() != notify.damage) {
        return {};
    }
    // The server reports the next damage only after this one is subtracted.
    xcb_damage_subtract(m_connection.get(), notify.damage, XCB_NONE, XCB_NONE);
    // Sequence numbers wrap around, so compare their distance.
    if (static_cast<std::int32_t>(event.full_sequence - m_damageCountsFrom) < 0) {
        return {};
    }
    return QRect(notify.geometry.x + notify.area.x, notify.geometry.y + notify.area.y, notify.area.width,
                 notify.area.height);
}

QRegion WindowStack::handleShape(const xcb_shape_notify_event_t& event)
{
    StackedWindow* window = find(event.affected_window);
    if (!window || event.shape_kind != XCB_SHAPE_SK_BOUNDING) {
        return {};
    }
    window->isShaped = event.shaped != 0;
    dropContent(*window);
    return visibleArea(*window);
}

QRegion WindowStack::handleMap(const xcb_map_notify_event_t& event)
{
    StackedWindow* window = find(event.window);
    if (!window) {
        return {};
    }
    describe(m_connection, {window});
    window->isMapped = true;
    dropContent(*window);
    watch(*window);
    return visibleArea(*window);
}

QRegion WindowStack::handleUnmap(const xcb_unmap_notify_event_t& event)
{
    StackedWindow* window = find(event.window);
    if (!window) {
        return {};
    }
    const QRegion changed = visibleArea(*window);
    window->isMapped = false;
    dropContent(*window);
    return changed;
}

QRegion WindowStack::handleConfigure(const xcb_configure_notify_event_t& event)
{
    StackedWindow* window = find(event.window);
    if (!window) {
        return {};
    }
    const QRect before = window->frame;
    QRegion changed = visibleArea(*window);
    window->border = event.border_width;
    window->frame = outerFrame(event.x, event.y, event.width, event.height, event.border_width);
    if (window->frame.size() != before.size()) {
        dropContent(*window);
    }
    changed = window->frame != before ? changed + visibleArea(*window) : QRegion();
    return changed + moveAbove(event.window, event.above_sibling);
}

QRegion WindowStack::handleReparent(const xcb_reparent_notify_event_t& event)
{
    if (event.parent != m_connection.root()) {
        return remove(event.window);
    }
    add(event.window);
    return {};
}

QRegion WindowStack::handleCirculate(const xcb_circulate_notify_event_t& event)
{
    const bool toTop = event.place == XCB_PLACE_ON_TOP && !m_windows.empty();
    return moveAbove(event.window, toTop ? m_windows.back().id : xcb_window_t{XCB_WINDOW_NONE});
}

void WindowStack::keepContents(const QRect& rect)
{
    for (StackedWindow* window : windowsSeenIn(rect)) {
        redirect(*window);
    }
}

std::vector<const StackedWindow*> WindowStack::contentsIn(const QRect& rect)
{
    std::vector<const StackedWindow*> result;
    for (StackedWindow* window : windowsSeenIn(rect)) {
        if (!window->picture && !window->contentIsMissing) {
            loadContent(*window);
        }
        if (window->picture) {
            result.push_back(window);
        }
    }
    std::reverse(result.begin(), result.end());
    return result;
}

QRegion WindowStack::coveredRegion() const
{
    QRegion covered;
    for (const StackedWindow& window : m_windows) {
        if (window.isVisible()) {
            covered += window.frame;
        }
    }
    return covered;
}

bool WindowStack::isCoveredByOneWindow(const QRect& rect) const
{
    const auto topmost = std::find_if(m_windows.rbegin(), m_windows.rend(), [&](const StackedWindow& window) {
        return window.isVisible() && window.frame.intersects(rect);
    });
    return topmost != m_windows.rend() && topmost->frame.contains(rect);
}

StackedWindow* WindowStack::find(xcb_window_t id)
{
    const auto window = std::find_if(m_windows.begin(), m_windows.end(), hasId(id));
    return window == m_windows.end() ? nullptr : &*window;
}

void WindowStack::add(xcb_window_t id)
{
    if (find(id)) {
        return;
    }
    StackedWindow& window = m_windows.emplace_back();
    window.id = id;
    describe(m_connection, {&window});
    if (window.isMapped) {
        watch(window);
    }
}

QRegion WindowStack::remove(xcb_window_t id)
{
    const auto window = std::find_if(m_windows.begin(), m_windows.end(), hasId(id));
    if (window == m_windows.end()) {
        return {};
    }
    const QRegion changed = visibleArea(*window);
    m_windows.erase(window);
    return changed;
}

void WindowStack::watch(StackedWindow& window)
{
    if (window.damage || window.showsNothing) {
        return;
    }
    xcb_connection_t* c = m_connection.get();
    window.damage = XcbDamage::withNewId(c);
    xcb_damage_create(c, window.damage.id(), window.id, XCB_DAMAGE_REPORT_LEVEL_BOUNDING_BOX);
    xcb_damage_subtract(c, window.damage.id(), XCB_NONE, XCB_NONE);
    xcb_shape_select_input(c, window.id, 1);
}

// Top to bottom, without windows that opaque windows hide.
std::vector<StackedWindow*> WindowStack::windowsSeenIn(const QRect& rect)
{
    std::vector<StackedWindow*> seen;
    QRegion open(rect);
    for (auto window = m_windows.rbegin(); window != m_windows.rend() && !open.isEmpty(); ++window) {
        if (window->isMapped && window->isGuard) {
            break;
        }
        if (!window->isVisible() || !open.intersects(window->frame)) {
            continue;
        }
        seen.push_back(&*window);
        if (window->isOpaque()) {
            open -= window->frame;
        }
    }
    return seen;
}

void WindowStack::redirect(StackedWindow& window)
{
    if (!std::exchange(window.isRedirected, true)) {
        xcb_composite_redirect_window(m_connection.get(), window.id, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    }
}

void WindowStack::loadContent(StackedWindow& window)
{
    redirect(window);
    xcb_connection_t* c = m_connection.get();
    XcbPixmap pixmap = XcbPixmap::withNewId(c);
    const auto nameCookie = xcb_composite_name_window_pixmap_checked(c, window.id, pixmap.id());
    const auto shapeCookie = xcb_shape_get_rectangles(c, window.id, XCB_SHAPE_SK_BOUNDING);
    const XcbReply<xcb_generic_error_t> error(xcb_request_check(c, nameCookie));
    const XcbReply<xcb_shape_get_rectangles_reply_t> shape(
        xcb_shape_get_rectangles_reply(c, shapeCookie, nullptr));
    if (error || !shape) {
        window.contentIsMissing = true;
        return;
    }
    window.pixmap = std::move(pixmap);
    window.picture = XcbPicture::withNewId(c);
    xcb_render_create_picture(c, window.picture.id(), window.pixmap.id(), window.format, 0, nullptr);
    window.shape = {};
    if (window.isShaped) {
        // The shape is relative to the window's origin inside its border, the pixmap to the corner of the border.
        const auto* rects = xcb_shape_get_rectangles_rectangles(shape.get());
        const int count = xcb_shape_get_rectangles_rectangles_length(shape.get());
        for (int i = 0; i < count; ++i) {
            window.shape += QRect(rects[i].x, rects[i].y, rects[i].width, rects[i].height);
        }
        window.shape.translate(window.border, window.border);
    }
}

// Without a `sibling` the window is placed at the bottom.
QRegion WindowStack::moveAbove(xcb_window_t id, xcb_window_t sibling)
{
    const auto from = std::find_if(m_windows.begin(), m_windows.end(), hasId(id));
    const auto target = std::find_if(m_windows.begin(), m_windows.end(), hasId(sibling));
    if (from == m_windows.end() || (sibling != XCB_WINDOW_NONE && target == m_windows.end())) {
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

} // namespace tintwick
