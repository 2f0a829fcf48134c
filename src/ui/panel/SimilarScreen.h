#pragma once

#include "CapturedColor.h"
#include "View.h"

namespace tintwick {

class AppState;
class ColorResults;
class PlainButton;

/// All colours in the order of their likeness to one, and a button with its name that ends this.
class SimilarScreen final : public View
{
    Q_OBJECT

public:
    /// Overlays cover the panel.
    SimilarScreen(AppState& appState, CapturedColor color, QWidget& panel);

Q_SIGNALS:
    /// The user pressed the button.
    void closeRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] PlainButton* endButton();
    void showResults();

    AppState& m_appState;
    CapturedColor m_color;
    PlainButton* m_end;
    ColorResults* m_results;
};

} // namespace tintwick
