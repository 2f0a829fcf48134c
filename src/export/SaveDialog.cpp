#include "SaveDialog.h"

#include "ContentType.h"

#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QScreen>

#include <utility>

namespace tintwick {

namespace {

bool belongsTo(const QWidget& window, const QWidget& dialog)
{
    // The popup of a completer has no parent; its focus proxy is the field.
    const QWidget* each = window.parentWidget() ? window.parentWidget() : window.focusProxy();
    while (each && each != &dialog) {
        each = each->parentWidget();
    }
    return each == &dialog;
}

} // namespace

SaveDialog::SaveDialog(const ContentType& contentType, const QString& folder, const QString& suggestedName,
                       Write write)
    : m_write(std::move(write))
{
    // The toolkit's own question about replacing a file is modal for all windows of the program.
    setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    setAcceptMode(QFileDialog::AcceptSave);
    setFileMode(QFileDialog::AnyFile);
    setNameFilter(QStringLiteral("%1 (*.%2)").arg(contentType.name, contentType.suffix));
    setDefaultSuffix(contentType.suffix);
    setDirectory(folder);
    selectFile(suggestedName);
    // The panel stays on top too, and would cover the dialog.
    setWindowFlag(Qt::WindowStaysOnTopHint);
    qApp->installEventFilter(this);
}

void SaveDialog::showOn(const QScreen& screen)
{
    QRect place(QPoint(), size().expandedTo(sizeHint()).boundedTo(screen.availableSize()));
    place.moveCenter(screen.availableGeometry().center());
    setGeometry(place);
    show();
    raise();
    activateWindow();
}

// A window does not inherit the palette of its parent: menus, messages and the list of names would be light above a dark
// dialog.
bool SaveDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Polish && watched->isWidgetType()) {
        auto* window = static_cast<QWidget*>(watched);
        if (window != this && window->isWindow() && belongsTo(*window, *this)) {
            window->setPalette(palette());
        }
    }
    return QFileDialog::eventFilter(watched, event);
}

void SaveDialog::accept()
{
    const QFileInfo file(selectedFiles().value(0));
    if (!file.exists() || file.isDir()) {
        QFileDialog::accept();
        return;
    }
    QMessageBox* question =
        createMessage(tr("%1 already exists.\nDo you want to replace it?").arg(file.fileName()),
                      QMessageBox::Yes | QMessageBox::No);
    question->setDefaultButton(QMessageBox::No);
    connect(question, &QMessageBox::finished, this, [this](int answer) {
        if (answer == QMessageBox::Yes) {
            QFileDialog::accept();
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
    QFileDialog::done(result);
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
