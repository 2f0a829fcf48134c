#pragma once

#include "Bound.h"
#include "SwatchGrid.h"
#include "View.h"

namespace tintwick {

class AppState;
class ColorSelector;
class ExportMenu;
class Label;

/// The screen of the history: a grid of all its colours.
class HistoryDetailView final : public View
{
    Q_OBJECT

public:
    /// `panel` contains the view and is what overlays cover.
    HistoryDetailView(AppState& appState, QWidget& panel);

    /// See PanelView::setPickKeys().
    void setPickKeys(const QString& keys, const QString& inWords);

    [[nodiscard]] const QList<ColorSwatchView*>& swatches() const { return m_grid->swatches(); }

private:
    [[nodiscard]] QWidget* toolbar();
    [[nodiscard]] QWidget* clearButton();

    [[nodiscard]] Bound<bool> historyIsEmpty() const;
    [[nodiscard]] Bound<bool> historyIsNotEmpty() const;
    [[nodiscard]] Bound<QString> countText() const;

    void showHistory();

    AppState& m_appState;
    ExportMenu* m_export = nullptr;
    QWidget* m_clear = nullptr;
    Label* m_emptyText;
    SwatchGrid* m_grid;
    ColorSelector* m_selector;
};

} // namespace tintwick
