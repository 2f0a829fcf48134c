#include "ColorScreen.h"

#include "AppState.h"
#include "Button.h"
#include "ColorActions.h"
#include "ColorComparison.h"
#include "ColorNames.h"
#include "ColorText.h"
#include "ComponentRow.h"
#include "InOneLine.h"
#include "Label.h"
#include "Preferences.h"
#include "SegmentedPicker.h"
#include "Stack.h"
#include "Theme.h"
#include "TintRow.h"
#include "ValueField.h"

#include <algorithm>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int inset = 16;
constexpr int nameLineHeight = 22;
/// Ends where the numbers of the sliders end, which have invisible frames.
constexpr Padding besideFrames{{0, 0, ComponentRow::frameInset, 0}};

} // namespace

ColorScreen::ColorScreen(AppState& appState, Preferences& preferences, const CapturedColor& color, QWidget&)
    : m_appState(appState)
    , m_preferences(preferences)
    , m_original(color)
    , m_edited(color)
    , m_comparison(new ColorComparison(appState, color, [this] { revert(); }))
    , m_code(new ValueField(tr("Color code"), ValueField::Style::Framed))
    , m_model(new SegmentedPicker(tr("Sliders"), {u"OKLCH"_s, u"HSL"_s},
                                  static_cast<qsizetype>(preferences.editorModel())))
    , m_oklchRows(
          rowsOf({ColorComponent::OklchLightness, ColorComponent::OklchChroma, ColorComponent::OklchHue}))
    , m_hslRows(rowsOf({ColorComponent::HslHue, ColorComponent::HslSaturation, ColorComponent::HslLightness}))
    , m_tints(new TintRow(appState))
{
    // clang-format off
    setContent(column(
        column(gap(12), Padding{{inset, 14, inset - ComponentRow::frameInset, 8}},
            column(gap(12), besideFrames,
                m_comparison,
                nameLine(),
                m_code,
                m_model),
            column(m_oklchRows, m_hslRows, rowsOf({ColorComponent::Alpha})),
            column(besideFrames, m_tints),
            spacer()),
        buttons()));
    // clang-format on

    m_code->onEnter([this](const QString& text) { return takeText(text); });
    m_model->onSelect(
        [this](qsizetype position) { m_preferences.setEditorModel(static_cast<EditorModel>(position)); });
    m_tints->onChoose([this](const CapturedColor& tint) { takeTint(tint); });
    m_tints->setBase(color);
    connect(&m_preferences, &Preferences::editorModelChanged, this, &ColorScreen::showModel);
    connect(&m_appState, &AppState::defaultFormatChanged, this, &ColorScreen::showCode);
    connect(&m_appState, &AppState::colorTemplateChanged, this, &ColorScreen::showCode);
    connect(&m_appState, &AppState::historyChanged, this, &ColorScreen::followOriginal);
    showModel();
    showColor();
}

Stack* ColorScreen::rowsOf(std::initializer_list<ColorComponent> components)
{
    auto* rows = column();
    for (const ColorComponent component : components) {
        auto* row = new ComponentRow(component, m_edited);
        row->onChange([this, component](double value) { setComponent(component, value); });
        rows->add(row);
        m_rows.append(row);
    }
    return rows;
}

QWidget* ColorScreen::nameLine()
{
    m_name = label({}, theme::font(15, QFont::DemiBold));
    m_gamutNote = label(tr("Outside sRGB, nearest color shown"), theme::font(11), theme::textSecond);
    m_gamutNote->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return row(fixedHeight(nameLineHeight), gap(10), m_name, spacer(), m_gamutNote);
}

QWidget* ColorScreen::buttons()
{
    m_revert = borderedButton(tr("Revert"), [this] { revert(); });
    m_save = prominentButton(tr("Save as New"), [this] { save(); });
    auto* copy = borderedButton(
        tr("Copy"), [this] { copyWithFeedback(m_appState, m_appState.defaultFormat(), newColor()); });
    return row(gap(10), Padding{{inset, 8, inset, 14}}, m_revert, spacer(), copy, m_save);
}

CapturedColor ColorScreen::newColor() const
{
    CapturedColor color = m_edited.captured();
    if (color.hex8() == m_original.hex8()) {
        return m_original;
    }
    color.customName = ColorNames::shared().nearest(color);
    return color;
}

bool ColorScreen::isChanged() const
{
    return m_edited.captured().hex8() != m_original.hex8();
}

void ColorScreen::setComponent(ColorComponent component, double value)
{
    m_edited.setValue(component, value);
    changed();
}

bool ColorScreen::takeText(const QString& text)
{
    const auto written = colorFromText(text);
    if (!written) {
        return false;
    }
    m_edited.setColor(written->color);
    changed();
    m_isTextMapped = written->isGamutMapped;
    showColor();
    return true;
}

void ColorScreen::takeTint(const CapturedColor& color)
{
    // The row stays, so that the next click does not start from a tint.
    CapturedColor tint = color;
    tint.alpha = m_edited.alpha();
    m_edited.setColor(tint);
    m_isTextMapped = false;
    showColor();
}

void ColorScreen::revert()
{
    m_edited = EditableColor(m_original);
    changed();
}

void ColorScreen::save()
{
    m_saved = newColor();
    m_appState.insertColors({*m_saved});
    showButtons();
}

void ColorScreen::changed()
{
    m_isTextMapped = false;
    m_tints->setBase(m_edited.captured());
    showColor();
}

void ColorScreen::showColor()
{
    const CapturedColor color = newColor();
    m_comparison->setNew(color);
    m_name->setText(isChanged() || !m_original.customName ? ColorNames::shared().description(color)
                                                          : inOneLine(*m_original.customName));
    m_gamutNote->setVisible(m_edited.isOutsideGamut() || m_isTextMapped);
    for (ComponentRow* row : m_rows) {
        row->setColor(m_edited);
    }
    m_tints->setCurrent(color);
    showCode();
    showButtons();
}

void ColorScreen::showCode()
{
    m_code->setValueText(m_appState.text(newColor(), m_appState.defaultFormat()));
}

void ColorScreen::showButtons()
{
    const bool isSaved = m_saved && m_saved->hex8() == m_edited.captured().hex8() &&
                         std::ranges::any_of(m_appState.history(),
                                             [this](const auto& each) { return each.id == m_saved->id; });
    m_revert->setEnabled(isChanged());
    m_save->setEnabled(isChanged() && !isSaved);
}

void ColorScreen::showModel()
{
    const EditorModel model = m_preferences.editorModel();
    m_model->setSelected(static_cast<qsizetype>(model));
    m_oklchRows->setVisible(model == EditorModel::Oklch);
    m_hslRows->setVisible(model == EditorModel::Hsl);
}

void ColorScreen::followOriginal()
{
    for (const CapturedColor& color : m_appState.history()) {
        if (color.id == m_original.id && color != m_original) {
            m_original = color;
            m_comparison->setOriginal(color);
            showColor();
            return;
        }
    }
    showButtons();
}

} // namespace tintwick
