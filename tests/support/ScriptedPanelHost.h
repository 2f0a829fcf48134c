#pragma once

#include "PanelHost.h"

#include <QWidget>

namespace tintwick::test {

/// A desktop that shows the panel where it is and records how. The test dismisses it.
class ScriptedPanelHost final : public PanelHost
{
public:
    bool blends = true;
    int timesShown = 0;
    PanelAnchor lastAnchor;
    /// How portals name every window.
    QString handle;

    /// A click outside our windows.
    void clickElsewhere()
    {
        if (m_isDismissible && !m_isKeptOpen) {
            Q_EMIT dismissed();
        }
    }

    void show(PanelWindow& panel, const PanelAnchor& anchor) override
    {
        ++timesShown;
        lastAnchor = anchor;
        panel.setBlended(blends);
        panel.widget().show();
    }
    void showAgain(PanelWindow& panel) override { show(panel, lastAnchor); }
    void setDismissible(bool isDismissible) override { m_isDismissible = isDismissible; }
    void setKeptOpen(bool isKeptOpen) override { m_isKeptOpen = isKeptOpen; }
    [[nodiscard]] QString portalHandle(const QWidget&) const override { return handle; }

private:
    bool m_isDismissible = true;
    bool m_isKeptOpen = false;
};

} // namespace tintwick::test
