#pragma once

#include "ComponentText.h"
#include "EditableColor.h"
#include "View.h"

#include <functional>

namespace tintwick {

class Slider;
class ValueField;

/// One component of a colour: its name, a slider and its number, which a double click on it, or Return on the slider, lets the
/// user type.
class ComponentRow final : public View
{
    Q_OBJECT

public:
    /// From the end of the number to the end of the row, in points.
    static constexpr int frameInset = 8;

    ComponentRow(ColorComponent component, const EditableColor& color);

    void setColor(const EditableColor& color);
    /// Runs `action` when the user changes the component.
    void onChange(std::function<void(double value)> action);

    [[nodiscard]] ColorComponent component() const { return m_component; }
    [[nodiscard]] Slider& slider() const { return *m_slider; }
    [[nodiscard]] ValueField& field() const { return *m_field; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void showColor();
    void showTrack();

    ColorComponent m_component;
    ComponentText m_text;
    EditableColor m_color;
    /// What the track that is shown was computed from.
    std::optional<Components> m_trackInputs;
    std::function<void(double)> m_onChange;
    Slider* m_slider;
    ValueField* m_field;
};

} // namespace tintwick
