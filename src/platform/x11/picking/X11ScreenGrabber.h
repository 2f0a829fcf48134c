#pragma once

#include "ClosedWindows.h"
#include "GrabCanvas.h"
#include "ScreenGrabber.h"
#include "WindowStack.h"
#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QRegion>

#include <chrono>
#include <deque>
#include <optional>

namespace tintwick {

/// Reads the screen below the loupe, live.
///
/// The loupe lies on the very pixels it magnifies, so a session keeps two sources. One is a copy of the screen, made on
/// the server before the loupe is shown: exactly what the user sees, with all that only a compositor draws. The other is
/// the windows' own pixmaps, which the Composite extension keeps whole below other windows; a window's is asked for when
/// the loupe first comes upon it, because without a compositor each costs the server a copy. Where nothing has changed
/// since the copy was made it is read; where something has, the windows are composed. Without Composite the copy is all.
class X11ScreenGrabber final : public ScreenGrabber, private XcbConnection::Sink
{
public:
    /// The application object must exist; the connection must outlive this object.
    explicit X11ScreenGrabber(XcbConnection& connection);
    ~X11ScreenGrabber();

    [[nodiscard]] bool captureIsPermitted() const override { return true; }
    [[nodiscard]] QUrl permissionSettings() const override { return {}; }
    [[nodiscard]] std::vector<Screen> screens() const override;
    void beginSession(ContentChanged contentChanged) override;
    void endSession() override;
    [[nodiscard]] std::optional<ScreenImage> grab(const DesktopRect& rect, SurfaceId below) override;

    /// Whether translucent pixels blend now.
    [[nodiscard]] bool isComposited() const;

    /// To be called before the loupe comes to lie on the area (root coordinates): without a compositor the server would
    /// no longer draw there what windows below the loupe draw.
    void loupeWillCover(const QRect& area);

private:
    struct LoupePlace
    {
        QRect area;
        std::chrono::steady_clock::time_point when;
    };

    /// What a session keeps on the server.
    struct Session
    {
        Session();

        ContentChanged contentChanged;
        std::vector<Screen> screens;
        QRegion screenRegion;
        /// Whether a compositor blends translucent windows; without one their colours stand as they are.
        bool isComposited = false;
        XcbPixmap frozenPixmap;
        XcbPicture frozenScreen;
        std::optional<WindowStack> windows;
        /// Where no window was when the copy was made.
        QRegion bareRegion;
        /// Tells what a compositor paints on the screen.
        XcbDamage screenDamage;
        /// Where the loupe has lately been, the newest last.
        std::deque<LoupePlace> loupeTrail;
        /// Where the copy is no longer what the user sees.
        QRegion changed;
        /// Stands where no window is; made when first needed.
        XcbPixmap backgroundPixmap;
        XcbPicture background;
    };

    void handleEvent(const xcb_generic_event_t& event) override;
    void handleScreenDamage(const QRect& area);
    void markChanged(const QRegion& region);
    void readScreens();
    [[nodiscard]] QRegion screenRegion() const;
    void drawLive(const QRegion& region);
    void makeBackground();
    [[nodiscard]] xcb_render_pictformat_t rootFormat() const;
    [[nodiscard]] XcbPicture createRootPicture() const;

    XcbConnection& m_connection;
    ClosedWindows m_closedWindows;
    bool m_hasComposite = false;
    std::uint8_t m_randrEvent = 0;
    std::uint8_t m_xfixesEvent = 0;
    std::uint8_t m_damageEvent = 0;
    xcb_atom_t m_compositorSelection = XCB_ATOM_NONE;
    xcb_atom_t m_wallpaperProperty = XCB_ATOM_NONE;
    GrabCanvas m_canvas;
    std::optional<Session> m_session;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
