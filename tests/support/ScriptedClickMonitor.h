#pragma once

#include "ClickMonitor.h"

#include <utility>

namespace tintwick::test {

/// The test clicks elsewhere; nobody hears it while the monitor is off.
class ScriptedClickMonitor final : public ClickMonitor
{
public:
    [[nodiscard]] bool isOn() const { return m_clicked != nullptr; }
    void clickElsewhere() const
    {
        const PressedElsewhere pressed = m_pressed;
        if (pressed && pressed() && isOn()) {
            const ClickedElsewhere clicked = m_clicked;
            clicked();
        }
    }

    void start(PressedElsewhere pressed, ClickedElsewhere clicked) override
    {
        m_pressed = std::move(pressed);
        m_clicked = std::move(clicked);
    }
    void stop() override
    {
        m_pressed = nullptr;
        m_clicked = nullptr;
    }

private:
    PressedElsewhere m_pressed;
    ClickedElsewhere m_clicked;
};

} // namespace tintwick::test
