#pragma once

#include "CapturedColor.h"
#include "SwatchGrid.h"
#include "View.h"

#include <QList>

namespace tintwick {

class AppState;
class Label;
class Stack;

/// The colours that a search has found: their number and a grid, or "No colors match".
class ColorResults final : public View
{
    Q_OBJECT

public:
    /// Overlays cover the panel.
    ColorResults(AppState& appState, QWidget& panel);

    void setColors(const QList<CapturedColor>& colors);
    [[nodiscard]] const SwatchGrid& grid() const { return *m_grid; }
    /// False when there is none.
    bool focusFirst() const;

private:
    AppState& m_appState;
    Label* m_count;
    Stack* m_empty;
    SwatchGrid* m_grid;
};

} // namespace tintwick
