#include "SaveDialog.h"

#include "ContentType.h"

#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QMessageBox>
#include <QScreen>

namespace tintwick {

namespace {

bool belongsTo(const QWidget& window, const QWidget& dialog)
{
    // What completes a text belongs to nobody, but leaves the keys to the field.
    const QWidget* each = window.parentWidget() ? window.parentWidget() : window.focusProxy();
    while (each && each != &dialog) {
        each = each->parentWidget();
    }
    return each == &dialog;
}

} // namespace

SaveDialog::SaveDialog(const ContentType& contentType, const QString& folder, const QString& suggestedName)
{
    // The toolkit's own question whether to replace a file would hold up every window of the program.
    setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    setAcceptMode(QFileDialog::AcceptSave);
    setFileMode(QFileDialog::AnyFile);
    setNameFilter(QStringLiteral("%1 (*.%2)").arg(contentType.name, contentType.suffix));
    setDefaultSuffix(contentType.suffix);
    setDirectory(folder);
    selectFile(suggestedName);
    // The panel stays on top, and would stay on top of this.
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

// A window does not inherit the palette of the one it belongs to: menus, questions and the list of names to choose from
// would be light above a dark dialog.
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
    auto* question =
        new QMessageBox(QMessageBox::Warning, windowTitle(),
                        tr("%1 already exists.\nDo you want to replace it?").arg(file.fileName()),
                        QMessageBox::Yes | QMessageBox::No, this);
    // A window inherits no palette.
    question->setPalette(palette());
    question->setTextFormat(Qt::PlainText);
    question->setDefaultButton(QMessageBox::No);
    question->setAttribute(Qt::WA_DeleteOnClose);
    connect(question, &QMessageBox::finished, this, [this](int answer) {
        if (answer == QMessageBox::Yes) {
            QFileDialog::accept();
        }
    });
    question->open();
}

} // namespace tintwick
