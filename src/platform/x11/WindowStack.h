#pragma once

#include "platform/x11/XcbConnection.h"
#include "platform/x11/XcbHandle.h"

#include <QRect>
#include <QRegion>

#include <optional>
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
    /// True for our own windows and for those that only take input: they have a place in the order and no picture.
    bool showsNothing = false;
    /// Tells when something is drawn in the window.
    XcbDamage damage;

    /// What the server said of the window when its content was first needed.
    struct Content
    {
        XcbPixmap pixmap;
        XcbPicture picture;
        bool hasAlpha = false;
        bool isShaped = false;
    };
    std::optional<Content> content;
    /// Set when the content could not be had, until the window changes.
    bool contentIsMissing = false;
};

/// The children of the root window from bottom to top, kept up to date by the root's substructure events. What our own
/// connection shows (the loupe) is never part of a picture.
class WindowStack final
{
public:
    /// Reads the tree and starts to watch each window for damage. The root's substructure events must already be selected.
    explicit WindowStack(XcbConnection& connection);

    /// Follows the event; returns the region of the root that may look different now.
    [[nodiscard]] QRegion handleEvent(const xcb_generic_event_t& event);

    /// The mapped windows that touch the rectangle, bottom to top, with their content where there is any; those below an
    /// opaque window that covers it all are left out. The pointers are good until the next event.
    [[nodiscard]] std::vector<const StackedWindow*> windowsIn(const QRect& rect);

    /// Frames of all mapped windows.
    [[nodiscard]] QRegion coveredRegion() const;

    /// Where windows of the given client lie that are not mapped: they may just have been closed.
    [[nodiscard]] QRegion unmappedRegionOf(const xcb_setup_t& client) const;

private:
    [[nodiscard]] StackedWindow* find(xcb_window_t id);
    [[nodiscard]] bool isOurs(xcb_window_t id) const;
    void add(xcb_window_t id);
    [[nodiscard]] QRegion remove(xcb_window_t id);
    void watch(StackedWindow& window);
    void loadContent(StackedWindow& window);
    [[nodiscard]] QRegion moveAbove(xcb_window_t id, xcb_window_t sibling);

    XcbConnection& m_connection;
    std::uint8_t m_damageEvent = 0;
    std::uint8_t m_shapeEvent = 0;
    std::vector<StackedWindow> m_windows;
};

} // namespace tintwick
