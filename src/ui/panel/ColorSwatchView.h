#pragma once

#include "SwatchView.h"

namespace tintwick {

/// A colour in the grid of the whole history.
class ColorSwatchView final : public SwatchView
{
    Q_OBJECT

public:
    /// `size` is the side of the square in points; with the label it is 6 wider. The overlay for a new name opens over
    /// `panel`.
    ColorSwatchView(AppState& appState, int size, QWidget& panel);

protected:
    [[nodiscard]] QList<MenuEntry> contextMenu() const override;

private:
    QWidget& m_panel;
};

} // namespace tintwick
