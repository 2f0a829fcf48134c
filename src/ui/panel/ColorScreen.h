#pragma once

#include "CapturedColor.h"
#include "EditableColor.h"
#include "View.h"

#include <QList>

#include <optional>

namespace tintwick {

class AppState;
class ColorComparison;
class ComponentRow;
class Label;
class Preferences;
class SegmentedPicker;
class Stack;
class TextButton;
class TintRow;
class ValueField;

/// The screen of one colour, in which the user makes a new colour of it. The original stays as it is; it may be deleted meanwhile.
class ColorScreen final : public View
{
    Q_OBJECT

public:
    /// `panel` contains the view and is what overlays cover.
    ColorScreen(AppState& appState, Preferences& preferences, const CapturedColor& color, QWidget& panel);

private:
    [[nodiscard]] Stack* rowsOf(std::initializer_list<ColorComponent> components);
    [[nodiscard]] QWidget* nameLine();
    [[nodiscard]] QWidget* buttons();

    /// The edited colour with its name; the original while it is not changed.
    [[nodiscard]] CapturedColor newColor() const;
    [[nodiscard]] bool isChanged() const;

    void setComponent(ColorComponent component, double value);
    /// Returns whether the text is a colour.
    bool takeText(const QString& text);
    void takeTint(const CapturedColor& color);
    void revert();
    void save();

    /// To be called after the user has changed the colour.
    void changed();
    void showColor();
    void showCode();
    void showButtons();
    void showModel();
    void followOriginal();

    AppState& m_appState;
    Preferences& m_preferences;
    CapturedColor m_original;
    EditableColor m_edited;
    /// The user has typed a colour outside sRGB.
    bool m_isTextMapped = false;
    /// What "Save as New" has added last.
    std::optional<CapturedColor> m_saved;

    ColorComparison* m_comparison = nullptr;
    Label* m_name = nullptr;
    Label* m_gamutNote = nullptr;
    ValueField* m_code = nullptr;
    SegmentedPicker* m_model = nullptr;
    QList<ComponentRow*> m_rows;
    Stack* m_oklchRows = nullptr;
    Stack* m_hslRows = nullptr;
    TintRow* m_tints = nullptr;
    TextButton* m_revert = nullptr;
    TextButton* m_save = nullptr;
};

} // namespace tintwick
