#pragma once

#include "PanelHost.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace tintwick {

/// Shows the panel as a window without a frame that the compositor places. The window includes the shadow, which lets
/// clicks through. Clicks on other programs are not reported to this one: the user dismisses the panel by making a window
/// of another program active.
class WaylandPanelHost final : public PanelHost
{
    Q_OBJECT

public:
    WaylandPanelHost();

    void show(PanelWindow& panel, const PanelAnchor& anchor) override;
    void showAgain(PanelWindow& panel) override;
    void setDismissible(bool isDismissible) override { m_isDismissible = isDismissible; }

private:
    void followFocus();
    void dismissWhenInactive();
    /// True at most once per dismissal.
    [[nodiscard]] bool isClickThatDismissed(const PanelAnchor& anchor);

    QPointer<QWidget> m_widget;
    bool m_isDismissible = true;
    /// Runs while no window of this program has the focus.
    QTimer m_inactivity;
    QElapsedTimer m_sinceDismissal;
};

} // namespace tintwick
