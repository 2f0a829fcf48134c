#include "ContrastScreen.h"

#include "AppState.h"
#include "Button.h"
#include "ColorActions.h"
#include "ColorContrast.h"
#include "ColorStrip.h"
#include "ColorWell.h"
#include "ContrastSample.h"
#include "ContrastTexts.h"
#include "Label.h"
#include "LevelChip.h"
#include "PassingColorRow.h"
#include "Rule.h"
#include "ScrollArea.h"
#include "Stack.h"
#include "StripSwatch.h"
#include "SymbolView.h"
#include "Theme.h"

#include <QAccessible>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

// In points.
constexpr int inset = 16;
constexpr int sampleGap = 12;
constexpr int sampleWidth = (theme::panelSize.width() - 2 * inset - sampleGap) / 2;

Label* sectionTitle(const QString& text)
{
    return label(text, theme::font(12, QFont::DemiBold), theme::textSecond);
}

} // namespace

ContrastScreen::ContrastScreen(AppState& appState, const CapturedColor& text,
                               const std::optional<CapturedColor>& ground)
    : m_appState(appState)
    , m_text(text)
    , m_ground(ground.value_or(strongestGround(text)))
{
    setAccessibleName(tr("Contrast"));
    // clang-format off
    setContent(column(
        verticalScroll(column(gap(12), padding(inset, 14),
            wells(),
            samples(),
            ratio(),
            levels(),
            passingColors())),
        rule(),
        choice()));
    // clang-format on
    connect(&m_appState, &AppState::historyChanged, this, &ContrastScreen::orderFocus);
    connect(&m_appState, &AppState::collectionsChanged, this, &ContrastScreen::orderFocus);
    orderFocus();
    choosePart(Part::Ground);
    showContrast();
}

QWidget* ContrastScreen::wells()
{
    m_textWell =
        new ColorWell(tr("Text"), m_appState, [this](const CapturedColor& color) { setText(color); });
    m_textWell->onClick([this] { choosePart(Part::Text); });
    m_groundWell =
        new ColorWell(tr("Ground"), m_appState, [this](const CapturedColor& color) { setGround(color); });
    m_groundWell->onClick([this] { choosePart(Part::Ground); });
    m_swap = squareButton(
        tr("Swap text and ground"), [this] { swap(); },
        symbol(u"swap"_s, 14, SymbolWeight::Medium, theme::textSecond));
    return row(gap(9), fillWidth(), m_textWell, m_swap, m_groundWell);
}

QWidget* ContrastScreen::samples()
{
    m_sample = new ContrastSample(sampleWidth);
    m_swapped = new ContrastSample(sampleWidth);
    return row(gap(sampleGap), Across::Leading, m_sample, m_swapped);
}

QWidget* ContrastScreen::ratio()
{
    m_number = label({}, theme::font(28, QFont::Bold));
    m_ratio = plainTextButton(
        {}, [this] { copy(); }, row(m_number));
    m_ratio->setToolTip(tr("Copy the ratio and both codes"));
    m_ratio->setAccessibleDescription(m_ratio->toolTip());
    return row(fillWidth(), m_ratio, spacer(), label(tr("WCAG 2.2"), theme::font(11), theme::textThird));
}

QWidget* ContrastScreen::levels()
{
    const auto levelsOf = [this](ContrastUse use) {
        auto* chips = row(gap(4));
        for (const ContrastLevel level : {ContrastLevel::AA, ContrastLevel::AAA}) {
            if (requiredRatio(use, level)) {
                m_chips.append(new LevelChip(use, level));
                chips->add(m_chips.last());
            }
        }
        return column(gap(6), Across::Leading, label(useName(use), theme::font(11), theme::textSecond),
                      chips);
    };
    // Large text begins where the second sample does.
    auto* normalText = levelsOf(ContrastUse::NormalText);
    normalText->add(fixedWidth(sampleWidth + sampleGap));
    return row(fillWidth(), normalText, levelsOf(ContrastUse::LargeText), spacer(),
               levelsOf(ContrastUse::Graphics));
}

