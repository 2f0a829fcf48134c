#include "ScreenReader.h"

#include "RenderFormats.h"
#include "ToolkitConnection.h"
#include "X11Compositor.h"

#include <QTimer>

#include <xcb/damage.h>
#include <xcb/randr.h>
#include <xcb/xfixes.h>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

// A region with more rectangles is replaced by its bounding box. Composing too much is correct, only slower.
constexpr int maximumRegionComplexity = 64;

// The longest time that a compositor on a busy machine needs to repaint the area that the loupe has left. Such a repaint that
// counted as a change would lose what only the compositor draws there, such as shadows.
constexpr std::chrono::seconds compositorDelay{2};

// Copying the rest of the screen must not delay the first frame of the loupe, nor the compositor that shows it.
constexpr std::chrono::milliseconds firstFrameTime{16};

void addTo(QRegion& sum, const QRegion& region)
{
    sum += region;
    if (sum.rectCount() > maximumRegionComplexity) {
        sum = sum.boundingRect();
    }
}

} // namespace

ScreenReader::ScreenReader(XcbConnection& connection, const PickingExtensions& extensions,
                           const QRegion& closing)
    : m_connection(connection)
    , m_extensions(extensions)
    , m_compositorSelection(compositorSelection(connection))
    , m_wallpaperProperty(wallpaperProperty(connection))
    , m_canvas(connection)
{
    // A menu of ours that has just closed must be hidden before the screen is copied.
    toolkit::sync();
    m_subscription = m_connection.subscribe(*this);
    readScreens();
    // NOLINTNEXTLINE(cppcoreguidelines-prefer-member-initializer): read after the subscription, to miss no change
    m_isComposited = hasCompositor(m_connection);
    selectEvents(true);
    if (m_extensions.canReadBelowLoupe) {
        // Damage is watched before the copy is made, so that no later change is missed.
        m_windows.emplace(m_connection, m_extensions);
    }
    if (m_screenRegion.isEmpty()) {
        return;
    }
    m_copy.emplace(m_connection, m_screenRegion);
    if (m_windows) {
        findBareSpot();
    }
    if (m_isComposited) {
        // A compositor that leaves a monitor to a full-screen window takes it back because of the loupe. What it shows
        // meanwhile must not be copied.
        for (const X11Screen& screen : m_screens) {
            if (!m_windows || m_windows->isCoveredByOneWindow(screen.frame)) {
                m_copy->copy(screen.frame);
            }
        }
        if (m_extensions.canReadBelowLoupe) {
            m_screenDamage = XcbDamage::withNewId(m_connection.get());
            xcb_damage_create(m_connection.get(), m_screenDamage.id(), m_connection.root(),
                              XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
        }
        m_changed = closing;
    }
}

ScreenReader::~ScreenReader()
{
    m_subscription = {};
    selectEvents(false);
    m_connection.flush();
}

QImage ScreenReader::grab(const QRect& rect)
{
    applyDamage();
    m_lastGrab = rect;
    if (!m_canvas.begin(rect)) {
        return {};
    }
    const QRegion visible = m_screenRegion & rect;
    if (visible != rect) {
        m_canvas.clip(rect);
        m_canvas.fillDarkGray();
    }
    m_canvas.clip(visible);
    if (m_frozen) {
        m_canvas.drawRootPicture(m_frozen->picture(), rect);
    } else {
        drawScreen(m_canvas, rect);
    }
    return m_canvas.read();
}

// Only queues requests: the pixels stay on the server.
void ScreenReader::freeze()
{
    applyDamage();
    // Positions in the picture are those on the root window.
    const QRect bounds = m_screenRegion.boundingRect();
    const QRect all(QPoint(), QPoint(bounds.right(), bounds.bottom()));
    GrabCanvas canvas = GrabCanvas::likeTheRoot(m_connection);
    if (!canvas.begin(all)) {
        return;
    }
    canvas.clip(m_screenRegion);
    drawScreen(canvas, all);
    if (m_frozen) {
        m_frozen->replace(std::move(canvas), all.size());
    } else {
        m_frozen.emplace(m_connection, std::move(canvas), all.size());
    }
    m_connection.flush();
}

void ScreenReader::showFrozen(xcb_window_t loupe)
{
    if (m_frozen) {
        loupeWillCover(m_screenRegion.boundingRect());
        m_frozen->show(loupe);
    }
}

void ScreenReader::putFrozenBelow(xcb_window_t loupe)
{
    if (m_frozen && m_frozen->isShown()) {
        m_frozen->show(loupe);
    }
}

void ScreenReader::thaw()
{
    // A compositor repaints what the frozen picture has covered.
    loupeWillCover(m_screenRegion.boundingRect());
    m_frozen.reset();
    m_connection.flush();
}

void ScreenReader::loupeWillCover(const QRect& area)
{
    const auto now = std::chrono::steady_clock::now();
    m_loupeTrail.push_back({withShadow(area), now});
    while (m_loupeTrail.front().when < now - compositorDelay) {
        m_loupeTrail.pop_front();
    }
    if (m_copy) {
        // A compositor may draw around the loupe, too.
        m_copy->copy(withShadow(area));
        if (!std::exchange(m_hasShownLoupe, true)) {
            QTimer::singleShot(firstFrameTime, this, &ScreenReader::copyRest);
        }
    }
    if (m_windows) {
        m_windows->keepContents(area);
    }
}

void ScreenReader::handleEvent(const xcb_generic_event_t& event)
{
    const int type = event.response_type & 0x7f;
    if (isScreenChange(event)) {
        const std::vector<X11Screen> before = m_screens;
        readScreens();
        if (m_screens != before) {
            // The copy does not contain new parts of the desktop.
            m_changed = m_screenRegion;
            Q_EMIT screensChanged();
        }
    } else if (isCompositorChange(event)) {
        m_isComposited = hasCompositor(m_connection);
        markChanged(m_screenRegion);
    } else if (type == XCB_PROPERTY_NOTIFY &&
               reinterpret_cast<const xcb_property_notify_event_t&>(event).atom == m_wallpaperProperty) {
        m_backdrop.reset();
        markChanged(m_screenRegion);
    } else if (m_screenDamage && type == m_extensions.damageEvent + XCB_DAMAGE_NOTIFY &&
               reinterpret_cast<const xcb_damage_notify_event_t&>(event).damage == m_screenDamage.id()) {
        const auto& area = reinterpret_cast<const xcb_damage_notify_event_t&>(event).area;
        handleScreenDamage({area.x, area.y, area.width, area.height});
    } else if (m_copiesRest && m_copy->isFinishedBy(event)) {
        copyRest();
    } else if (m_windows && type == m_extensions.damageEvent + XCB_DAMAGE_NOTIFY) {
        addTo(m_damage, m_windows->handleEvent(event));
    } else if (m_windows) {
        markChanged(m_windows->handleEvent(event));
    }
}

bool ScreenReader::isScreenChange(const xcb_generic_event_t& event) const
{
    const int type = event.response_type & 0x7f;
    const int randr = m_extensions.randrEvent;
    const bool isRandr =
        randr != 0 && (type == randr + XCB_RANDR_SCREEN_CHANGE_NOTIFY || type == randr + XCB_RANDR_NOTIFY);
    return isRandr ||
           (type == XCB_CONFIGURE_NOTIFY &&
            reinterpret_cast<const xcb_configure_notify_event_t&>(event).window == m_connection.root());
}

bool ScreenReader::isCompositorChange(const xcb_generic_event_t& event) const
{
    const int type = event.response_type & 0x7f;
    return m_extensions.xfixesEvent != 0 && type == m_extensions.xfixesEvent + XCB_XFIXES_SELECTION_NOTIFY &&
           reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event).selection ==
               m_compositorSelection;
}

