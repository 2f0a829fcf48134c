#include "SimilarScreen.h"

#include "AppState.h"
#include "Button.h"
#include "ColorActions.h"
#include "ColorResults.h"
#include "ColorSearch.h"
#include "InOneLine.h"
#include "Label.h"
#include "Stack.h"
#include "SymbolView.h"
#include "Theme.h"

#include <QKeyEvent>

#include <utility>

namespace tintwick {

using namespace Qt::StringLiterals;

SimilarScreen::SimilarScreen(AppState& appState, CapturedColor color, QWidget& panel)
    : m_appState(appState)
    , m_color(std::move(color))
    , m_end(endButton())
    , m_results(new ColorResults(appState, panel))
{
    setContent(column(row(Padding{{16, 12, 16, 4}}, m_end, spacer()), m_results));
    connect(&m_results->grid(), &SwatchGrid::leftAbove, this,
            [this] { m_end->setFocus(Qt::BacktabFocusReason); });
    connect(&m_appState, &AppState::historyChanged, this, &SimilarScreen::showResults);
    showResults();
}

PlainButton* SimilarScreen::endButton()
{
    constexpr int height = 30;
    const QString title = tr("Similar to %1").arg(inOneLine(shownName(m_color)));
    auto* button = plainButton(
        tr("%1, end").arg(title), [this] { Q_EMIT closeRequested(); },
        row(gap(8), padding(12, 0), fixedHeight(height), ground(theme::surfaceHigh, height / 2.0),
            label(title, theme::font(12, QFont::Medium)),
            symbol(u"close"_s, 9, SymbolWeight::Semibold, theme::textSecond)),
        height / 2.0);
    return button;
}

void SimilarScreen::showResults()
{
    m_results->setColors(similarColors(m_appState, m_color));
    m_results->grid().putInTabOrderAfter(m_end);
}

void SimilarScreen::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Down) {
        m_results->focusFirst();
    } else {
        View::keyPressEvent(event);
    }
}

} // namespace tintwick
