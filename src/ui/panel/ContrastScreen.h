#pragma once

#include "CapturedColor.h"
#include "View.h"

#include <QList>

#include <optional>

namespace tintwick {

class AppState;
class ColorStrip;
class ColorWell;
class ContrastSample;
class Label;
class LevelChip;
class PassingColorRow;
class PlainButton;

/// The screen that shows how well text of one colour is read on a ground of another.
class ContrastScreen final : public View
{
    Q_OBJECT

public:
    /// Without a ground it is white or black, whichever contrasts more with the text.
    ContrastScreen(AppState& appState, const CapturedColor& text, const std::optional<CapturedColor>& ground);

    [[nodiscard]] const CapturedColor& text() const { return m_text; }
    [[nodiscard]] const CapturedColor& ground() const { return m_ground; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    /// Which of both colours the strip replaces.
    enum class Part { Text, Ground };

    [[nodiscard]] QWidget* wells();
    [[nodiscard]] QWidget* samples();
    [[nodiscard]] QWidget* ratio();
    [[nodiscard]] QWidget* levels();
    [[nodiscard]] QWidget* passingColors();
    [[nodiscard]] QWidget* choice();

    void setText(const CapturedColor& color);
    void setGround(const CapturedColor& color);
    void choosePart(Part part);
    void replaceChosen(const CapturedColor& color);
    void swap();
    void add(const CapturedColor& color);
    void copy() const;
    void showContrast();
    /// Lets a screen reader say the result.
    void announce();
    /// Sets the tab order: top to bottom.
    void orderFocus() const;

    AppState& m_appState;
    CapturedColor m_text;
    CapturedColor m_ground;
    Part m_chosen = Part::Ground;

    ColorWell* m_textWell = nullptr;
    PlainButton* m_swap = nullptr;
    ColorWell* m_groundWell = nullptr;
    ContrastSample* m_sample = nullptr;
    ContrastSample* m_swapped = nullptr;
    Label* m_number = nullptr;
    PlainButton* m_ratio = nullptr;
    QList<LevelChip*> m_chips;
    QList<PassingColorRow*> m_passing;
    Label* m_choiceTitle = nullptr;
    ColorStrip* m_strip = nullptr;
};

} // namespace tintwick
