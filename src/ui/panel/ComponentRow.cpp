#include "ComponentRow.h"

#include "ComponentTrack.h"
#include "Label.h"
#include "Slider.h"
#include "Stack.h"
#include "Theme.h"
#include "ValueField.h"

#include <QColor>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int nameWidth = 60;
constexpr int numberWidth = 62;
constexpr double largeSteps = 10;

QColor paintable(const Components& srgb, double alpha = 1)
{
    return QColor::fromRgbF(static_cast<float>(srgb[0]), static_cast<float>(srgb[1]),
                            static_cast<float>(srgb[2]), static_cast<float>(alpha));
}

SliderRange rangeOf(ColorComponent component, const ComponentText& text)
{
    return {.greatest = maximumOf(component) * text.factor,
            .step = text.step,
            .largeStep = text.step * largeSteps,
            .decimals = text.decimals};
}

/// The other components of the model. A track does not depend on its own component, so it stays during a drag.
Components trackInputs(const EditableColor& color, ColorComponent component)
{
    if (component == ColorComponent::Alpha) {
        return color.srgb();
    }
    const bool isOklch = component <= ColorComponent::OklchHue;
    const auto other = [&](ColorComponent each) { return each == component ? 0 : color.value(each); };
    return isOklch ? Components{other(ColorComponent::OklchLightness), other(ColorComponent::OklchChroma),
                                other(ColorComponent::OklchHue)}
                   : Components{other(ColorComponent::HslHue), other(ColorComponent::HslSaturation),
                                other(ColorComponent::HslLightness)};
}

SliderTrack sliderTrack(const EditableColor& color, ColorComponent component)
{
    if (component == ColorComponent::Alpha) {
        return {.colors = {paintable(color.srgb(), 0), paintable(color.srgb())}, .outside = {}};
    }
    const ComponentTrack track = trackOf(color, component);
    SliderTrack result;
    for (const Components& srgb : track.colors) {
        result.colors.append(paintable(srgb));
    }
    for (const ComponentTrack::Part& part : track.outside) {
        result.outside.append({part.from, part.to});
    }
    return result;
}

} // namespace

ComponentRow::ComponentRow(ColorComponent component, const EditableColor& color)
    : m_component(component)
    , m_text(ComponentText::of(component))
    , m_color(color)
    , m_slider(new Slider(m_text.name, rangeOf(component, m_text)))
    , m_field(new ValueField(m_text.name, ValueField::Style::Plain))
{
    m_field->setFixedWidth(numberWidth);
    m_field->returnFocusTo(*m_slider);
    // clang-format off
    setContent(row(gap(8), fillWidth(),
        row(fixedWidth(nameWidth), label(m_text.name, theme::font(12), theme::textSecond), spacer()),
        m_slider,
        m_field));
    // clang-format on
    m_slider->onChange([this](double shown) {
        if (m_onChange) {
            m_onChange(shown / m_text.factor);
        }
    });
    connect(m_slider, &Slider::typingRequested, m_field, &ValueField::beginTyping);
    m_field->onEnter([this](const QString& text) {
        const std::optional<double> value = m_text.value(text);
        if (value) {
            m_slider->changeValue(*value * m_text.factor);
        }
        return value.has_value();
    });
    showColor();
}

void ComponentRow::onChange(std::function<void(double)> action)
{
    m_onChange = std::move(action);
}

void ComponentRow::setColor(const EditableColor& color)
{
    if (m_color != color) {
        m_color = color;
        showColor();
    }
}

void ComponentRow::showColor()
{
    const double value = m_color.value(m_component);
    m_slider->setValue(value * m_text.factor);
    const bool isAlpha = m_component == ColorComponent::Alpha;
    m_slider->setThumbColor(paintable(m_color.srgb(), isAlpha ? m_color.alpha() : 1));
    m_field->setValueText(m_text.text(value));
    if (isVisible()) {
        showTrack();
    }
    m_slider->setValueText(m_color.isOutsideGamut() && !isAlpha
                               ? tr("%1, outside sRGB").arg(m_text.spokenText(value))
                               : m_text.spokenText(value));
}

void ComponentRow::showTrack()
{
    const Components inputs = trackInputs(m_color, m_component);
    if (m_trackInputs != inputs) {
        m_trackInputs = inputs;
        m_slider->setTrack(sliderTrack(m_color, m_component));
    }
}

void ComponentRow::showEvent(QShowEvent* event)
{
    View::showEvent(event);
    showTrack();
}

} // namespace tintwick
