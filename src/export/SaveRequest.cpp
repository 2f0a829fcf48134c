#include "SaveRequest.h"

#include "AtomicWrite.h"
#include "FileChooser.h"
#include "OpenSaveRequests.h"
#include "SaveDialog.h"

#include <QFileInfo>

#include <utility>

namespace tintwick {

SaveRequest::SaveRequest(QByteArray data, QString suggestedName, ContentType contentType,
                         PortalHandle portalHandle)
    : FileRequest(std::move(portalHandle))
    , m_data(std::move(data))
    , m_suggestedName(std::move(suggestedName))
    , m_contentType(std::move(contentType))
{
}

void SaveRequest::begin()
{
    m_title = tr("Save As");
    askPortal();
}

void SaveRequest::ask(FileChooser& chooser, const QString& parentWindow, const QString& folder)
{
    connect(&chooser, &FileChooser::chosen, this, [this](const QStringList& paths) {
        const QString& path = paths.first();
        if (const std::optional<QString> reason = write(path)) {
            // The portal has closed its dialog, so a new one shows the reason.
            m_title = tr("%1 cannot be saved: %2").arg(QFileInfo(path).fileName(), *reason);
            askPortal();
        } else {
            end();
        }
    });
    chooser.saveFile({.parentWindow = parentWindow,
                      .title = m_title,
                      .suggestedName = m_suggestedName,
                      .folder = folder,
                      .kind = m_contentType.name,
                      .suffixes = {m_contentType.suffix}});
}

std::unique_ptr<FileDialog> SaveRequest::makeDialog(const QString& folder)
{
    return std::make_unique<SaveDialog>(m_contentType, folder, m_suggestedName,
                                        [this](const QString& path) { return write(path); });
}

std::optional<QString> SaveRequest::write(const QString& path) const
{
    QString whyNot;
    if (!writeAtomically(path, m_data, &whyNot)) {
        return whyNot;
    }
    rememberFolderOf(path);
    Q_EMIT OpenSaveRequests::shared().saved(path);
    return std::nullopt;
}

} // namespace tintwick