void ScreenReader::selectEvents(bool select) const
{
    xcb_connection_t* c = m_connection.get();
    const std::uint32_t rootEvents = select ? XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                                  XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY |
                                                  XCB_EVENT_MASK_PROPERTY_CHANGE
                                            : XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(c, m_connection.root(), XCB_CW_EVENT_MASK, &rootEvents);
    if (m_extensions.randrEvent != 0) {
        const int monitors = XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                             XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE;
        xcb_randr_select_input(c, m_connection.root(), static_cast<std::uint16_t>(select ? monitors : 0));
    }
    if (m_extensions.canReadBelowLoupe) {
        const std::uint32_t owners = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                     XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                     XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;
        xcb_xfixes_select_selection_input(c, m_connection.root(), m_compositorSelection, select ? owners : 0);
    }
}

// A compositor shows changes from before the copy slightly after it, and fades out closed windows. Its repaints because
// of the loupe are not changes, nor are repaints of the whole screen.
void ScreenReader::handleScreenDamage(const QRect& area)
{
    QRect loupe;
    for (const LoupePlace& place : m_loupeTrail) {
        loupe |= place.area;
    }
    const QRect screen = m_screenRegion.boundingRect();
    if (!area.contains(screen) && !loupe.contains(area & screen)) {
        addTo(m_damage, area);
    }
}

