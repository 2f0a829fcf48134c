#pragma once

#include "SwatchView.h"

namespace tintwick {

/// A colour in the grid of the history.
class ColorSwatchView final : public SwatchView
{
    Q_OBJECT

public:
    /// `size` is the side of the square in points; the label is 6 points wider. The overlay for renaming opens over `panel`.
    ColorSwatchView(AppState& appState, int size, QWidget& panel);

protected:
    [[nodiscard]] QList<MenuEntry> contextMenu() const override;

private:
    QWidget& m_panel;
};

} // namespace tintwick
