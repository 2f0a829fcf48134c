#pragma once

#include "Backdrop.h"
#include "FrozenScreen.h"
#include "GrabCanvas.h"
#include "PickingExtensions.h"
#include "ScreenCopy.h"
#include "WindowStack.h"
#include "X11Screens.h"
#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QImage>
#include <QObject>
#include <QPoint>
#include <QRegion>

#include <chrono>
#include <deque>
#include <optional>
#include <vector>

namespace tintwick {

/// Reads the screen below the loupe during one pick, live. All rectangles and regions are in root coordinates.
///
/// The loupe covers the pixels that it magnifies, so there are two sources. The first is a copy of the screen. Each part
/// is copied before the loupe covers it, and the rest after the first frame, because the whole screen takes longer than
/// a frame. The second source is the pixmaps of the windows, which the Composite extension keeps complete
/// below other windows. A pixmap is requested when the loupe first covers its window, because without a compositor each
/// costs the server a copy. The copy is used where nothing has changed since the pick began; elsewhere the windows are
/// composed. Without Composite the copy is the only source.
class ScreenReader final : public QObject, private XcbConnection::Sink
{
    Q_OBJECT

public:
    /// Create it before any window of ours is shown. The connection must outlive it. Pixels of `closing` count as
    /// changed from the start, because a compositor still shows windows that have just closed.
    ScreenReader(XcbConnection& connection, const PickingExtensions& extensions, const QRegion& closing);
    ~ScreenReader() override;

    /// The primary one first.
    [[nodiscard]] const std::vector<X11Screen>& screens() const { return m_screens; }
    /// Whether a compositor blends translucent windows; without one their colours are shown opaque.
    [[nodiscard]] bool isComposited() const { return m_isComposited; }

    /// Reads the rectangle without the loupe and the windows above it (Format_RGB32). Pixels outside all monitors are
    /// dark grey. Null when the server returns no image.
    [[nodiscard]] QImage grab(const QRect& rect);
    /// From now on grab() reads the pixels of this moment. A further call takes those of its own moment.
    void freeze();
    /// Covers the screen with its frozen picture, below the loupe if that has a window.
    void showFrozen(xcb_window_t loupe);
    /// Keeps a shown frozen picture directly below the loupe after the loupe was raised.
    void putFrozenBelow(xcb_window_t loupe);
    void thaw();
    /// Call before the loupe covers the area. Without a compositor the server would discard what the windows below it
    /// draw.
    void loupeWillCover(const QRect& area);

Q_SIGNALS:
    /// Pixels of the last grab may have changed. Not emitted while frozen.
    void contentChanged();
    void screensChanged();

private:
    struct LoupePlace
    {
        QRect area;
        std::chrono::steady_clock::time_point when;
    };

    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsDrained() override { applyDamage(); }
    /// Whether the event reports a change of the monitors.
    [[nodiscard]] bool isScreenChange(const xcb_generic_event_t& event) const;
    /// Whether the event reports the start or the end of a compositor.
    [[nodiscard]] bool isCompositorChange(const xcb_generic_event_t& event) const;
    void selectEvents(bool select) const;
    void handleScreenDamage(const QRect& area);
    /// Marks what has been drawn since the last call as changed.
    void applyDamage();
    void markChanged(const QRegion& region);
    /// Finds a position without a window, and copies it while it is bare.
    void findBareSpot();
    void copyRest();
    void readScreens();
    void drawScreen(GrabCanvas& canvas, const QRect& rect);
    void drawLive(GrabCanvas& canvas, const QRegion& region);
    [[nodiscard]] XcbPicture createRootPicture() const;

    XcbConnection& m_connection;
    const PickingExtensions& m_extensions;
    xcb_atom_t m_compositorSelection = XCB_ATOM_NONE;
    xcb_atom_t m_wallpaperProperty = XCB_ATOM_NONE;
    std::vector<X11Screen> m_screens;
    QRegion m_screenRegion;
    bool m_isComposited = false;
    std::optional<ScreenCopy> m_copy;
    std::optional<WindowStack> m_windows;
    /// A position without a window when the pick began.
    std::optional<QPoint> m_bareSpot;
    bool m_hasShownLoupe = false;
    bool m_copiesRest = false;
    /// Created on first use.
    std::optional<Backdrop> m_backdrop;
    /// Reports what a compositor paints on the screen.
    XcbDamage m_screenDamage;
    /// Recent areas of the loupe, the newest last.
    std::deque<LoupePlace> m_loupeTrail;
    /// The area that has changed since the pick began.
    QRegion m_changed;
    /// What has been drawn since the last applyDamage().
    QRegion m_damage;
    QRect m_lastGrab;
    GrabCanvas m_canvas;
    /// The whole screen as it was when frozen.
    std::optional<FrozenScreen> m_frozen;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
