#include "PanelNotices.h"

#include "AppState.h"
#include "NoticeView.h"
#include "Preferences.h"

#include <QDesktopServices>
#include <QUrl>

namespace tintwick {

PanelNotices::PanelNotices(NoticeView& view, AppState& appState, Preferences& preferences, QObject* parent)
    : QObject(parent)
    , m_view(view)
    , m_appState(appState)
    , m_preferences(preferences)
{
    connect(&m_appState, &AppState::saveProblemChanged, this, &PanelNotices::update);
    connect(&m_appState, &AppState::unreadableFileFound, this, &PanelNotices::update);
    connect(&m_preferences, &Preferences::problemChanged, this, &PanelNotices::update);
    update();
}

void PanelNotices::show(const QString& sentence)
{
    m_sentence = sentence;
    update();
}

void PanelNotices::showFolder(const QString& folder)
{
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder))) {
        show(tr("The folder is %1").arg(folder));
    }
}

void PanelNotices::panelHidden()
{
    if (mentionsUnreadableFile()) {
        m_hasMentionedUnreadableFile = true;
        update();
    }
}

bool PanelNotices::mentionsUnreadableFile() const
{
    return m_sentence.isEmpty() && m_appState.foundUnreadableFile() && !m_hasMentionedUnreadableFile;
}

Notice PanelNotices::current()
{
    if (!m_sentence.isEmpty()) {
        return {.sentence = m_sentence, .buttonTitle = {}, .action = {}};
    }
    const auto withFolder = [this](const QString& sentence, const QString& folder) {
        return Notice{sentence, tr("Show Folder"), [this, folder] { showFolder(folder); }};
    };
    if (mentionsUnreadableFile()) {
        return withFolder(tr("Your saved colors could not be read. Their file is kept."),
                          m_appState.dataFolder());
    }
    if (!m_appState.saveProblem().isEmpty()) {
        return withFolder(m_appState.saveProblem(), m_appState.dataFolder());
    }
    if (!m_preferences.problem().isEmpty()) {
        return withFolder(m_preferences.problem(), m_preferences.folder());
    }
    return {};
}

void PanelNotices::update()
{
    m_view.showNotice(current());
}

} // namespace tintwick
