#pragma once

#include "support/PrivateDesktop.h"
#include "support/RunningProgram.h"

#include <QByteArray>
#include <QColor>
#include <QJsonArray>
#include <QJsonObject>
#include <QProcessEnvironment>
#include <QRect>
#include <QString>
#include <QStringList>

#include <xcb/xcb.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace tintwick {

/// The real program on a private desktop, used from outside only. Functions that wait return false, and
/// those that search return nothing, when the program does not react within a few seconds.
class TintwickProcess final
{
public:
    enum class ChosenBy : std::uint8_t { Pointer, Keys };

    /// Starts the program; `environment` is added to that of the desktop. By default the panel does not open by itself.
    explicit TintwickProcess(PrivateDesktop& desktop, const QProcessEnvironment& environment = {},
                             const QStringList& arguments = {QStringLiteral("--background")});
    /// Starts it with redirections of the shell, such as ">&-".
    TintwickProcess(PrivateDesktop& desktop, const QProcessEnvironment& environment,
                    const QString& redirections);

    [[nodiscard]] RunningProgram& process() { return *m_process; }

    [[nodiscard]] bool waitForTrayIcon();
    /// The tray icon's rectangle on the screen; empty while there is none.
    [[nodiscard]] QRect trayIcon();
    /// Right-clicks the tray icon and waits for the menu.
    [[nodiscard]] bool openMenu();
    /// Like openMenu() and choosePick() while another program has grabbed the pointer: sends the clicks to the windows.
    [[nodiscard]] bool openMenuWithoutPointer();
    void clickIconWithoutPointer();
    void choosePickWithoutPointer();
    /// The open menu's rectangle on the screen; empty while none is open.
    [[nodiscard]] QRect menuPlace();
    /// Moves the pointer onto "Pick Color (⌥⇧C)" in the open menu.
    void pointAtPick();
    /// Chooses "Pick Color (⌥⇧C)" in the open menu.
    void choosePick(ChosenBy chosenBy = ChosenBy::Pointer);
    /// Chooses "Pick in 3 s" in the open menu.
    void chooseDelayedPick();
    /// The rectangle of the picture beside the pointer; empty while there is none.
    [[nodiscard]] QRect badge();
    /// Chooses "Settings…" in the open menu.
    void chooseSettings();
    /// The settings window; none while it is closed.
    [[nodiscard]] xcb_window_t settingsWindow();
    /// Chooses "Quit Tintwick" in the open menu.
    void chooseQuit();
    /// The number of its visible windows that are children of the root: menus, tool tips, windows without a frame. Without
    /// the badge beside the pointer.
    [[nodiscard]] std::size_t visibleWindows();
    /// None while it is hidden.
    [[nodiscard]] xcb_window_t panelWindow();
    /// The panel's rectangle on the screen; empty while it is hidden.
    [[nodiscard]] QRect panel();
    [[nodiscard]] bool waitForPanel();
    [[nodiscard]] bool waitForPanelToHide();
    /// Waits until the panel has the keyboard focus.
    [[nodiscard]] bool waitForPanelToHaveFocus();
    [[nodiscard]] bool waitForLoupe();
    /// Starts a pick from the tray icon and waits for the loupe.
    [[nodiscard]] bool startPicking(ChosenBy chosenBy = ChosenBy::Pointer);
    [[nodiscard]] bool waitForPickToEnd();

    /// The loupe's rectangle on the screen, without its shadows; none while it is not shown.
    [[nodiscard]] std::optional<QRect> loupe();
    /// Waits until the loupe is at the place, within one pixel for rounding.
    [[nodiscard]] bool waitForLoupeAt(const QRect& place);
    [[nodiscard]] bool waitForCenterCell(QRgb color);
    /// The colour in the middle of the loupe's centre cell.
    [[nodiscard]] QRgb centerCell();
    /// The colour in the middle of a cell, counted from the centre cell, when the loupe samples with this radius at
    /// this scale of the user interface.
    [[nodiscard]] QRgb cell(int column, int row, int radius, double scale = 1);

    [[nodiscard]] QString dataFolder() const;
    [[nodiscard]] QString dataFile() const;
    /// The content of the data file; empty while there is none.
    [[nodiscard]] QJsonObject data() const;
    /// The stored colours, the newest first.
    [[nodiscard]] QJsonArray history() const;
    [[nodiscard]] bool waitForClipboard(const QByteArray& text);

private:
    void sendClick(xcb_window_t window, PrivateDesktop::Button button, QPoint position);
    [[nodiscard]] xcb_window_t trayIconWindow();
    /// The tray's rectangle when it is in the middle or at an end of its edge of the screen, else empty.
    [[nodiscard]] QRect trayInItsPlace();
    [[nodiscard]] bool belongsToProgram(xcb_window_t window);
    [[nodiscard]] bool isLoupe(xcb_window_t window);
    [[nodiscard]] bool isBadge(xcb_window_t window);
    [[nodiscard]] bool isSettingsWindow(xcb_window_t window);
    [[nodiscard]] bool isPanel(xcb_window_t window);
    [[nodiscard]] xcb_window_t menu();

    PrivateDesktop& m_desktop;
    std::unique_ptr<RunningProgram> m_process;
    xcb_window_t m_loupe = XCB_NONE;
};

/// Writes the data file before the program starts.
void keepData(const PrivateDesktop& desktop, const QByteArray& json);
/// Writes the preferences before the program starts, one "key=value" per line.
void keepPreferences(const PrivateDesktop& desktop, const QByteArray& lines);

/// The loupe's rectangle for a pointer over a monitor, when its grid measures `side` points: the grid's
/// middle is on the pointer, and four points from the monitor's edges are kept free.
[[nodiscard]] QRect loupePlace(QPoint pointer, const QRect& monitor, double scale = 1, int side = 130);

/// The text that a pick of this pixel copies in the default format.
[[nodiscard]] QByteArray hexText(QRgb color);

} // namespace tintwick
