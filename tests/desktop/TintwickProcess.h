#pragma once

#include "support/PrivateDesktop.h"
#include "support/RunningProgram.h"

#include <QByteArray>
#include <QColor>
#include <QJsonObject>
#include <QProcessEnvironment>
#include <QRect>
#include <QString>
#include <QStringList>

#include <xcb/xcb.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace tintwick {

/// The real program on a private desktop, seen and moved from outside only. What waits returns false, and
/// what looks returns nothing, when the program does not do its part within a few seconds.
class TintwickProcess final
{
public:
    enum class ChosenBy : std::uint8_t { Pointer, Keys };

    /// Starts the program; `environment` is added to that of the desktop.
    explicit TintwickProcess(PrivateDesktop& desktop, const QProcessEnvironment& environment = {});

    [[nodiscard]] RunningProgram& process() { return *m_process; }

    [[nodiscard]] bool waitForTrayIcon();
    /// The tray icon on the screen; empty while there is none.
    [[nodiscard]] QRect trayIcon();
    /// Right-clicks the tray icon and waits for the menu.
    [[nodiscard]] bool openMenu();
    /// As openMenu() and choosePick(), while another program holds the real pointer: the clicks are sent to our windows.
    [[nodiscard]] bool openMenuWithoutPointer();
    void clickIconWithoutPointer();
    void choosePickWithoutPointer();
    /// The open menu on the screen; empty while none is open.
    [[nodiscard]] QRect menuPlace();
    /// Moves the pointer onto "Pick Color (⌥⇧C)" in the open menu.
    void pointAtPick();
    /// Chooses "Pick Color (⌥⇧C)" in the open menu.
    void choosePick(ChosenBy chosenBy = ChosenBy::Pointer);
    /// Chooses "Settings…" in the open menu.
    void chooseSettings();
    /// The settings window; none while it is closed.
    [[nodiscard]] xcb_window_t settingsWindow();
    /// Chooses "Quit Tintwick" in the open menu.
    void chooseQuit();
    /// The main panel on the screen; empty while it is hidden.
    [[nodiscard]] QRect panel();
    [[nodiscard]] bool waitForPanel();
    [[nodiscard]] bool waitForPanelToHide();
    [[nodiscard]] bool waitForLoupe();
    /// From the tray icon to the loupe on the screen.
    [[nodiscard]] bool startPicking(ChosenBy chosenBy = ChosenBy::Pointer);
    [[nodiscard]] bool waitForPickToEnd();

    /// The loupe on the screen; nothing while it is not shown.
    [[nodiscard]] std::optional<QRect> loupe();
    /// Whether the loupe comes to the place, give or take the pixel that rounding may take.
    [[nodiscard]] bool waitForLoupeAt(const QRect& place);
    [[nodiscard]] bool waitForCenterCell(QRgb color);
    /// What the middle of the loupe's centre cell looks like now.
    [[nodiscard]] QRgb centerCell();
    /// What the middle of a cell looks like now, counted from the centre cell, when the loupe samples with this radius at
    /// this scale of the user interface.
    [[nodiscard]] QRgb cell(int column, int row, int radius, double scale = 1);

    [[nodiscard]] QString dataFolder() const;
    [[nodiscard]] QString dataFile() const;
    /// The data file, empty while there is none.
    [[nodiscard]] QJsonObject data() const;
    [[nodiscard]] bool waitForClipboard(const QByteArray& text);

private:
    void sendClick(xcb_window_t window, PrivateDesktop::Button button, QPoint position);
    [[nodiscard]] xcb_window_t trayIconWindow();
    /// The tray in the middle or at an end of its edge of the screen; empty while it is elsewhere.
    [[nodiscard]] QRect trayInItsPlace();
    [[nodiscard]] bool belongsToProgram(xcb_window_t window);
    [[nodiscard]] bool isLoupe(xcb_window_t window);
    [[nodiscard]] bool isSettingsWindow(xcb_window_t window);
    [[nodiscard]] bool isPanel(xcb_window_t window);
    [[nodiscard]] xcb_window_t menu();

    PrivateDesktop& m_desktop;
    std::unique_ptr<RunningProgram> m_process;
    xcb_window_t m_loupe = XCB_NONE;
};

/// Leaves a data file for a program that is yet to start.
void keepData(const PrivateDesktop& desktop, const QByteArray& json);
/// The same with preferences, one "key=value" to a line.
void keepPreferences(const PrivateDesktop& desktop, const QByteArray& lines);

/// Where the loupe belongs for a pointer over a monitor, when its scope measures `side` points: the scope's
/// middle on the pointer, pushed back to keep four points from the monitor's edges.
[[nodiscard]] QRect loupePlace(QPoint pointer, const QRect& monitor, double scale = 1, int side = 130);

/// The text that a pick of this pixel copies in the default format.
[[nodiscard]] QByteArray hexText(QRgb color);

} // namespace tintwick
