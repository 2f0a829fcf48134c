#include "OpenRequest.h"

#include "FileChooser.h"
#include "FileDialog.h"

#include <utility>

namespace tintwick {

OpenRequest::OpenRequest(QString title, QString kind, QStringList suffixes, PortalHandle portalHandle)
    : FileRequest(std::move(portalHandle))
    , m_title(std::move(title))
    , m_kind(std::move(kind))
    , m_suffixes(std::move(suffixes))
{
}

void OpenRequest::ask(FileChooser& chooser, const QString& parentWindow, const QString& folder)
{
    connect(&chooser, &FileChooser::chosen, this, [this](const QStringList& paths) {
        take(paths);
        end();
    });
    chooser.openFiles({.parentWindow = parentWindow,
                       .title = m_title,
                       .suggestedName = {},
                       .folder = folder,
                       .kind = m_kind,
                       .suffixes = m_suffixes});
}

std::unique_ptr<FileDialog> OpenRequest::makeDialog(const QString& folder)
{
    auto dialog = std::make_unique<FileDialog>(folder);
    dialog->setWindowTitle(m_title);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setNameFilters({QStringLiteral("%1 (*.%2)").arg(m_kind, m_suffixes.join(QStringLiteral(" *."))),
                            tr("All Files") + QStringLiteral(" (*)")});
    connect(dialog.get(), &QFileDialog::filesSelected, this, &OpenRequest::take);
    return dialog;
}

void OpenRequest::take(const QStringList& paths)
{
    rememberFolderOf(paths.first());
    Q_EMIT chosen(paths);
}

} // namespace tintwick