QWidget* ContrastScreen::passingColors()
{
    auto* rows = column(gap(8), Across::Leading, sectionTitle(tr("Nearest lightness that passes")));
    for (const ContrastLevel level : {ContrastLevel::AA, ContrastLevel::AAA}) {
        m_passing.append(new PassingColorRow(level, [this](const CapturedColor& color) { add(color); }));
        rows->add(m_passing.last());
    }
    return rows;
}

QWidget* ContrastScreen::choice()
{
    m_choiceTitle = label({}, theme::font(11), theme::textThird);
    m_strip = new ColorStrip(m_appState, [this](const CapturedColor& color) { replaceChosen(color); });
    return column(padding(0, 8), fillWidth(), Across::Leading, row(padding(inset, 0), m_choiceTitle),
                  row(padding(inset - StripSwatch::ringRoom, 0), fillWidth(), m_strip));
}

void ContrastScreen::orderFocus() const
{
    QWidget* before = m_textWell;
    const auto next = [&before](QWidget* widget) {
        setTabOrder(before, widget);
        before = widget;
    };
    next(m_swap);
    next(m_groundWell);
    next(m_ratio);
    for (const PassingColorRow* row : m_passing) {
        next(&row->addButton());
    }
    for (QWidget* swatch : m_strip->swatches()) {
        next(swatch);
    }
}

void ContrastScreen::setText(const CapturedColor& color)
{
    m_text = color;
    showContrast();
}

void ContrastScreen::setGround(const CapturedColor& color)
{
    m_ground = color;
    showContrast();
}

void ContrastScreen::choosePart(Part part)
{
    m_chosen = part;
    m_textWell->setChosen(part == Part::Text);
    m_groundWell->setChosen(part == Part::Ground);
    m_choiceTitle->setText(part == Part::Text ? tr("Choose the text color") : tr("Choose the ground"));
    m_strip->setAccessibleName(m_choiceTitle->text());
    m_strip->mark(part == Part::Text ? m_text : m_ground);
}

void ContrastScreen::replaceChosen(const CapturedColor& color)
{
    if (m_chosen == Part::Text) {
        setText(color);
    } else {
        setGround(color);
    }
}

void ContrastScreen::swap()
{
    std::swap(m_text, m_ground);
    // The same colour stays the one that is replaced.
    choosePart(m_chosen == Part::Text ? Part::Ground : Part::Text);
    showContrast();
}

void ContrastScreen::add(const CapturedColor& color)
{
    m_appState.insertColors({color});
    setText(m_appState.history().first());
}

void ContrastScreen::copy() const
{
    const QString copied = tr("%1, %2 on %3").arg(m_number->text(), codeOf(m_text), codeOf(m_ground));
    m_appState.clipboard().copy(copied);
    m_appState.showCopyFeedback(copied);
}

void ContrastScreen::showContrast()
{
    const ColorContrast contrast(m_text, m_ground);
    m_textWell->setColor(m_text);
    m_groundWell->setPart(m_ground.alpha < 1 ? tr("Ground on white") : tr("Ground"));
    m_groundWell->setColor(m_ground);
    m_sample->setContrast(contrast);
    m_swapped->setContrast(ColorContrast(m_ground, m_text));
    m_number->setText(ratioText(contrast.ratio()));
    for (LevelChip* chip : std::as_const(m_chips)) {
        chip->setContrast(contrast);
    }
    for (PassingColorRow* row : std::as_const(m_passing)) {
        row->setContrast(contrast, m_ground);
    }
    m_strip->mark(m_chosen == Part::Text ? m_text : m_ground);
    m_ratio->setAccessibleName(tr("Contrast %1, %2").arg(spokenRatio(contrast.ratio()), verdict(contrast)));
    setAccessibleDescription(m_ratio->accessibleName());
    if (isVisible()) {
        announce();
    }
}

void ContrastScreen::announce()
{
    QAccessibleEvent alert(m_ratio, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void ContrastScreen::showEvent(QShowEvent* event)
{
    View::showEvent(event);
    announce();
}

} // namespace tintwick
