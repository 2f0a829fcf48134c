#pragma once

#include "Animator.h"
#include "Clickable.h"
#include "Spring.h"

#include <functional>

namespace tintwick {

/// A switch between on and off. Space, Return or a click change it. Screen readers see a check box.
class Switch final : public Clickable
{
    Q_OBJECT

public:
    /// `name` is for screen readers.
    Switch(const QString& name, bool isOn);

    /// Runs `action` when the user changes the switch. The switch stays only if the action returns true.
    void onSwitch(std::function<bool(bool isOn)> action);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] double cornerRadius() const override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// 0 at the left end, off, to 1 at the right end.
    Spring m_thumb;
    Animator m_animator;
    std::function<bool(bool)> m_onSwitch;
};

} // namespace tintwick
