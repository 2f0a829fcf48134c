#include "FoundColorsRow.h"

#include "AppState.h"
#include "Appearance.h"
#include "ColorActions.h"
#include "ColorNames.h"
#include "ColorPatch.h"
#include "DetailScreen.h"
#include "InOneLine.h"
#include "Label.h"
#include "Stack.h"
#include "Theme.h"

#include <QPainter>

#include <algorithm>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr double rowRadius = 12;
constexpr int patchSide = 36;
constexpr double patchRadius = 8;
/// Of several patches each covers the one before it but for this.
constexpr int patchStep = 12;
constexpr qsizetype mostPatches = 5;

QString nameOf(const CapturedColor& color)
{
    return color.customName.value_or(ColorNames::shared().nearest(color));
}

} // namespace

class FoundColorsRow::Patches final : public QWidget
{
public:
    Patches() { setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); }

    void setColors(const QList<CapturedColor>& colors)
    {
        m_colors = colors.first(std::min(colors.size(), mostPatches));
        updateGeometry();
        update();
    }

    [[nodiscard]] QSize sizeHint() const override
    {
        const int others = std::max(0, static_cast<int>(m_colors.size()) - 1);
        return {patchSide + others * patchStep, patchSide};
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        const Scheme scheme = Appearance::of(this);
        // The first lies on top.
        for (qsizetype i = m_colors.size() - 1; i >= 0; --i) {
            drawColorPatch(painter, QRectF(static_cast<double>(i) * patchStep, 0, patchSide, patchSide),
                           patchRadius, paintColor(m_colors[i]), scheme);
        }
    }

private:
    QList<CapturedColor> m_colors;
};

FoundColorsRow::FoundColorsRow(const AppState& appState)
    : Clickable({})
    , m_appState(appState)
    , m_patches(new Patches)
    , m_title(label({}, theme::monospacedFont(13, QFont::DemiBold)))
    , m_detail(label({}, theme::font(11), theme::textSecond))
    , m_remark(label({}, theme::font(11), theme::textSecond))
    , m_hint(label({}, theme::font(11), theme::textThird))
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // clang-format off
    setContent(row(gap(12), padding(12, 10), fillWidth(), ground(theme::surface, rowRadius), outline(theme::border, 1),
        m_patches,
        column(gap(2), Across::Leading, m_title, m_detail, m_remark),
        spacer(),
        m_hint));
    // clang-format on
}

void FoundColorsRow::setColors(const TextColors& found)
{
    setVisible(!found.colors.isEmpty());
    if (found.colors.isEmpty()) {
        return;
    }
    const bool isOne = found.colors.size() == 1;
    const QString title = isOne ? m_appState.text(found.colors.first(), ColorFormat::Hex8)
                                : colorCountText(found.colors.size());
    QStringList names;
    for (const CapturedColor& color : found.colors.first(std::min(found.colors.size(), mostPatches))) {
        names += inOneLine(nameOf(color));
    }
    QString remark;
    if (found.mappedCount > 0) {
        remark = isOne ? tr("outside sRGB, mapped") : tr("%1 outside sRGB, mapped").arg(found.mappedCount);
    }
    m_patches->setColors(found.colors);
    m_title->setText(title);
    m_detail->setText(names.join(u", "_s));
    m_remark->setText(remark);
    m_remark->setVisible(!remark.isEmpty());
    m_hint->setText(isOne ? tr("Return adds it") : tr("Return adds them"));
    m_hint->setMinimumSize(m_hint->sizeHint());
    setAccessibleName(tr("Add %1").arg(isOne ? names.first() + u", "_s + title : title));
    setAccessibleDescription(remark);
}

double FoundColorsRow::cornerRadius() const
{
    return rowRadius;
}

} // namespace tintwick
