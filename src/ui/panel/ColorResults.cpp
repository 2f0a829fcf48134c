#include "ColorResults.h"

#include "AppState.h"
#include "DetailScreen.h"
#include "Label.h"
#include "Rule.h"
#include "Stack.h"
#include "Theme.h"

#include <algorithm>

namespace tintwick {

using namespace Qt::StringLiterals;

ColorResults::ColorResults(AppState& appState, QWidget& panel)
    : m_appState(appState)
    , m_count(label({}, theme::font(13), theme::textSecond))
    , m_head(column(row(padding(16, 8), m_count, spacer()), rule()))
    , m_empty(emptyState(u"eyedropper"_s, emptyStateLabel(tr("No colors match"))))
    , m_blank(column(spacer()))
    , m_grid(new SwatchGrid(appState, panel))
{
    setContent(column(m_head, m_empty, m_blank, m_grid));
}

void ColorResults::setColors(const QList<CapturedColor>& colors, WhenNone whenNone)
{
    m_count->setText(countText(colors.size()));
    m_grid->setColors(colors.first(std::min(colors.size(), mostShown)));
    const bool isBlank = colors.isEmpty() && whenNone == WhenNone::Nothing;
    m_head->setVisible(!isBlank);
    m_blank->setVisible(isBlank);
    m_grid->setVisible(!colors.isEmpty());
    m_empty->setVisible(colors.isEmpty() && !isBlank);
}

QString ColorResults::countText(qsizetype found) const
{
    const qsizetype all = m_appState.allColors().size();
    if (found > mostShown) {
        return tr("The first %1 of %2").arg(mostShown).arg(colorCountText(found));
    }
    return found == all ? colorCountText(all) : tr("%1 of %2").arg(found).arg(colorCountText(all));
}

QString ColorResults::summary() const
{
    return m_grid->swatches().isEmpty() ? tr("No colors match") : m_count->text();
}

void ColorResults::focusFirst() const
{
    if (!m_grid->swatches().isEmpty()) {
        m_grid->swatches().first()->setFocus(Qt::TabFocusReason);
    }
}

} // namespace tintwick
