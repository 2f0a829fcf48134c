#pragma once

#include "Coordinates.h"
#include "KeyPress.h"

#include <cstdint>

namespace tintwick {

enum class PointerButton : std::uint8_t { Primary, Secondary, Middle, Other };

/// One step of the vertical wheel; positive is up (away from the user).
struct ScrollDelta
{
    double amount = 0;
    /// True where the amount is in points, as a touchpad's is; otherwise it counts wheel notches, of which a fine wheel
    /// turns parts.
    bool isPrecise = false;

    friend constexpr bool operator==(const ScrollDelta&, const ScrollDelta&) = default;
};

/// While it is on, every pointer move, click, scroll and key of the whole desktop comes to the listener and to nobody
/// else, and the pointer is hidden. Positions are in desktop space and may be fractional.
class PickingInput
{
public:
    class Listener
    {
    public:
        /// Moves that piled up arrive as one, with the newest position.
        virtual void pointerMoved(DesktopPoint position) = 0;
        virtual void buttonPressed(PointerButton button, DesktopPoint position) = 0;
        virtual void scrolled(ScrollDelta delta) = 0;
        virtual void keyPressed(const KeyPress& press) = 0;
        /// Input is no longer ours (the system took it away); end() is still owed.
        virtual void inputLost() = 0;

    protected:
        ~Listener() = default;
    };

    enum class Outcome : std::uint8_t { Started, Refused };

    virtual ~PickingInput() = default;

    /// Refused when another program holds the pointer or the keyboard and keeps holding it for a moment; then nothing
    /// is hidden or taken. The listener must live until end().
    [[nodiscard]] virtual Outcome begin(Listener& listener) = 0;

    /// Shows the pointer and gives everything back. A button or key that is still down belongs to the pick: its release
    /// is swallowed too. Does nothing when not begun.
    virtual void end() = 0;

    [[nodiscard]] virtual DesktopPoint pointerPosition() const = 0;

    /// Moves the pointer; the desktop keeps it on a screen. The listener hears of it as of any other move.
    virtual void movePointerBy(double dx, double dy) = 0;
};

} // namespace tintwick
