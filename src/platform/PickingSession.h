#pragma once

#include "KeyPress.h"
#include "Screen.h"
#include "ScrollDelta.h"

#include <QImage>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace tintwick {

enum class PointerButton : std::uint8_t { Primary, Secondary, Middle, Other };

/// The hold on the desktop during one pick: all input goes to the listener, the pointer is hidden, pixels can be read and
/// the loupe can be shown. Made by Platform::startPick(). Destroying it ends it.
class PickingSession
{
public:
    /// Receives the input of one session. Every call comes from the event loop, never from within a call of the session.
    /// The listener may end the session from any of them, but must not destroy it there.
    class Listener
    {
    public:
        /// No input was taken and nothing is shown; `reason` is one sentence for the user. The session has ended.
        virtual void refused(const QString& reason) = 0;
        /// The first report says that the session has begun, where there is a screen. Moves that pile up are merged into the
        /// newest. Also reported when screens have changed.
        virtual void pointerMoved(const ScreenPosition& position) = 0;
        virtual void buttonPressed(PointerButton button, const ScreenPosition& position) = 0;
        virtual void scrolled(ScrollDelta delta) = 0;
        virtual void keyPressed(const KeyPress& press) = 0;
        /// Pixels of the last grab may have changed. May come many times in one turn of the event loop.
        virtual void contentChanged() = 0;
        /// The desktop took the input away, or no screen is left. Call end().
        virtual void lost() = 0;

    protected:
        ~Listener() = default;
    };

    virtual ~PickingSession() = default;

    /// Empty before the session has started and where there is no screen.
    [[nodiscard]] virtual const std::vector<Screen>& screens() const = 0;

    /// Reads the pixels of a rectangle, in physical pixels of the screen, which it may exceed. One pixel of the picture is
    /// one physical pixel (Format_RGB32); pixels that no screen shows are dark grey. Never contains the loupe or the
    /// pointer's image. Null when the desktop gives no picture.
    [[nodiscard]] virtual QImage grab(int screen, const QRect& pixels) = 0;

    /// Shows one frame of the loupe above everything else; picture and place change together. The picture is premultiplied
    /// ARGB32 in physical pixels of the screen; `topLeft` counts from the screen's top left corner.
    virtual void showLoupe(const QImage& picture, int screen, QPoint topLeft) = 0;

    /// The same point on the screen that shows it, for a position beyond the edge of its own screen; none where no screen
    /// continues there.
    [[nodiscard]] virtual std::optional<ScreenPosition> onScreen(const ScreenPosition& position) const = 0;

    /// Moves the real pointer; returns false where the desktop does not let programs do that.
    virtual bool warpPointer(const ScreenPosition& position) = 0;

    /// Puts a plain text on the clipboard. Some desktops accept it only while the session stands.
    virtual void copyText(const QString& text) = 0;

    /// Removes the loupe, shows the pointer and returns the input to the desktop. A button or key that is still down
    /// belongs to the pick: no other program gets its release. Nothing is reported from now on. Does nothing when ended.
    virtual void end() = 0;
};

} // namespace tintwick
