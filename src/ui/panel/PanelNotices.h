#pragma once

#include "Notice.h"

#include <QObject>
#include <QString>

namespace tintwick {

class AppState;
class NoticeView;
class Preferences;

/// Chooses what the notice of the panel says: a sentence about what the user has just done, or else that the data file was
/// unreadable, until the panel is hidden, or else what cannot be saved.
class PanelNotices final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive this object.
    PanelNotices(NoticeView& view, AppState& appState, Preferences& preferences, QObject* parent);

    /// An empty sentence removes the one before.
    void show(const QString& sentence);
    /// Shows its path if no program can show the folder.
    void showFolder(const QString& folder);
    /// The user has seen what the panel showed.
    void panelHidden();

private:
    [[nodiscard]] bool mentionsUnreadableFile() const;
    [[nodiscard]] Notice current();
    void update();

    NoticeView& m_view;
    AppState& m_appState;
    Preferences& m_preferences;
    QString m_sentence;
    bool m_hasMentionedUnreadableFile = false;
};

} // namespace tintwick
