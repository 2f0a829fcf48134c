#pragma once

#include "KeyPress.h"

#include <cstdint>

namespace tintwick {

/// While it is on, every key of the whole desktop comes to the listener and to nobody else, the combinations that the
/// desktop and other programs hold included. The pointer stays everybody's.
class KeyRecording
{
public:
    class Listener
    {
    public:
        /// The key code is -1 also for a key that is pressed with a modifier no shortcut can have.
        virtual void keyPressed(const KeyPress& press) = 0;
        /// Keys go to another listener now; nothing is owed any more.
        virtual void recordingLost() = 0;

    protected:
        ~Listener() = default;
    };

    enum class Outcome : std::uint8_t { Started, Refused };

    virtual ~KeyRecording() = default;

    /// Refused when another program holds the keyboard and keeps holding it for a moment: no key would come. The
    /// listener must live until end() or until the recording is lost to another one.
    [[nodiscard]] virtual Outcome begin(Listener& listener) = 0;

    /// Gives the keyboard back. A key that is still down belongs to the recording: nobody else gets its release or its
    /// repetitions. Does nothing when not begun, or when begun for another listener.
    virtual void end(Listener& listener) = 0;
};

} // namespace tintwick
