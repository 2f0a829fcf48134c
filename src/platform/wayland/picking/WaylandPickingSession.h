#pragma once

#include "OutputCover.h"
#include "PickingSession.h"
#include "WaylandPickingParts.h"

#include <QObject>
#include <QTimer>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tintwick {

/// A pick over pictures of all outputs, because a client of a Wayland compositor neither sees the screen below its
/// surfaces nor moves the pointer.
class WaylandPickingSession final : public QObject, public PickingSession, private WaylandSeat::Listener
{
    Q_OBJECT

public:
    WaylandPickingSession(WaylandPickingParts& parts, PickingSession::Listener& listener);
    ~WaylandPickingSession() override;

    [[nodiscard]] const std::vector<Screen>& screens() const override { return m_screens; }
    [[nodiscard]] QImage grab(int screen, const QRect& pixels) override;
    [[nodiscard]] bool isFrozen() const override { return true; }
    void setFrozen(bool) override {}
    void retake() override;
    void showLoupe(const QImage& picture, int screen, QPoint topLeft) override;
    [[nodiscard]] std::optional<ScreenPosition> onScreen(const ScreenPosition& position) const override;
    bool warpPointer(const ScreenPosition& position) override;
    [[nodiscard]] bool copyText(const QString& text) override;
    void end() override;

private:
    struct LoupeFrame
    {
        QImage picture;
        int screen;
        QPoint topLeft;
    };

    void start();
    /// Asks for a surface on each output, and for the pictures.
    void coverOutputs();
    /// Takes the pictures in the way with this index, else in a later one.
    void capture(std::size_t way);
    void handleCapture(std::size_t way, CaptureOutcome outcome, ScreenCapture::Pictures pictures);
    void refuse(const QString& reason);
    void handleShown(std::size_t screen);
    void removeScreen(std::size_t screen);

    /// Null when the screen is not covered.
    [[nodiscard]] OutputCover* coverAt(int screen) const;
    /// The position of a point on one of our surfaces; none when the surface is not shown.
    [[nodiscard]] std::optional<ScreenPosition> positionOn(const wl_surface& surface, QPointF logical) const;
    /// The nearest position on a screen.
    [[nodiscard]] ScreenPosition clamped(const ScreenPosition& position) const;
    /// Where a move of the pointer leads after a warp.
    [[nodiscard]] ScreenPosition movedFromWarp(const ScreenPosition& pointer) const;
    void report(const ScreenPosition& position);
    void reportMiddle();
    void showPendingLoupe();

    void pointerEntered(wl_surface& surface, QPointF position) override;
    void pointerMoved(wl_surface& surface, QPointF position) override;
    void buttonPressed(PointerButton button, std::uint32_t serial) override;
    void buttonReleased() override {}
    void scrolled(ScrollDelta delta) override;
    void fingerMoved(wl_surface& surface, QPointF position) override;
    void fingerLifted(std::uint32_t serial) override;
    void keyboardEntered(wl_surface& surface) override;
    void keyPressed(const KeyPress& press, std::uint32_t serial) override;

    WaylandPickingParts& m_parts;
    /// Null when the session has ended.
    PickingSession::Listener* m_listener;
    /// One for each screen, null when the output is gone.
    std::vector<WaylandOutput*> m_outputs;
    /// One for each screen; null where there is no output, or no picture of it yet.
    std::vector<std::unique_ptr<OutputCover>> m_covers;
    std::vector<Screen> m_screens;
    /// The position that the listener knows; none before the first report.
    std::optional<ScreenPosition> m_reported;
    /// Where the pointer itself is; differs from the reported position after a warp.
    std::optional<ScreenPosition> m_pointer;
    /// Set while the surfaces are new and the reported position stays, although the pointer is elsewhere.
    bool m_keepsReported = false;
    /// Of the user's newest action.
    std::uint32_t m_serial = 0;
    int m_keyboardScreen = 0;
    /// A way to take pictures is there, but has returned none.
    bool m_hasFailed = false;
    std::optional<LoupeFrame> m_pendingLoupe;
    /// Where the loupe is shown.
    int m_loupeScreen = 0;
    /// Runs while no pointer has entered a surface.
    QTimer m_pointerPatience;
    /// Gives programs time to draw what they show below the pointer.
    QTimer m_retakeDelay;
};

} // namespace tintwick
