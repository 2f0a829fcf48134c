#pragma once

#include "ContentType.h"
#include "FileRequest.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace tintwick {

/// Asks the user for a file and writes it. When the file cannot be written, the user is asked again and sees the reason.
class SaveRequest final : public FileRequest
{
    Q_OBJECT

public:
    SaveRequest(QByteArray data, QString suggestedName, ContentType contentType, PortalHandle portalHandle);

    void begin();

private:
    void ask(FileChooser& chooser, const QString& parentWindow, const QString& folder) override;
    [[nodiscard]] std::unique_ptr<FileDialog> makeDialog(const QString& folder) override;
    /// The reason when the file cannot be written.
    [[nodiscard]] std::optional<QString> write(const QString& path) const;

    QByteArray m_data;
    QString m_suggestedName;
    ContentType m_contentType;
    QString m_title;
};

} // namespace tintwick
