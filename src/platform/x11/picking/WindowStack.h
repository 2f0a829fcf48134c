#pragma once

#include "PickingExtensions.h"
#include "StackedWindow.h"
#include "XcbConnection.h"

#include <QRect>
#include <QRegion>

#include <cstdint>
#include <vector>

namespace tintwick {

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
