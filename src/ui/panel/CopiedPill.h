#pragma once

#include "Animator.h"
#include "EaseInOut.h"

#include <QWidget>

namespace tintwick {

class AppState;

/// Shows "Copied!" while the state's copy feedback is on. Fades and scales in and out.
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

    /// 0 hidden, 1 shown.
    EaseInOut m_presence;
    Animator m_animator;
};

} // namespace tintwick
