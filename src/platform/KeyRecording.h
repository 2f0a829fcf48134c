#pragma once

#include "KeyPress.h"

#include <cstdint>

namespace tintwick {

/// Takes the keyboard of the whole desktop: while a recording runs, its listener gets every key press and no other client
/// does, including combinations that other programs have grabbed. The pointer is not affected.
class KeyRecording
{
public:
    class Listener
    {
    public:
        /// The key code is -1 also for a key pressed with a modifier that no shortcut can have.
        virtual void keyPressed(const KeyPress& press) = 0;
        /// Another listener began a recording, which ended this one. Do not call end().
        virtual void recordingLost() = 0;

    protected:
        ~Listener() = default;
    };

    enum class Outcome : std::uint8_t { Started, Refused };

    virtual ~KeyRecording() = default;

    /// Refused when another client holds the keyboard grab and does not release it within a moment. The listener must live
    /// until end() or recordingLost().
    [[nodiscard]] virtual Outcome begin(Listener& listener) = 0;

    /// Releases the keyboard once no key is down, so that no other client gets the release or a repetition of a recorded
    /// key. Does nothing when the listener has no recording.
    virtual void end(Listener& listener) = 0;
};

} // namespace tintwick
