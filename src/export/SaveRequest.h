#pragma once

#include "ContentType.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace tintwick {

class SaveDialog;

/// Asks the user for a file, writes it, and deletes itself. When the file cannot be written, the user is asked again and
/// sees the reason. Several requests may be open at the same time; none blocks the program. The first folder shown is the
/// one of the last file.
class SaveRequest final : public QObject
{
    Q_OBJECT

public:
    /// Gives the name that desktop portals use for a window; empty where it has none.
    using PortalHandle = std::function<QString(const QWidget& window)>;

    SaveRequest(QByteArray data, QString suggestedName, ContentType contentType, PortalHandle portalHandle);
    ~SaveRequest() override;

    void begin();

private:
    void askPortal(const QString& title);
    void askToolkit();
    /// The reason when the file cannot be written.
    [[nodiscard]] std::optional<QString> write(const QString& path) const;
    void end();

    QByteArray m_data;
    QString m_suggestedName;
    ContentType m_contentType;
    PortalHandle m_portalHandle;
    std::unique_ptr<SaveDialog> m_dialog;
    /// The window of ours that had the keyboard at the start, and gets it back.
    QPointer<QWidget> m_askedFrom;
};

} // namespace tintwick
