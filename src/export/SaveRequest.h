#pragma once

#include "ContentType.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <memory>

namespace tintwick {

class SaveDialog;

/// Asks the user for a file, writes to it once, and deletes itself. Several may be open at the same time, and none holds
/// up the rest of the program. The folder chosen last is where the next one begins.
class SaveRequest final : public QObject
{
    Q_OBJECT

public:
    SaveRequest(QByteArray data, QString suggestedName, ContentType contentType);
    ~SaveRequest() override;

    void begin();

private:
    void askToolkit();
    void write(const QString& path);
    void end();

    QByteArray m_data;
    QString m_suggestedName;
    ContentType m_contentType;
    std::unique_ptr<SaveDialog> m_dialog;
    /// The window the user asked from, and goes on in.
    QPointer<QWidget> m_askedFrom;
};

} // namespace tintwick
