#include "SearchScreen.h"

#include "AppState.h"
#include "ColorResults.h"
#include "ColorSearch.h"
#include "FoundColorsRow.h"
#include "Stack.h"
#include "TextField.h"

#include <QKeyEvent>

namespace tintwick {

SearchScreen::SearchScreen(AppState& appState, QWidget& panel)
    : m_appState(appState)
    , m_field(new TextField(tr("Search or enter a color")))
    , m_foundRow(new FoundColorsRow(appState))
    , m_results(new ColorResults(appState, panel))
{
    setContent(column(column(gap(10), Padding{{16, 12, 16, 4}}, m_field, m_foundRow), m_results));

    m_foundRow->onClick([this] { choose(); });
    connect(m_field, &QLineEdit::textChanged, this, &SearchScreen::showResults);
    connect(m_field, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (text.isEmpty()) {
            Q_EMIT closeRequested();
        }
    });
    connect(&m_results->grid(), &SwatchGrid::leftAbove, this, [this] { m_field->setFocus(); });
    connect(&m_appState, &AppState::historyChanged, this, &SearchScreen::showResults);
    connect(&m_appState, &AppState::collectionsChanged, this, &SearchScreen::showResults);
    showResults();
}

void SearchScreen::enter(const QString& text)
{
    m_field->setFocus();
    if (text.isEmpty()) {
        m_field->selectAll();
    } else {
        m_field->end(false);
        m_field->insert(text);
    }
}

void SearchScreen::showResults()
{
    m_found = colorsInText(m_field->text(), AppState::historyLimit);
    m_foundRow->setColors(m_found);
    m_results->setColors(matchingColors(m_appState, m_field->text()), m_found.colors.isEmpty()
                                                                          ? ColorResults::WhenNone::Sentence
                                                                          : ColorResults::WhenNone::Nothing);
    m_field->setAccessibleDescription(m_found.colors.isEmpty() ? m_results->summary()
                                                               : m_foundRow->accessibleName());
    setTabOrder(m_field, m_foundRow);
    m_results->grid().putInTabOrderAfter(m_foundRow);
}

void SearchScreen::choose()
{
    if (!m_found.colors.isEmpty()) {
        Q_EMIT colorsChosen(m_found);
    }
}

void SearchScreen::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose();
        break;
    case Qt::Key_Down:
        m_results->focusFirst();
        break;
    default:
        View::keyPressEvent(event);
    }
}

} // namespace tintwick
