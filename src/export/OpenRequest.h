#pragma once

#include "FileRequest.h"

#include <QStringList>

namespace tintwick {

/// Asks the user for files to read.
class OpenRequest final : public FileRequest
{
    Q_OBJECT

public:
    /// The kind of files as the dialog names it, and their suffixes without dots. Other files can be chosen, too.
    OpenRequest(QString title, QString kind, QStringList suffixes, PortalHandle portalHandle);

    void begin() { askPortal(); }

Q_SIGNALS:
    void chosen(const QStringList& paths);

private:
    void ask(FileChooser& chooser, const QString& parentWindow, const QString& folder) override;
    [[nodiscard]] std::unique_ptr<FileDialog> makeDialog(const QString& folder) override;
    void take(const QStringList& paths);

    QString m_title;
    QString m_kind;
    QStringList m_suffixes;
};

} // namespace tintwick
