#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class QMimeData;
class QWidget;

namespace tintwick {

class AppState;
struct TextColors;

/// Puts colours that the user pastes or types at the head of the history, as one change. Ctrl+V in the panel pastes where no
/// text field has the focus.
class ColorIntake final : public QObject
{
    Q_OBJECT

public:
    /// A child of the panel.
    ColorIntake(AppState& appState, QWidget& panel);

    void take(const TextColors& found);
    /// Takes the colours of a text, else makes a palette of a picture. Files are left to the receiver of filesPasted().
    void paste(const QMimeData& content);

Q_SIGNALS:
    void filesPasted(const QStringList& paths);
    /// What the user should know about the colours added last; empty when that does not matter any more.
    void remarked(const QString& sentence);
    /// Nothing was added.
    void refused(const QString& sentence);

private:
    void setRemark(const QString& sentence);

    AppState& m_appState;
    QString m_remark;
};

} // namespace tintwick
