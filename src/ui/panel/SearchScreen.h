#pragma once

#include "ColorsInText.h"
#include "View.h"

#include <QString>

namespace tintwick {

class AppState;
class ColorResults;
class FoundColorsRow;
class TextField;

/// A field whose text either describes colours, which Return adds, or filters all colours.
class SearchScreen final : public View
{
    Q_OBJECT

public:
    /// Overlays cover the panel.
    SearchScreen(AppState& appState, QWidget& panel);

    /// Gives the field the focus and adds a text at its end; without one selects what is there.
    void enter(const QString& text);

Q_SIGNALS:
    /// The user wants the colours of the text in the history.
    void colorsChosen(const tintwick::TextColors& found);
    /// The user removed the text.
    void closeRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showResults();
    void choose();

    AppState& m_appState;
    TextField* m_field;
    TextColors m_found;
    FoundColorsRow* m_foundRow;
    ColorResults* m_results;
};

} // namespace tintwick
