#include "SaveDialog.h"

#include "ContentType.h"

#include <QFileInfo>

#include <utility>

namespace tintwick {

SaveDialog::SaveDialog(const ContentType& contentType, const QString& folder, const QString& suggestedName,
                       Write write)
    : FileDialog(folder)
    , m_write(std::move(write))
{
    setAcceptMode(QFileDialog::AcceptSave);
    setFileMode(QFileDialog::AnyFile);
    setNameFilter(QStringLiteral("%1 (*.%2)").arg(contentType.name, contentType.suffix));
    setDefaultSuffix(contentType.suffix);
    selectFile(suggestedName);
}

void SaveDialog::accept()
{
    const QFileInfo file(selectedFiles().value(0));
    if (!file.exists() || file.isDir()) {
        FileDialog::accept();
        return;
    }
    QMessageBox* question =
        createMessage(tr("%1 already exists.\nDo you want to replace it?").arg(file.fileName()),
                      QMessageBox::Yes | QMessageBox::No);
    question->setDefaultButton(QMessageBox::No);
    connect(question, &QMessageBox::finished, this, [this](int answer) {
        if (answer == QMessageBox::Yes) {
            FileDialog::accept();
        }
    });
    question->open();
}

void SaveDialog::done(int result)
{
    if (result == Accepted) {
        const QString path = selectedFiles().value(0);
        if (const std::optional<QString> reason = m_write(path)) {
            createMessage(tr("%1 cannot be saved.\n%2").arg(QFileInfo(path).fileName(), *reason),
                          QMessageBox::Ok)
                ->open();
            return;
        }
    }
    FileDialog::done(result);
}

QMessageBox* SaveDialog::createMessage(const QString& text, QMessageBox::StandardButtons buttons)
{
    auto* message = new QMessageBox(QMessageBox::Warning, windowTitle(), text, buttons, this);
    // A window inherits no palette.
    message->setPalette(palette());
    message->setTextFormat(Qt::PlainText);
    message->setAttribute(Qt::WA_DeleteOnClose);
    return message;
}

} // namespace tintwick
