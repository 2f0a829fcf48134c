#pragma once

#include "ui/Appearance.h"
#include "ui/kit/View.h"

#include <optional>

namespace tintwick {

class AppState;
class DashboardView;
class PlainButton;
class SymbolView;

/// All that the main panel shows: a header and the screen below it, on a rounded ground.
class MainPanelView final : public View
{
    Q_OBJECT

public:
    explicit MainPanelView(AppState& appState);

    /// What the desktop prefers, where it says so; without it the palette of the toolkit decides. The user's choice
    /// in the panel comes before both.
    void setSystemScheme(std::optional<Scheme> scheme);

    [[nodiscard]] const Appearance& appearance() const { return m_appearance; }
    [[nodiscard]] DashboardView& dashboard() const { return *m_dashboard; }

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QWidget* panelHeader();
    [[nodiscard]] QWidget* colorSchemeToggle();
    void cycleColorScheme();
    void applyColorScheme();

    AppState& m_appState;
    Appearance m_appearance;
    std::optional<Scheme> m_systemScheme;
    SymbolView* m_schemeSymbol = nullptr;
    PlainButton* m_schemeToggle = nullptr;
    DashboardView* m_dashboard = nullptr;
};

} // namespace tintwick
