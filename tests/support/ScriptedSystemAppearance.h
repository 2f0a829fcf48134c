#pragma once

#include "platform/SystemAppearance.h"

#include <utility>

namespace tintwick::test {

/// A desktop whose appearance the test chooses.
class ScriptedSystemAppearance final : public SystemAppearance
{
public:
    void choose(Scheme scheme)
    {
        m_scheme = scheme;
        if (m_changed) {
            m_changed();
        }
    }

    bool reduces = false;

    void follow(Changed changed) override { m_changed = std::move(changed); }
    [[nodiscard]] Scheme scheme() const override { return m_scheme; }
    [[nodiscard]] bool reducesMotion() const override { return reduces; }

private:
    Changed m_changed;
    Scheme m_scheme = Scheme::Unknown;
};

} // namespace tintwick::test
