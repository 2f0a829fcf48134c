#pragma once

#include "platform/ClickMonitor.h"

namespace tintwick::test {

/// The test clicks elsewhere; nobody hears it while the monitor is off.
class ScriptedClickMonitor final : public ClickMonitor
{
public:
    [[nodiscard]] bool isOn() const { return m_handler != nullptr; }
    void clickElsewhere() const
    {
        if (const PressedElsewhere handler = m_handler) {
            handler();
        }
    }

    void start(PressedElsewhere handler) override { m_handler = std::move(handler); }
    void stop() override { m_handler = nullptr; }

private:
    PressedElsewhere m_handler;
};

} // namespace tintwick::test
