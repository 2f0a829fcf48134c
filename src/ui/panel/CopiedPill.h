#pragma once

#include "Animator.h"
#include "EaseInOut.h"

#include <QWidget>

namespace tintwick {

class AppState;

/// Says "Copied!" for as long as the state does. It comes and goes by growing a little while it fades.
class CopiedPill final : public QWidget
{
    Q_OBJECT

public:
    explicit CopiedPill(const AppState& appState);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void follow(bool isShown);

    /// 0 gone, 1 there.
    EaseInOut m_presence;
    Animator m_animator;
};

} // namespace tintwick