void ScreenReader::applyDamage()
{
    markChanged(std::exchange(m_damage, {}));
}

void ScreenReader::markChanged(const QRegion& region)
{
    if (region.isEmpty()) {
        return;
    }
    addTo(m_changed, region);
    if (!m_frozen && region.intersects(m_lastGrab)) {
        Q_EMIT contentChanged();
    }
}

void ScreenReader::findBareSpot()
{
    const QRegion bareRegion = m_screenRegion - m_windows->coveredRegion();
    const auto* const largest =
        std::max_element(bareRegion.begin(), bareRegion.end(), [](const QRect& a, const QRect& b) {
            return a.width() * a.height() < b.width() * b.height();
        });
    if (largest != bareRegion.end()) {
        m_bareSpot = largest->center();
        m_copy->copy(QRect(*m_bareSpot, QSize(1, 1)));
    }
}

// One tile at a time, so that the server answers the requests of a move in between.
void ScreenReader::copyRest()
{
    const QRegion tile = m_copy->nextTile();
    m_copiesRest = !tile.isEmpty();
    if (m_copiesRest) {
        m_copy->copy(tile);
        m_connection.flush();
    }
}

void ScreenReader::readScreens()
{
    m_screens = queryScreens(m_connection);
    m_screenRegion = {};
    for (const X11Screen& screen : m_screens) {
        m_screenRegion += screen.frame;
    }
}

void ScreenReader::drawScreen(GrabCanvas& canvas, const QRect& rect)
{
    if (!m_copy) {
        canvas.drawRootPicture(createRootPicture().id(), rect);
        return;
    }
    const QRegion visible = m_screenRegion & rect;
    const QRegion live = m_windows ? visible & m_changed : QRegion();
    if (live != visible) {
        m_copy->copy(visible);
        canvas.drawRootPicture(m_copy->picture(), rect);
    }
    if (!live.isEmpty()) {
        drawLive(canvas, live);
    }
}

void ScreenReader::drawLive(GrabCanvas& canvas, const QRegion& region)
{
    const QRect area = region.boundingRect();
    canvas.clip(region);
    if (!m_backdrop) {
        m_backdrop.emplace(m_connection, *m_copy, m_bareSpot);
    }
    canvas.drawRootPicture(m_backdrop->picture(), area);
    for (const StackedWindow* window : m_windows->contentsIn(area)) {
        // The server applies the clip of the destination, not that of the source.
        if (window->isShaped) {
            canvas.clip(region & window->shape.translated(window->frame.topLeft()));
        }
        canvas.drawWindow(*window, area, window->hasAlpha && m_isComposited);
        if (window->isShaped) {
            canvas.clip(region);
        }
    }
}

XcbPicture ScreenReader::createRootPicture() const
{
    XcbPicture picture = XcbPicture::withNewId(m_connection.get());
    const std::uint32_t includeInferiors = XCB_SUBWINDOW_MODE_INCLUDE_INFERIORS;
    xcb_render_create_picture(m_connection.get(), picture.id(), m_connection.root(), rootFormat(m_connection),
                              XCB_RENDER_CP_SUBWINDOW_MODE, &includeInferiors);
    return picture;
}

} // namespace tintwick
