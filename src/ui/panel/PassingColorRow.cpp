#include "PassingColorRow.h"

#include "Appearance.h"
#include "Button.h"
#include "ColorActions.h"
#include "ColorContrast.h"
#include "ColorPatch.h"
#include "ContrastTexts.h"
#include "Label.h"
#include "Stack.h"
#include "Theme.h"

#include <QPainter>

#include <utility>

namespace tintwick {

namespace {

// In points.
constexpr int rowHeight = 44;
constexpr double rowRadius = 12;
constexpr int patchSide = 28;
constexpr double patchRadius = 8;
constexpr int levelWidth = 32;

} // namespace

class PassingColorRow::Patch final : public QWidget
{
public:
    Patch() { setFixedSize(patchSide, patchSide); }

    void setColor(const QColor& color)
    {
        m_color = color;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        drawColorPatch(painter, rect(), patchRadius, m_color, Appearance::of(this));
    }

private:
    QColor m_color;
};

PassingColorRow::PassingColorRow(ContrastLevel level, std::function<void(const CapturedColor&)> add)
    : m_level(level)
    , m_patch(new Patch)
    , m_code(label({}, theme::monospacedFont(13, QFont::DemiBold)))
    , m_note(label({}, theme::font(12), theme::textSecond))
    , m_add(borderedButton(tr("Add"), [this, add = std::move(add)] { add(*m_proposed); }))
{
    // clang-format off
    setContent(row(fixedHeight(rowHeight), gap(10), padding(8, 0), fillWidth(),
        ground(theme::surface, rowRadius), outline(theme::border, 1),
        row(fixedSize(levelWidth, patchSide), centered(),
            label(levelName(level), theme::font(12, QFont::DemiBold), theme::textSecond)),
        m_patch, m_code, m_note, spacer(), m_add));
    // clang-format on
}

void PassingColorRow::setContrast(const ColorContrast& contrast, const CapturedColor& ground)
{
    m_proposed = contrast.nearestPassing(m_level);
    const bool passes = contrast.passes(ContrastUse::NormalText, m_level);
    if (passes) {
        m_note->setText(tr("The text passes"));
    } else if (!m_proposed) {
        const double required = *requiredRatio(ContrastUse::NormalText, m_level);
        m_note->setText(tr("No lightness reaches %1 here").arg(limitText(required)));
    } else {
        showProposal(ground);
    }
    for (QWidget* widget :
         {static_cast<QWidget*>(m_patch), static_cast<QWidget*>(m_code), static_cast<QWidget*>(m_add)}) {
        widget->setVisible(!passes && m_proposed);
    }
}

void PassingColorRow::showProposal(const CapturedColor& ground)
{
    const double ratio = ColorContrast(*m_proposed, ground).ratio();
    m_patch->setColor(paintColor(*m_proposed));
    m_code->setText(m_proposed->hex6());
    m_note->setText(ratioText(ratio));
    m_add->setAccessibleName(
        tr("Add %1, passes %2 with %3").arg(m_proposed->hex6(), levelName(m_level), spokenRatio(ratio)));
}

} // namespace tintwick
