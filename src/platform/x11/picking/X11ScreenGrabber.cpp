#include "X11ScreenGrabber.h"

#include "RenderFormats.h"
#include "ToolkitConnection.h"
#include "X11Compositor.h"
#include "X11Screens.h"

#include <xcb/composite.h>
#include <xcb/damage.h>
#include <xcb/randr.h>
#include <xcb/shape.h>
#include <xcb/xcb_renderutil.h>
#include <xcb/xfixes.h>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

// Beyond this many rectangles the region is kept as its bounding box; to compose too much is correct, only slower.
constexpr int maximumRegionComplexity = 64;

// The longest that a compositor takes to show where the loupe went.
constexpr std::chrono::milliseconds compositorDelay{300};

constexpr xcb_render_color_t black{0, 0, 0, 0xffff};

bool isPresent(xcb_connection_t* c, xcb_extension_t& extension)
{
    const xcb_query_extension_reply_t* data = xcb_get_extension_data(c, &extension);
    return data && data->present != 0;
}

std::uint8_t firstEvent(xcb_connection_t* c, xcb_extension_t& extension)
{
    const xcb_query_extension_reply_t* data = xcb_get_extension_data(c, &extension);
    return data && data->present != 0 ? data->first_event : 0;
}

// The pixels that the rectangle touches: a fractional position lies in the pixel to its upper left.
QRect toPixels(const DesktopRect& rect)
{
    return {static_cast<int>(std::floor(rect.x)), static_cast<int>(std::floor(rect.y)),
            static_cast<int>(std::ceil(rect.width)), static_cast<int>(std::ceil(rect.height))};
}

QRegion regionOf(const std::vector<Screen>& screens)
{
    QRegion region;
    for (const Screen& screen : screens) {
        region += toPixels(screen.frame);
    }
    return region;
}

} // namespace

X11ScreenGrabber::X11ScreenGrabber(XcbConnection& connection)
    : m_connection(connection)
    , m_closedWindows(connection)
    , m_canvas(connection)
{
    xcb_connection_t* c = m_connection.get();
    for (xcb_extension_t* extension :
         {&xcb_composite_id, &xcb_damage_id, &xcb_randr_id, &xcb_xfixes_id, &xcb_shape_id, &xcb_render_id}) {
        xcb_prefetch_extension_data(c, extension);
    }
    m_hasComposite = isPresent(c, xcb_composite_id) && isPresent(c, xcb_damage_id) &&
                     isPresent(c, xcb_shape_id) && isPresent(c, xcb_xfixes_id);
    m_randrEvent = firstEvent(c, xcb_randr_id);
    m_xfixesEvent = firstEvent(c, xcb_xfixes_id);
    m_damageEvent = firstEvent(c, xcb_damage_id);
    // Each of these extensions answers only those who asked for its version.
    if (m_hasComposite) {
        const auto composite = xcb_composite_query_version(c, 0, 4);
        const auto damage = xcb_damage_query_version(c, 1, 1);
        const auto xfixes = xcb_xfixes_query_version(c, 5, 0);
        xcb_discard_reply(c, composite.sequence);
        xcb_discard_reply(c, damage.sequence);
        xcb_discard_reply(c, xfixes.sequence);
    }
    if (isPresent(c, xcb_randr_id)) {
        xcb_discard_reply(c, xcb_randr_query_version(c, 1, 5).sequence);
    }
    m_compositorSelection = compositorSelection(m_connection);
    m_wallpaperProperty = m_connection.atom("_XROOTPMAP_ID");
    static_cast<void>(xcb_render_util_query_formats(c));
}

X11ScreenGrabber::~X11ScreenGrabber()
{
    endSession();
}

std::vector<Screen> X11ScreenGrabber::screens() const
{
    return m_session ? m_session->screens : queryScreens(m_connection);
}

// Not left to the compiler: clang uses the defaults of a nested class only after the outer one is complete.
X11ScreenGrabber::Session::Session() = default;

