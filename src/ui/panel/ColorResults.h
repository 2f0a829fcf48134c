#pragma once

#include "CapturedColor.h"
#include "SwatchGrid.h"
#include "View.h"

#include <QList>
#include <QString>

namespace tintwick {

class AppState;
class Label;
class Stack;

/// The colours that a search has found: their number and a grid.
class ColorResults final : public View
{
    Q_OBJECT

public:
    /// Overlays cover the panel.
    ColorResults(AppState& appState, QWidget& panel);

    /// More swatches would delay each key.
    static constexpr qsizetype mostShown = 200;

    /// What is shown when there is no colour.
    enum class WhenNone { Sentence, Nothing };

    void setColors(const QList<CapturedColor>& colors, WhenNone whenNone = WhenNone::Sentence);
    [[nodiscard]] const SwatchGrid& grid() const { return *m_grid; }
    /// How many colours there are, in words.
    [[nodiscard]] QString summary() const;
    void focusFirst() const;

private:
    [[nodiscard]] QString countText(qsizetype found) const;

    AppState& m_appState;
    Label* m_count;
    Stack* m_head;
    Stack* m_empty;
    Stack* m_blank;
    SwatchGrid* m_grid;
};

} // namespace tintwick
