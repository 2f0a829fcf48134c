#pragma once

#include "KeyRecording.h"

#include <utility>

namespace tintwick::test {

/// The keyboard of a desktop that exists only in the test. Keys are reported at once, and only while a recording runs.
class ScriptedKeyRecording final : public KeyRecording
{
public:
    Outcome outcome = Outcome::Started;

    [[nodiscard]] bool isOn() const { return m_isOn; }
    void press(int keyCode, int modifiers = 0) { press({.keyCode = keyCode, .modifiers = modifiers}); }
    void repeat(int keyCode, int modifiers = 0)
    {
        press({.keyCode = keyCode, .modifiers = modifiers, .isRepeat = true});
    }
    void press(const KeyPress& press)
    {
        if (m_isOn) {
            Q_EMIT keyPressed(press);
        }
    }

    [[nodiscard]] Outcome begin() override
    {
        if (std::exchange(m_isOn, false)) {
            Q_EMIT lost();
        }
        m_isOn = outcome == Outcome::Started;
        return outcome;
    }
    void end() override { m_isOn = false; }

private:
    bool m_isOn = false;
};

} // namespace tintwick::test
