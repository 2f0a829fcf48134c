#pragma once

#include "Appearance.h"
#include "ContextMenu.h"
#include "PanelScreen.h"
#include "ScreenStack.h"
#include "View.h"
#include "WantedPick.h"

#include <QList>
#include <QUuid>

#include <functional>
#include <optional>

namespace tintwick {

class AppState;
class ColorIntake;
class DashboardView;
class OpenRequest;
class PanelHeader;
class PanelNotices;
class Preferences;
class Stack;
class ActionPill;

/// The content of the panel: a header, and below it one screen. Paints the rounded background.
class PanelView final : public View
{
    Q_OBJECT

public:
    using MakeSettings = std::function<QWidget*(QWidget& panel)>;

    /// Selects the history. No collection has this id.
    static constexpr QUuid historySelectionId{};

    /// `makeSettings` is called each time the settings are shown.
    PanelView(AppState& appState, Preferences& preferences, MakeSettings makeSettings);

    /// Sets the preference of the desktop. Without one the palette of the toolkit decides. The user's choice in the panel
    /// overrides both.
    void setSystemScheme(std::optional<Scheme> scheme);

    /// Shows a collection, or the history for `historySelectionId`. Shows the dashboard for none and for an unknown id.
    void setSelectedCollectionId(const std::optional<QUuid>& id);
    void setShowingSettings(bool shows);
    /// Shows the dashboard if the settings are shown and no sheet is open above them.
    void leaveSettings();
    /// See PanelHeader::setMenu().
    void setMenu(std::function<QList<MenuEntry>()> entries);
    /// Shows a sentence below the header, such as why a pick could not begin. See PanelNotices.
    void showNotice(const QString& sentence);

    /// Whether the user wants the panel to stay open beside other windows. The choice lasts as long as the program runs: a panel
    /// that a click elsewhere does not close weeks later would look broken.
    [[nodiscard]] bool keepsOpen() const;

    /// Adds a palette for each file, or shows why not.
    void importFiles(const QStringList& paths);

    /// The keys of the shortcut that picks, as they are shown and as a screen reader says them; empty when there is none.
    void setPickKeys(const QString& keys, const QString& inWords);

    [[nodiscard]] const Appearance& appearance() const { return m_appearance; }
    [[nodiscard]] DashboardView& dashboard() const { return *m_dashboard; }
    /// The screen below the header. Every screen but the dashboard gets a new widget each time that it is opened.
    [[nodiscard]] QWidget& currentScreen() const;

Q_SIGNALS:
    void keepOpenChanged(bool keepsOpen);
    /// A pick button or an entry of its menu was chosen.
    void pickRequested(const tintwick::WantedPick& pick);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void addKeys();
    void followNavigation();

    [[nodiscard]] bool isInScreen(const QWidget* widget) const;
    /// The screens from the dashboard to the visible one.
    [[nodiscard]] QList<PanelScreen> chosenPath() const;
    [[nodiscard]] QWidget* makeScreen(const PanelScreen& screen);
    /// Opens a screen above the present one.
    void open(const PanelScreen& screen);
    /// Opens the search, unless the settings are shown, and enters a text there.
    void search(const QString& text);
    void showHeader();
    /// Updates header, screen and focus after the selection has changed.
    void showSelection();
    [[nodiscard]] QString selectionTitle() const;

    void showSavedFile(const QString& path);

    /// Returns to the screen from which the present one was opened.
    void goBack();
    void applyColorScheme();
    /// Opens a dialog for the files to import.
    void askForImport();

    AppState& m_appState;
    Preferences& m_preferences;
    Appearance m_appearance;
    std::optional<Scheme> m_systemScheme;
    MakeSettings m_makeSettings;

    std::optional<QUuid> m_selectedCollectionId;
    bool m_showingSettings = false;
    QString m_pickKeys;
    QString m_pickKeysInWords;
    /// Opened above the selected collection, the history or the dashboard.
    QList<PanelScreen> m_openedScreens;

    PanelHeader* m_header = nullptr;
    ActionPill* m_actionPill = nullptr;
    ColorIntake* m_intake;
    PanelNotices* m_notices = nullptr;
    Stack* m_screens = nullptr;
    DashboardView* m_dashboard = nullptr;
    std::optional<ScreenStack> m_screenStack;
    QPointer<OpenRequest> m_openRequest;
};

} // namespace tintwick
