#pragma once

#include "Appearance.h"
#include "View.h"

#include <QHash>
#include <QPointer>
#include <QUuid>

#include <functional>
#include <optional>

namespace tintwick {

class AppState;
class DashboardView;
class Label;
class NoticeView;
class PlainButton;
class Preferences;
class Stack;
class SymbolView;
class TextButton;

/// All that the main panel shows: a header and the screen below it, on a rounded ground. The screen is the settings, the
/// whole history, a collection, or the dashboard.
class PanelView final : public View
{
    Q_OBJECT

public:
    using MakeSettings = std::function<QWidget*(QWidget& panel)>;

    /// Selects the whole history; no collection has this id.
    static constexpr QUuid historySelectionId{};

    /// `makeSettings` makes the settings screen anew each time it is shown.
    PanelView(AppState& appState, Preferences& preferences, MakeSettings makeSettings);

    /// What the desktop prefers, where it says so; without it the palette of the toolkit decides. The user's choice
    /// in the panel comes before both.
    void setSystemScheme(std::optional<Scheme> scheme);

    /// Shows a collection, or the history for `historySelectionId`; none shows the dashboard, and so does a collection
    /// that does not exist.
    void setSelectedCollectionId(const std::optional<QUuid>& id);
    void setShowingSettings(bool shows);
    /// Shows a sentence below the header, such as why a pick could not begin; an empty one removes it.
    void showNotice(const QString& sentence);

    [[nodiscard]] const Appearance& appearance() const { return m_appearance; }
    [[nodiscard]] DashboardView& dashboard() const { return *m_dashboard; }
    /// What is below the header now; another widget, or a new one, for each screen.
    [[nodiscard]] QWidget& currentScreen() const;

Q_SIGNALS:
    /// The button that picks a colour was clicked.
    void pickRequested();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// A later one is reached from an earlier one.
    enum class ScreenKind { Dashboard, History, Collection, Settings };
    struct ScreenChoice
    {
        ScreenKind kind = ScreenKind::Dashboard;
        QUuid collectionId;

        friend bool operator==(const ScreenChoice&, const ScreenChoice&) = default;
    };

    [[nodiscard]] Stack* panelHeader();
    [[nodiscard]] QWidget* backButton();
    [[nodiscard]] QWidget* colorSchemeToggle();
    [[nodiscard]] QWidget* settingsButton();

    [[nodiscard]] bool isInScreen(const QWidget* widget) const;
    [[nodiscard]] ScreenChoice chosenScreen() const;
    [[nodiscard]] QWidget* makeScreen(const ScreenChoice& choice);
    void showHeader();
    /// Header, screen and focus, after what is selected has changed.
    void showSelection();
    void showScreen(const ScreenChoice& choice);
    [[nodiscard]] QString selectionTitle() const;

    void cycleColorScheme();
    void applyColorScheme();

    AppState& m_appState;
    Preferences& m_preferences;
    Appearance m_appearance;
    std::optional<Scheme> m_systemScheme;
    MakeSettings m_makeSettings;

    std::optional<QUuid> m_selectedCollectionId;
    bool m_showingSettings = false;
    ScreenChoice m_shownScreen;
    /// What the keyboard was on when a screen was left for one that comes back to it.
    QHash<ScreenKind, QPointer<QWidget>> m_openers;

    Stack* m_header = nullptr;
    Label* m_title = nullptr;
    PlainButton* m_back = nullptr;
    Label* m_backTitle = nullptr;
    /// Shown while the settings are not.
    QWidget* m_outsideSettings = nullptr;
    SymbolView* m_schemeSymbol = nullptr;
    PlainButton* m_schemeToggle = nullptr;
    TextButton* m_done = nullptr;

    NoticeView* m_notice = nullptr;
    Stack* m_screens = nullptr;
    DashboardView* m_dashboard = nullptr;
    /// The screen in the dashboard's place, if any.
    QWidget* m_detail = nullptr;
};

} // namespace tintwick
