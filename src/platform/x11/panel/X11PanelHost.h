#pragma once

#include "PanelHost.h"
#include "X11ClickMonitor.h"
#include "X11CompositorMonitor.h"
#include "X11PanelFocus.h"
#include "X11PanelShadow.h"
#include "XcbConnection.h"

#include <QElapsedTimer>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QWidget>

#include <optional>

namespace tintwick {

/// Sets window manager hints that keep the panel out of task bars and pagers. Shows the shadow as a separate window
/// below the panel while a compositor runs.
class X11PanelHost final : public PanelHost
{
    Q_OBJECT

public:
    explicit X11PanelHost(XcbConnection& connection);

    void show(PanelWindow& panel, const PanelAnchor& anchor) override;
    void showAgain(PanelWindow& panel) override;
    [[nodiscard]] QString portalHandle(const QWidget& window) const override;
    void setDismissible(bool isDismissible) override { m_isDismissible = isDismissible; }
    void setKeptOpen(bool isKeptOpen) override { m_isKeptOpen = isKeptOpen; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void adopt(PanelWindow& panel);
    void showAtLastAnchor(PanelWindow& panel);
    void setWindowManagerHints(const QWidget& widget) const;
    void handlePress();
    void handleClick();
    [[nodiscard]] bool pointerIsOverBareRoot() const;
    /// True at most once per dismissal.
    [[nodiscard]] bool isClickThatDismissed(const PanelAnchor& anchor);
    void handleHide();
    void followScreens();
    /// Moves a visible panel to where it belongs on the screens as they are now.
    void placeAgain();
    void adaptToCompositor();
    /// Draws the shadow where it is not up to date. It is not visible before placeShadow().
    void prepareShadow();
    /// Shows the shadow below a visible panel.
    /// At the panel's place on the server.
    void placeShadow();
    /// `panel` is its top left corner in pixels of the root.
    void placeShadow(QPoint panel);
    /// In pixels.
    [[nodiscard]] QMargins shadowMargins() const;

    XcbConnection& m_connection;
    X11ClickMonitor m_clickMonitor;
    X11CompositorMonitor m_compositorMonitor;
    X11PanelFocus m_focus;
    std::optional<X11PanelShadow> m_shadow;
    PanelWindow* m_panel = nullptr;
    /// The widget of `m_panel`; null once that is destroyed.
    QPointer<QWidget> m_widget;
    /// In points from the top left of the desktop.
    std::optional<QRect> m_lastAnchor;
    /// The panel is on the screen, and its shadow too if there is a compositor.
    bool m_isExposed = false;
    /// Of the panel when the shadow was drawn, and its scale.
    QSize m_shadowedSize;
    double m_shadowedScale = 0;
    bool m_isDismissible = true;
    bool m_isKeptOpen = false;
    bool m_pressDismisses = false;
    QElapsedTimer m_sinceDismissal;
    QPoint m_dismissingClick;
};

} // namespace tintwick
