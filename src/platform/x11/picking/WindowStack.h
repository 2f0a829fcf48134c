#pragma once

#include "PickingExtensions.h"
#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QRect>
#include <QRegion>

#include <xcb/render.h>

#include <vector>

namespace tintwick {

/// One child of the root window, with borders: frames of the window manager, menus, panels, the desktop.
struct StackedWindow
{
    xcb_window_t id = XCB_WINDOW_NONE;
    /// Outer geometry, borders included, in root coordinates.
    QRect frame;
    int border = 0;
    bool isMapped = false;
    /// True for our own windows, the server's own and input-only windows. They are part of the order and have no image.
    bool showsNothing = false;
    /// Windows below this one are not shown although they are mapped.
    bool isGuard = false;
    xcb_render_pictformat_t format = XCB_NONE;
    bool hasAlpha = false;
    bool isShaped = false;
    /// Reports what is drawn in the window.
    XcbDamage damage;
    /// Whether the server keeps the complete content for us, also where other windows cover it.
    bool isRedirected = false;
    /// The content, read on first use; none where the server has none.
    XcbPixmap pixmap;
    XcbPicture picture;
    /// The part of the frame that a shaped window shows, from the frame's top left corner; read with the content.
    QRegion shape;
    bool contentIsMissing = false;

    [[nodiscard]] bool isVisible() const { return isMapped && !showsNothing; }
    [[nodiscard]] bool isOpaque() const { return !hasAlpha && !isShaped; }
};

/// The frame with the room around it in which a compositor may draw the window's shadow.
[[nodiscard]] QRect withShadow(const QRect& frame);

/// The children of the root window from bottom to top, kept up to date by the root's substructure events. Windows of
/// our own connection (the loupe) are never part of a picture.
class WindowStack final
{
public:
    /// Reads the tree and watches each window for damage. Select the root's substructure events before. Both arguments
    /// must outlive the stack.
    WindowStack(XcbConnection& connection, const PickingExtensions& extensions);
    /// Releases the contents that the server keeps for us.
    ~WindowStack();
    WindowStack(const WindowStack&) = delete;
    WindowStack& operator=(const WindowStack&) = delete;

    /// Processes the event; returns the region of the root that may have changed.
    [[nodiscard]] QRegion handleEvent(const xcb_generic_event_t& event);

    /// From now on the server keeps the contents of the windows visible in the rectangle, also where the loupe covers
    /// them. Costs the server a copy for each window that is kept for the first time.
    void keepContents(const QRect& rect);

    /// The windows visible in the rectangle, bottom to top, with their content. Windows without content are omitted.
    /// The pointers are valid until the next event.
    [[nodiscard]] std::vector<const StackedWindow*> contentsIn(const QRect& rect);

    /// Frames of all visible windows.
    [[nodiscard]] QRegion coveredRegion() const;
    /// Whether nothing but one window is visible in the rectangle.
    [[nodiscard]] bool isCoveredByOneWindow(const QRect& rect) const;

private:
    [[nodiscard]] QRegion handleDamage(const xcb_generic_event_t& event);
    [[nodiscard]] QRegion handleShape(const xcb_shape_notify_event_t& event);
    [[nodiscard]] QRegion handleMap(const xcb_map_notify_event_t& event);
    [[nodiscard]] QRegion handleUnmap(const xcb_unmap_notify_event_t& event);
    [[nodiscard]] QRegion handleConfigure(const xcb_configure_notify_event_t& event);
    [[nodiscard]] QRegion handleReparent(const xcb_reparent_notify_event_t& event);
    [[nodiscard]] QRegion handleCirculate(const xcb_circulate_notify_event_t& event);
    [[nodiscard]] StackedWindow* find(xcb_window_t id);
    void describe(std::vector<StackedWindow*> windows);
    void add(xcb_window_t id);
    [[nodiscard]] QRegion remove(xcb_window_t id);
    void watch(StackedWindow& window);
    [[nodiscard]] std::vector<StackedWindow*> windowsSeenIn(const QRect& rect);
    void redirect(StackedWindow& window);
    void loadContent(StackedWindow& window);
    [[nodiscard]] QRegion moveAbove(xcb_window_t id, xcb_window_t sibling);

    XcbConnection& m_connection;
    const PickingExtensions& m_extensions;
    /// The server reports each whole window when watching begins; that damage is from before this request.
    std::uint32_t m_damageCountsFrom = 0;
    std::vector<StackedWindow> m_windows;
};

} // namespace tintwick
