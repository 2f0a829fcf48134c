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

/// Controls the desktop during one pick: all input is delivered to the listener, the pointer is hidden, pixels can be
/// read and the loupe can be shown. Created by Platform::startPick(). The destructor ends the session.
class PickingSession
{
public:
    /// Receives the input of one session. All calls come from the event loop, never from within a call of the session.
    /// The listener may end the session in any of them, but must not destroy it there.
    class Listener
    {
    public:
        /// The session did not start: no input is grabbed and nothing is shown. `reason` is one sentence for the user.
        /// The session has ended.
        virtual void refused(const QString& reason) = 0;
        /// Another program holds the input. The session has taken its picture and starts when the input is free, or is
        /// refused after some seconds. `sentence` tells the user.
        virtual void waiting(const QString& sentence) = 0;
        /// The first report means that the session has started, on a desktop with a screen. Pending moves are merged
        /// into the newest. Also reported when the screens have changed.
        virtual void pointerMoved(const ScreenPosition& position) = 0;
        /// `modifiers` is a combination of the masks of `modifier` in KeyCode.h.
        virtual void buttonPressed(PointerButton button, const ScreenPosition& position, int modifiers) = 0;
        virtual void scrolled(ScrollDelta delta) = 0;
        virtual void keyPressed(const KeyPress& press) = 0;
        /// Pixels of the last grab may have changed. Can be reported several times in one turn of the event loop.
        virtual void contentChanged() = 0;
        /// The desktop ended the grab of the input, or no screen is left. Call end().
        virtual void lost() = 0;

    protected:
        ~Listener() = default;
    };

    virtual ~PickingSession() = default;

    /// Empty before the session has started and where there is no screen.
    [[nodiscard]] virtual const std::vector<Screen>& screens() const = 0;

    /// Reads the pixels of a rectangle in physical pixels of the screen. The rectangle may exceed the screen. One pixel
    /// of the image is one physical pixel (Format_RGB32); pixels outside all screens are dark grey. The image never
    /// contains the loupe or the pointer. Null when the desktop returns no image.
    [[nodiscard]] virtual QImage grab(int screen, const QRect& pixels) = 0;

    /// Whether the pixels are those of one moment; else they are those that the desktop shows now.
    [[nodiscard]] virtual bool isFrozen() const = 0;

    /// Freezes the pixels as they are now, or returns to live ones. Reported by contentChanged(). Before the session has
    /// started, `true` means that the pixels are taken before the input is grabbed, so that they contain what a grab
    /// would close, such as menus and tool tips. No effect where a session is always frozen.
    virtual void setFrozen(bool isFrozen) = 0;

    /// Replaces frozen pixels with those that the desktop shows now, without our own windows. Reported by
    /// contentChanged(). No effect where the pixels are live.
    virtual void retake() = 0;

    /// Shows one frame of the loupe above everything else; image and position change together. The image is
    /// premultiplied ARGB32 in physical pixels of the screen. `topLeft` is relative to the screen's top left corner.
    virtual void showLoupe(const QImage& picture, int screen, QPoint topLeft) = 0;

    /// Maps a position beyond the edge of its screen to the screen that contains the same point; none where no screen
    /// continues there.
    [[nodiscard]] virtual std::optional<ScreenPosition> onScreen(const ScreenPosition& position) const = 0;

    /// Warps the pointer; returns false where the desktop does not allow it.
    virtual bool warpPointer(const ScreenPosition& position) = 0;

    /// Copies a plain text to the clipboard. Some desktops accept it only during the session. Returns whether the desktop
    /// says that the clipboard is now ours; false is a failure for the user.
    [[nodiscard]] virtual bool copyText(const QString& text) = 0;

    /// Removes the loupe, shows the pointer and releases the input. No other program receives the release of a button
    /// or key that is still down. Nothing is reported after this call. Does nothing when the session has ended.
    virtual void end() = 0;
};

} // namespace tintwick
