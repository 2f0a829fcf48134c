#pragma once

#include <QMargins>
#include <QObject>
#include <QRect>
#include <QString>

#include <optional>

class QPainter;
class QWidget;

namespace tintwick {

/// The place from which the user opened the panel.
struct PanelAnchor
{
    /// The tray icon in points from the top left of the desktop; none where the tray does not report its position.
    std::optional<QRect> icon;
    /// The user clicked the icon, so the pointer is over it.
    bool isClicked = false;
};

/// The panel's window for its host: frameless, with the preferred size as its size hint.
class PanelWindow
{
public:
    [[nodiscard]] virtual QWidget& widget() = 0;
    /// Called before the window is shown and when the desktop changes. On a desktop that does not blend translucent pixels, the window must mask its
    /// corners.
    virtual void setBlended(bool isBlended) = 0;
    /// How far the shadow extends beyond the panel, in points.
    [[nodiscard]] virtual QMargins shadowMargins() const = 0;
    /// Whether the window is larger than the panel by the margins of the shadow and shows the shadow there. False by
    /// default: the host shows it.
    virtual void setShadowInside(bool isInside) = 0;
    /// Paints the shadow in points from the top left of the panel, and nothing where the panel itself is.
    virtual void paintShadow(QPainter& painter) const = 0;

protected:
    PanelWindow() = default;
    PanelWindow(const PanelWindow&) = default;
    PanelWindow& operator=(const PanelWindow&) = default;
    ~PanelWindow() = default;
};

/// Shows the panel on the desktop and reports when the user dismisses it. One panel at a time.
class PanelHost : public QObject
{
    Q_OBJECT

public:
    /// Shows a hidden panel beside its anchor, or at the top right of the primary monitor without one, above all
    /// windows and on every workspace, and gives it the keyboard focus. Reduces its height where the monitor has less
    /// room. A visible panel only gets the focus. Does nothing when the click on the icon is the one that has just
    /// dismissed the panel. The host follows the widget when it is hidden or destroyed: the window that had the focus
    /// gets it back.
    virtual void show(PanelWindow& panel, const PanelAnchor& anchor) = 0;

    /// Shows a hidden panel at its last position and gives it the keyboard focus.
    virtual void showAgain(PanelWindow& panel) = 0;

    /// The name that desktop portals use for a window of ours ("x11:1a0"); empty where windows have none.
    [[nodiscard]] virtual QString portalHandle(const QWidget&) const { return {}; }

    /// When false, clicks elsewhere do not dismiss the panel, for example while a dialog of another process is open.
    /// The value at the press of the button counts. True by default.
    virtual void setDismissible(bool isDismissible) = 0;

    /// When true, the panel stays beside the windows of other programs until the program hides it: nothing that the user does
    /// there dismisses it. False by default.
    virtual void setKeptOpen(bool isKeptOpen) = 0;

Q_SIGNALS:
    /// The user clicked elsewhere while the panel was dismissible and not kept open. The receiver hides the panel.
    void dismissed();
};

} // namespace tintwick
