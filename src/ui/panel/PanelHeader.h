#pragma once

#include "ContextMenu.h"
#include "View.h"

#include <QList>
#include <QString>

#include <functional>

namespace tintwick {

class AppState;
class Clickable;
class Label;
class PlainButton;
class Preferences;
class Stack;
class SymbolView;
class TextButton;

/// The header of the panel: a title or the way back, the feedback on copies, and the buttons.
class PanelHeader final : public View
{
    Q_OBJECT

public:
    PanelHeader(AppState& appState, Preferences& preferences);

    void showTitle(const QString& title);
    /// Shows the title of a screen on a button that leads back from it.
    void showWayBack(const QString& title);
    /// Shows the title of the settings, and "Done" instead of the other buttons.
    void showSettings();
    /// The visible button that leaves the screen, or null.
    [[nodiscard]] Clickable* wayOut() const;

    /// Whether the user wants the panel to stay open beside other windows.
    [[nodiscard]] bool keepsOpen() const;

    /// `entries` is called when the settings button is clicked. If it returns any, they open as a menu.
    void setMenu(std::function<QList<MenuEntry>()> entries);

Q_SIGNALS:
    /// The button of the way back or "Done" was clicked.
    void backRequested();
    void settingsRequested();
    void keepOpenChanged(bool keepsOpen);

private:
    [[nodiscard]] QWidget* backButton();
    [[nodiscard]] QWidget* pinButton();
    [[nodiscard]] QWidget* colorSchemeToggle();
    [[nodiscard]] QWidget* settingsButton();
    void showParts(bool hasWayBack, bool areSettings);
    void openMenuOrSettings();
    void showColorScheme();
    void showPin();

    AppState& m_appState;
    Preferences& m_preferences;
    std::function<QList<MenuEntry>()> m_menu;

    Label* m_title = nullptr;
    PlainButton* m_back = nullptr;
    Label* m_backTitle = nullptr;
    /// Hidden while the settings are shown.
    QWidget* m_outsideSettings = nullptr;
    Stack* m_pinPlate = nullptr;
    SymbolView* m_pinSymbol = nullptr;
    PlainButton* m_pin = nullptr;
    SymbolView* m_schemeSymbol = nullptr;
    PlainButton* m_schemeToggle = nullptr;
    PlainButton* m_settings = nullptr;
    TextButton* m_done = nullptr;
};

} // namespace tintwick
