#pragma once

#include "CapturedColor.h"
#include "ColorSwatchView.h"
#include "Grid.h"
#include "RecordViews.h"
#include "View.h"

#include <QList>

namespace tintwick {

class AppState;
class ColorSelector;

/// Colours as swatches in rows of five, which scroll.
class SwatchGrid final : public View
{
    Q_OBJECT

public:
    /// Overlays cover the panel.
    SwatchGrid(AppState& appState, QWidget& panel);

    void setColors(const QList<CapturedColor>& colors);
    [[nodiscard]] const QList<ColorSwatchView*>& swatches() const { return m_swatches.views(); }
    /// Lets the user select several. `selector` outlives the grid.
    void setSelector(ColorSelector& selector) { m_selector = &selector; }
    /// Lets Tab reach the swatches after a control.
    void putInTabOrderAfter(QWidget* control) const;

Q_SIGNALS:
    /// The user pressed the up arrow in the first row.
    void leftAbove();

private:
    void moveFocus(const ColorSwatchView& from, int columns, int rows);

    AppState& m_appState;
    ColorSelector* m_selector = nullptr;
    Grid* m_grid;
    RecordViews<ColorSwatchView, CapturedColor, Grid> m_swatches;
};

} // namespace tintwick
