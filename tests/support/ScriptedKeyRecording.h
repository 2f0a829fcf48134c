#pragma once

#include "KeyRecording.h"

#include <utility>

namespace tintwick::test {

/// The keyboard of a desktop that exists only in the test. The listener gets a key at once; without a recording nobody gets
/// it.
class ScriptedKeyRecording final : public KeyRecording
{
public:
    Outcome outcome = Outcome::Started;

    [[nodiscard]] bool isOn() const { return m_listener != nullptr; }
    void press(int keyCode, int modifiers = 0) { send({keyCode, modifiers, false, 0}); }
    void repeat(int keyCode, int modifiers = 0) { send({keyCode, modifiers, true, 0}); }

    [[nodiscard]] Outcome begin(Listener& listener) override
    {
        if (m_listener && m_listener != &listener) {
            std::exchange(m_listener, nullptr)->recordingLost();
        }
        if (outcome == Outcome::Started) {
            m_listener = &listener;
        }
        return outcome;
    }
    void end(Listener& listener) override
    {
        if (m_listener == &listener) {
            m_listener = nullptr;
        }
    }

private:
    void send(const KeyPress& press)
    {
        if (m_listener) {
            m_listener->keyPressed(press);
        }
    }

    Listener* m_listener = nullptr;
};

} // namespace tintwick::test
