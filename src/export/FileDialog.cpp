#include "FileDialog.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>

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

FileDialog::FileDialog(const QString& folder)
{
    // The toolkit's own question about replacing a file is modal for all windows of the program.
    setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    setDirectory(folder);
    // The panel stays on top too, and would cover the dialog.
    setWindowFlag(Qt::WindowStaysOnTopHint);
    qApp->installEventFilter(this);
}

void FileDialog::showOn(const QScreen& screen)
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
bool FileDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Polish && watched->isWidgetType()) {
        auto* window = static_cast<QWidget*>(watched);
        if (window != this && window->isWindow() && belongsTo(*window, *this)) {
            window->setPalette(palette());
        }
    }
    return QFileDialog::eventFilter(watched, event);
}

} // namespace tintwick
