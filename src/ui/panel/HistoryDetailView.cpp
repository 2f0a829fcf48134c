#include "HistoryDetailView.h"

#include "AppState.h"
#include "Bound.h"
#include "Button.h"
#include "ColorSelector.h"
#include "DetailScreen.h"
#include "ExportMenu.h"
#include "Label.h"
#include "Rule.h"
#include "SelectionBar.h"
#include "Stack.h"
#include "SymbolView.h"
#include "Theme.h"

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

} // namespace

HistoryDetailView::HistoryDetailView(AppState& appState, QWidget& panel)
    : m_appState(appState)
    , m_emptyText(emptyStateLabel({}))
    , m_grid(new SwatchGrid(appState, panel))
    , m_selector(new ColorSelector(appState, *this, panel,
                                   [&appState](const QList<QUuid>& ids) { appState.deleteColors(ids); }))
{
    m_grid->setSelector(*m_selector);
    // clang-format off
    setContent(column(
        toolbar(),
        rule(),
        shownWhen(historyIsEmpty(), emptyState(u"eyedropper"_s, m_emptyText)),
        shownWhen(historyIsNotEmpty(), m_grid),
        new SelectionBar(*m_selector, [] { return u"History"_s; })));
    // clang-format on

    setPickKeys({}, {});
    connect(&m_appState, &AppState::historyChanged, this, &HistoryDetailView::showHistory);
    showHistory();
}

void HistoryDetailView::setPickKeys(const QString& keys, const QString& inWords)
{
    const auto text = [](const QString& shownKeys) {
        return shownKeys.isEmpty() ? tr("No colors yet")
                                   : tr("No colors yet\nPress %1 to snip a color").arg(shownKeys);
    };
    m_emptyText->setText(text(keys));
    m_emptyText->setAccessibleName(text(inWords));
}

QWidget* HistoryDetailView::toolbar()
{
    m_export = new ExportMenu([this] { return m_appState.history(); }, [] { return u"History"_s; });
    return row(gap(10), padding(16, 10), label(countText(), theme::font(13), theme::textSecond), spacer(),
               m_export, clearButton());
}

QWidget* HistoryDetailView::clearButton()
{
    m_clear = squareButton(
        tr("Clear all history"), [this] { m_appState.clearHistory(); },
        symbol(u"delete"_s, 13, SymbolWeight::Regular, theme::red.opacity(0.7)));
    return m_clear;
}

Bound<bool> HistoryDetailView::historyIsEmpty() const
{
    return bound([this] { return m_appState.history().isEmpty(); })
        .changedBy(m_appState, &AppState::historyChanged);
}

Bound<bool> HistoryDetailView::historyIsNotEmpty() const
{
    return bound([this] { return !m_appState.history().isEmpty(); })
        .changedBy(m_appState, &AppState::historyChanged);
}

Bound<QString> HistoryDetailView::countText() const
{
    return bound([this] { return colorCountText(m_appState.history().size()); })
        .changedBy(m_appState, &AppState::historyChanged);
}

void HistoryDetailView::showHistory()
{
    m_grid->setColors(m_appState.history());
    m_selector->setColors(m_appState.history());
    m_export->setHasColors(!m_appState.history().isEmpty());
    m_grid->putInTabOrderAfter(m_clear);
}

} // namespace tintwick
