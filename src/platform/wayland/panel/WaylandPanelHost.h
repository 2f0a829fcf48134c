#pragma once

#include "PanelHost.h"
#include "SwayRules.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace tintwick {

/// Shows the panel as a window without a frame that the compositor places: sway in the corner of the tray. The window
/// includes the shadow, which lets clicks through. Clicks on other programs are not reported to this one: the user
/// dismisses the panel by making a window of another program active.
class WaylandPanelHost final : public PanelHost
{
    Q_OBJECT

public:
    WaylandPanelHost();

    void show(PanelWindow& panel, const PanelAnchor& anchor) override;
    void showAgain(PanelWindow& panel) override;
    /// While a dialog of another process is open, the panel may cover it. So a panel that is not dismissible hides when
    /// it becomes inactive, and comes back when it is dismissible again.
    void setDismissible(bool isDismissible) override;
    void setKeptOpen(bool isKeptOpen) override { m_isKeptOpen = isKeptOpen; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void followFocus();
    void leaveWhenInactive();
    /// True at most once per dismissal.
    [[nodiscard]] bool isClickThatDismissed(const PanelAnchor& anchor);

    PanelWindow* m_panel = nullptr;
    /// The widget of `m_panel`; null once that is destroyed.
    QPointer<QWidget> m_widget;
    SwayRules m_rules;
    /// The one of the tray as far as it is known.
    ScreenCorner m_corner;
    bool m_isDismissible = true;
    bool m_isKeptOpen = false;
    /// Hidden until it is dismissible again.
    bool m_isAway = false;
    /// Runs while no window of this program has the focus.
    QTimer m_inactivity;
    QElapsedTimer m_sinceMenu;
    QElapsedTimer m_sinceDismissal;
};

} // namespace tintwick
