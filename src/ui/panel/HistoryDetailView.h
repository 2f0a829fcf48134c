#pragma once

#include "Bound.h"
#include "CapturedColor.h"
#include "ColorSwatchView.h"
#include "Grid.h"
#include "RecordViews.h"
#include "View.h"

namespace tintwick {

class AppState;
class ExportMenu;

/// The whole history as a grid.
class HistoryDetailView final : public View
{
    Q_OBJECT

public:
    /// Overlays open over `panel`, which contains the view.
    HistoryDetailView(AppState& appState, QWidget& panel);

    [[nodiscard]] const QList<ColorSwatchView*>& swatches() const { return m_swatches.views(); }

private:
    [[nodiscard]] QWidget* toolbar();
    [[nodiscard]] QWidget* clearButton();
    [[nodiscard]] QWidget* swatchGrid();

    [[nodiscard]] Bound<bool> historyIsEmpty() const;
    [[nodiscard]] Bound<bool> historyIsNotEmpty() const;
    [[nodiscard]] Bound<QString> countText() const;

    void showHistory();
    /// Tab goes from the toolbar through the grid, whatever came into it last.
    void orderFocus() const;

    AppState& m_appState;
    ExportMenu* m_export = nullptr;
    QWidget* m_clear = nullptr;
    Grid* m_grid;
    RecordViews<ColorSwatchView, CapturedColor, Grid> m_swatches;
};

} // namespace tintwick
