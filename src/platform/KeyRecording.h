#pragma once

#include "KeyPress.h"

#include <QObject>

#include <cstdint>

namespace tintwick {

/// Grabs the keyboard of the whole desktop. While a recording runs, keyPressed() reports every key press and no other
/// client receives it, including combinations that other programs have grabbed. The pointer is not affected.
class KeyRecording : public QObject
{
    Q_OBJECT

public:
    enum class Outcome : std::uint8_t { Started, Refused };

    using QObject::QObject;

    /// Starts a recording; one that runs already is ended with lost(). Refused when another client holds the keyboard
    /// grab and does not release it within a moment.
    [[nodiscard]] virtual Outcome begin() = 0;

    /// Releases the keyboard once no key is down, so that no other client gets the release or a repetition of a
    /// recorded key. Does nothing when no recording runs.
    virtual void end() = 0;

Q_SIGNALS:
    /// The key code is -1 also for a key pressed with a modifier that no shortcut can have.
    void keyPressed(const tintwick::KeyPress& press);
    /// begin() was called again and ended the recording that ran.
    void lost();
};

} // namespace tintwick
