#pragma once

#include "PortalRequest.h"

#include <QString>
#include <QStringList>

namespace tintwick {

/// The desktop's own dialog for files, which the portal org.freedesktop.portal.FileChooser shows from another process.
class FileChooser final : public PortalRequest
{
    Q_OBJECT

public:
    struct Question
    {
        /// The window that the dialog belongs to, as portals name it ("x11:1a0"); empty for none.
        QString parentWindow;
        QString title;
        QString suggestedName;
        /// The folder that the dialog shows first; empty leaves the choice to the desktop.
        QString folder;
        /// The kind of file as the dialog names it, and its suffixes without the dot.
        QString kind;
        QStringList suffixes;
    };

    explicit FileChooser(QObject* parent = nullptr);

    /// Opens a dialog for one file to write. Call this or openFiles() once.
    void saveFile(const Question& question);
    /// Opens a dialog for several files to read. The kind is only proposed.
    void openFiles(const Question& question);

Q_SIGNALS:
    /// At least one.
    void chosen(const QStringList& paths);
    /// The user cancelled, or chose no local file.
    void cancelled();

private:
    void takeAnswer(Answer answer, const QVariantMap& results) override;
};

} // namespace tintwick
