#pragma once

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
    /// True for our own windows, the server's own and those that only take input: they have a place in the order and
    /// no picture.
    bool showsNothing = false;
    /// What lies below this one is not shown although it is mapped.
    bool isGuard = false;
    xcb_render_pictformat_t format = XCB_NONE;
    bool hasAlpha = false;
    bool isShaped = false;
    /// Tells when something is drawn in the window.
    XcbDamage damage;
    /// Whether the server keeps the window's content whole for us, also where other windows lie on it.
    bool isRedirected = false;
    /// The content, once it was needed; none where the server has none.
    XcbPixmap pixmap;
    XcbPicture picture;
    /// What of the frame a shaped window shows, from the frame's top left corner; known with the content.
    QRegion shape;
    bool contentIsMissing = false;

    [[nodiscard]] bool isVisible() const { return isMapped && !showsNothing; }
    [[nodiscard]] bool isOpaque() const { return !hasAlpha && !isShaped; }
};

/// The frame with the room around it in which a compositor may draw the window's shadow.
[[nodiscard]] QRect withShadow(const QRect& frame);

/// The children of the root window from bottom to top, kept up to date by the root's substructure events. What our own
/// connection shows (the loupe) is never part of a picture.
class WindowStack final
{
public:
    /// Reads the tree and starts to watch each window for damage. The root's substructure events must already be selected.
    explicit WindowStack(XcbConnection& connection);
    /// Lets the server forget the contents it kept for us.
    ~WindowStack();
    WindowStack(const WindowStack&) = delete;
    WindowStack& operator=(const WindowStack&) = delete;

    /// What was drawn before the request with this sequence number counts as seen. The server also reports each window
    /// whole when it begins to be watched.
    void forgetDamageBefore(std::uint32_t sequence) { m_damageCountsFrom = sequence; }

    /// Follows the event; returns the region of the root that may look different now.
    [[nodiscard]] QRegion handleEvent(const xcb_generic_event_t& event);

    /// From now on the server keeps the contents of the windows seen in the rectangle, although the loupe comes to lie
    /// on them. Costs a copy for each window met for the first time, so only windows that need it are kept.
    void keepContents(const QRect& rect);

    /// The windows seen in the rectangle, bottom to top, with their content; those without any are left out. The
    /// pointers are good until the next event.
    [[nodiscard]] std::vector<const StackedWindow*> contentsIn(const QRect& rect);

    /// Frames of all visible windows.
    [[nodiscard]] QRegion coveredRegion() const;

private:
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
    std::uint8_t m_damageEvent = 0;
    std::uint8_t m_shapeEvent = 0;
    std::uint32_t m_damageCountsFrom = 0;
    std::vector<StackedWindow> m_windows;
};

} // namespace tintwick
