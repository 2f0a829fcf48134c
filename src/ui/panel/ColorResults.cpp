#include "ColorResults.h"

#include "AppState.h"
#include "DetailScreen.h"
#include "Label.h"
#include "Rule.h"
#include "Stack.h"
#include "Theme.h"

namespace tintwick {

using namespace Qt::StringLiterals;

ColorResults::ColorResults(AppState& appState, QWidget& panel)
    : m_appState(appState)
    , m_count(label({}, theme::font(13), theme::textSecond))
    , m_empty(emptyState(u"eyedropper"_s, emptyStateLabel(tr("No colors match"))))
    , m_grid(new SwatchGrid(appState, panel))
{
    setContent(column(row(padding(16, 8), m_count, spacer()), rule(), m_empty, m_grid));
}

void ColorResults::setColors(const QList<CapturedColor>& colors)
{
    const qsizetype all = m_appState.allColors().size();
    m_count->setText(colors.size() == all ? colorCountText(all)
                                          : tr("%1 of %2").arg(colors.size()).arg(colorCountText(all)));
    m_grid->setColors(colors);
    m_grid->setVisible(!colors.isEmpty());
    m_empty->setVisible(colors.isEmpty());
}

bool ColorResults::focusFirst() const
{
    if (m_grid->swatches().isEmpty()) {
        return false;
    }
    m_grid->swatches().first()->setFocus(Qt::TabFocusReason);
    return true;
}

} // namespace tintwick