void X11ScreenGrabber::beginSession(ContentChanged contentChanged)
{
    endSession();
    xcb_connection_t* c = m_connection.get();
    // A menu of ours that has just closed must be gone before the screen is copied.
    toolkit::sync();

    Session& session = m_session.emplace();
    session.contentChanged = std::move(contentChanged);
    m_subscription = m_connection.subscribe(*this);
    readScreens();
    session.isComposited = hasCompositor(m_connection);

    const std::uint32_t rootEvents =
        XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(c, m_connection.root(), XCB_CW_EVENT_MASK, &rootEvents);
    if (m_randrEvent != 0) {
        xcb_randr_select_input(c, m_connection.root(),
                               XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                                   XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    }
    if (m_hasComposite) {
        xcb_xfixes_select_selection_input(c, m_connection.root(), m_compositorSelection,
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                              XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                              XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
        // Watched before the copy is made, so that nothing drawn after it is missed.
        session.windows.emplace(m_connection);
        session.bareRegion = session.screenRegion - session.windows->coveredRegion();
    }

    QSize size;
    for (const Screen& screen : session.screens) {
        const QRect frame = toPixels(screen.frame);
        size = size.expandedTo({frame.x() + frame.width(), frame.y() + frame.height()});
    }
    if (size.isEmpty()) {
        return;
    }
    const std::uint8_t depth = m_connection.screen().root_depth;
    session.frozenPixmap = XcbPixmap::withNewId(c);
    xcb_create_pixmap(c, depth, session.frozenPixmap.id(), m_connection.root(),
                      static_cast<std::uint16_t>(size.width()), static_cast<std::uint16_t>(size.height()));
    const auto gc = XcbGraphicsContext::withNewId(c);
    const std::uint32_t gcValues[] = {XCB_SUBWINDOW_MODE_INCLUDE_INFERIORS, 0};
    xcb_create_gc(c, gc.id(), m_connection.root(), XCB_GC_SUBWINDOW_MODE | XCB_GC_GRAPHICS_EXPOSURES,
                  gcValues);
    const xcb_void_cookie_t copied =
        xcb_copy_area(c, m_connection.root(), session.frozenPixmap.id(), gc.id(), 0, 0, 0, 0,
                      static_cast<std::uint16_t>(size.width()), static_cast<std::uint16_t>(size.height()));
    if (session.windows) {
        session.windows->forgetDamageBefore(copied.sequence);
    }
    session.frozenScreen = XcbPicture::withNewId(c);
    xcb_render_create_picture(c, session.frozenScreen.id(), session.frozenPixmap.id(), rootFormat(), 0,
                              nullptr);

    if (session.isComposited) {
        if (m_hasComposite) {
            session.screenDamage = XcbDamage::withNewId(c);
            xcb_damage_create(c, session.screenDamage.id(), m_connection.root(),
                              XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
        }
        session.changed = m_closedWindows.region();
    }
}

void X11ScreenGrabber::endSession()
{
    if (!m_session) {
        return;
    }
    xcb_connection_t* c = m_connection.get();
    m_subscription = {};
    const std::uint32_t noEvents = XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(c, m_connection.root(), XCB_CW_EVENT_MASK, &noEvents);
    if (m_randrEvent != 0) {
        xcb_randr_select_input(c, m_connection.root(), 0);
    }
    m_session.reset();
    if (m_hasComposite) {
        xcb_xfixes_select_selection_input(c, m_connection.root(), m_compositorSelection, 0);
    }
    m_canvas.release();
    m_connection.flush();
}

bool X11ScreenGrabber::isComposited() const
{
    return m_session ? m_session->isComposited : hasCompositor(m_connection);
}

void X11ScreenGrabber::loupeWillCover(const QRect& area)
{
    if (m_session) {
        const auto now = std::chrono::steady_clock::now();
        std::deque<LoupePlace>& trail = m_session->loupeTrail;
        trail.push_back({withShadow(area), now});
        while (trail.front().when < now - compositorDelay) {
            trail.pop_front();
        }
    }
    if (m_session && m_session->windows) {
        m_session->windows->keepContents(area);
    }
}

std::optional<ScreenImage> X11ScreenGrabber::grab(const DesktopRect& rect, SurfaceId below)
{
    const QRect pixels = toPixels(rect);
    if (!m_canvas.begin(pixels)) {
        return std::nullopt;
    }
    const QRegion visible = screenRegion() & pixels;
    if (visible != pixels) {
        m_canvas.clip(pixels);
        m_canvas.fillDarkGray();
    }
    m_canvas.clip(visible);
    if (m_session && m_session->frozenScreen && below != 0) {
        const QRegion live = m_session->windows ? visible & m_session->changed : QRegion();
        if (live != visible) {
            m_canvas.drawRootPicture(m_session->frozenScreen.id(), pixels);
        }
        if (!live.isEmpty()) {
            drawLive(live);
        }
    } else {
        m_canvas.drawRootPicture(createRootPicture().id(), pixels);
    }
    return m_canvas.read();
}

void X11ScreenGrabber::handleEvent(const xcb_generic_event_t& event)
{
    const int type = event.response_type & 0x7f;
    const bool isRandr = m_randrEvent != 0 && (type == m_randrEvent + XCB_RANDR_SCREEN_CHANGE_NOTIFY ||
                                               type == m_randrEvent + XCB_RANDR_NOTIFY);
    const bool isRootConfigure =
        type == XCB_CONFIGURE_NOTIFY &&
        reinterpret_cast<const xcb_configure_notify_event_t&>(event).window == m_connection.root();
    if (isRandr || isRootConfigure) {
        const std::vector<Screen> before = m_session->screens;
        readScreens();
        if (m_session->screens != before) {
            // New parts of the desktop are not in the copy.
            m_session->changed = m_session->screenRegion;
            // A copy, because what is told may end the session.
            const ContentChanged tell = m_session->contentChanged;
            tell(DesktopRect{});
        }
        return;
    }
    if (m_xfixesEvent != 0 && type == m_xfixesEvent + XCB_XFIXES_SELECTION_NOTIFY &&
        reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event).selection ==
            m_compositorSelection) {
        m_session->isComposited = hasCompositor(m_connection);
        markChanged(m_session->screenRegion);
        return;
    }
    if (type == XCB_PROPERTY_NOTIFY &&
        reinterpret_cast<const xcb_property_notify_event_t&>(event).atom == m_wallpaperProperty) {
        m_session->background = {};
        markChanged(m_session->screenRegion);
        return;
    }
    if (m_session->screenDamage && type == m_damageEvent + XCB_DAMAGE_NOTIFY) {
        const auto& notify = reinterpret_cast<const xcb_damage_notify_event_t&>(event);
        if (notify.damage == m_session->screenDamage.id()) {
            handleScreenDamage({notify.area.x, notify.area.y, notify.area.width, notify.area.height});
            return;
        }
    }
    if (m_session->windows) {
        markChanged(m_session->windows->handleEvent(event));
    }
}

// A compositor shows what happened before the copy was made a moment after it, and lets windows fade that are gone. What
// it paints for the loupe's own sake says nothing, nor does it when it paints all anew for any reason.
void X11ScreenGrabber::handleScreenDamage(const QRect& area)
{
    QRect loupe;
    for (const LoupePlace& place : m_session->loupeTrail) {
        loupe |= place.area;
    }
    const QRect screen = m_session->screenRegion.boundingRect();
    const bool isWholeScreen = area.contains(screen);
    if (!isWholeScreen && !loupe.contains(area & screen)) {
        markChanged(area);
    }
}

void X11ScreenGrabber::markChanged(const QRegion& region)
{
    if (region.isEmpty()) {
        return;
    }
    QRegion& changed = m_session->changed;
    changed += region;
    if (changed.rectCount() > maximumRegionComplexity) {
        changed = changed.boundingRect();
    }
    const QRect box = region.boundingRect();
    const ContentChanged tell = m_session->contentChanged;
    tell({static_cast<double>(box.x()), static_cast<double>(box.y()), static_cast<double>(box.width()),
          static_cast<double>(box.height())});
}

void X11ScreenGrabber::readScreens()
{
    m_session->screens = queryScreens(m_connection);
    m_session->screenRegion = regionOf(m_session->screens);
}

QRegion X11ScreenGrabber::screenRegion() const
{
    if (m_session) {
        return m_session->screenRegion;
    }
    return regionOf(queryScreens(m_connection));
}

void X11ScreenGrabber::drawLive(const QRegion& region)
{
    const QRect area = region.boundingRect();
    m_canvas.clip(region);
    if (!m_session->background) {
        makeBackground();
    }
    m_canvas.drawRootPicture(m_session->background.id(), area);
    for (const StackedWindow* window : m_session->windows->contentsIn(area)) {
        // The server heeds a clip on what is drawn on, not one on what is drawn.
        if (window->isShaped) {
            m_canvas.clip(region & window->shape.translated(window->frame.topLeft()));
        }
        m_canvas.drawWindow(*window, area, window->hasAlpha && m_session->isComposited);
        if (window->isShaped) {
            m_canvas.clip(region);
        }
    }
}

// The wallpaper where a program has left word of it; else the colour of the copy where there was no window; else black,
// the server's own.
void X11ScreenGrabber::makeBackground()
{
    xcb_connection_t* c = m_connection.get();
    Session& session = *m_session;
    const std::uint32_t repeat = XCB_RENDER_REPEAT_NORMAL;
    session.background = XcbPicture::withNewId(c);

    const XcbReply<xcb_get_property_reply_t> property(xcb_get_property_reply(
        c, xcb_get_property(c, 0, m_connection.root(), m_wallpaperProperty, XCB_ATOM_PIXMAP, 0, 1), nullptr));
    if (property && property->format == 32 && xcb_get_property_value_length(property.get()) == 4) {
        const auto pixmap = *static_cast<const xcb_pixmap_t*>(xcb_get_property_value(property.get()));
        const XcbReply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(c, xcb_get_geometry(c, pixmap), nullptr));
        const bool isLikeTheRoot = geometry && geometry->depth == m_connection.screen().root_depth;
        if (isLikeTheRoot || (geometry && geometry->depth == translucentDepth)) {
            const xcb_render_pictformat_t format =
                isLikeTheRoot ? rootFormat() : formatOfDepth(c, translucentDepth);
            xcb_render_create_picture(c, session.background.id(), pixmap, format, XCB_RENDER_CP_REPEAT,
                                      &repeat);
            return;
        }
    }

    session.backgroundPixmap = XcbPixmap::withNewId(c);
    xcb_create_pixmap(c, translucentDepth, session.backgroundPixmap.id(), m_connection.root(), 1, 1);
    xcb_render_create_picture(c, session.background.id(), session.backgroundPixmap.id(),
                              formatOfDepth(c, translucentDepth), XCB_RENDER_CP_REPEAT, &repeat);
    const auto* const largest = std::max_element(
        session.bareRegion.begin(), session.bareRegion.end(),
        [](const QRect& a, const QRect& b) { return a.width() * a.height() < b.width() * b.height(); });
    if (largest != session.bareRegion.end() && session.frozenScreen) {
        const QPoint spot = largest->center();
        xcb_render_composite(c, XCB_RENDER_PICT_OP_SRC, session.frozenScreen.id(), XCB_NONE,
                             session.background.id(), static_cast<std::int16_t>(spot.x()),
                             static_cast<std::int16_t>(spot.y()), 0, 0, 0, 0, 1, 1);
    } else {
        const xcb_rectangle_t pixel{0, 0, 1, 1};
        xcb_render_fill_rectangles(c, XCB_RENDER_PICT_OP_SRC, session.background.id(), black, 1, &pixel);
    }
}

xcb_render_pictformat_t X11ScreenGrabber::rootFormat() const
{
    const xcb_render_pictforminfo_t* format =
        formatOfVisual(m_connection.get(), m_connection.screen().root_visual);
    return format ? format->id : xcb_render_pictformat_t{XCB_NONE};
}

XcbPicture X11ScreenGrabber::createRootPicture() const
{
    xcb_connection_t* c = m_connection.get();
    XcbPicture picture = XcbPicture::withNewId(c);
    const std::uint32_t includeInferiors = XCB_SUBWINDOW_MODE_INCLUDE_INFERIORS;
    xcb_render_create_picture(c, picture.id(), m_connection.root(), rootFormat(),
                              XCB_RENDER_CP_SUBWINDOW_MODE, &includeInferiors);
    return picture;
}

} // namespace tintwick
