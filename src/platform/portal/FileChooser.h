#pragma once

#include "PortalRequest.h"

#include <QString>

namespace tintwick {

/// The desktop's own save dialog, which the portal org.freedesktop.portal.FileChooser shows from another process.
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
        /// The kind of file as the dialog names it, and its suffix without the dot.
        QString kind;
        QString suffix;
    };

    explicit FileChooser(QObject* parent = nullptr);

    /// Opens the dialog. Call once.
    void saveFile(const Question& question);

Q_SIGNALS:
    void chosen(const QString& path);
    /// The user cancelled, or chose a place that is not a local file.
    void cancelled();

private:
    void takeAnswer(Answer answer, const QVariantMap& results) override;
};

} // namespace tintwick
