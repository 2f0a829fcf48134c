#include "FileRequest.h"

#include "FileChooser.h"
#include "FileDialog.h"
#include "OpenSaveRequests.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPalette>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QWindow>

#include <utility>

#include <malloc.h>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

QString lastFolder;

/// Keeps the toolkit's dialogs from storing which folders the user has visited ("QtProject.conf"), which it does in its
/// destructor, and from reading it. Settings that exist already keep their file.
class NoToolkitRecords final
{
public:
    NoToolkitRecords() { setFolder(u"/dev/null"_s); }
    ~NoToolkitRecords()
    {
        setFolder(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    }
    NoToolkitRecords(const NoToolkitRecords&) = delete;
    NoToolkitRecords& operator=(const NoToolkitRecords&) = delete;

private:
    static void setFolder(const QString& path)
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, path);
    }
};

/// The folder that a dialog shows first.
QString firstFolder()
{
    if (QFileInfo(lastFolder).isDir()) {
        return lastFolder;
    }
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

/// The widget of ours that has the keyboard, or null.
const QWidget* focusedView()
{
    const QWidget* focused = QApplication::focusWidget();
    return focused ? focused : QApplication::activeWindow();
}

/// The palette with every role set, because what a widget has inherited has no effect in the palette of another.
QPalette ownPalette(const QPalette& inherited)
{
    QPalette palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (int role = 0; role < QPalette::NColorRoles; ++role) {
            const auto colorRole = static_cast<QPalette::ColorRole>(role);
            palette.setBrush(group, colorRole, inherited.brush(group, colorRole));
        }
    }
    return palette;
}

} // namespace

FileRequest::FileRequest(PortalHandle portalHandle)
    : m_portalHandle(std::move(portalHandle))
{
    OpenSaveRequests::shared().add();
    // A window must not outlive the application.
    connect(qApp, &QCoreApplication::aboutToQuit, this, &FileRequest::end);
}

FileRequest::~FileRequest()
{
    if (m_dialog) {
        const NoToolkitRecords noRecords;
        m_dialog.reset();
        // A dialog takes some megabytes, most of which the allocator would keep.
        ::malloc_trim(0);
    }
    OpenSaveRequests::shared().remove();
}

void FileRequest::askPortal()
{
    auto* chooser = new FileChooser(this);
    connect(chooser, &FileChooser::chosen, chooser, &QObject::deleteLater);
    connect(chooser, &FileChooser::cancelled, this, &FileRequest::end);
    connect(chooser, &FileChooser::unavailable, this, &FileRequest::askToolkit);
    const QWidget* view = focusedView();
    ask(*chooser, view && m_portalHandle ? m_portalHandle(*view->window()) : QString(), lastFolder);
}

void FileRequest::askToolkit()
{
    const QWidget* view = focusedView();
    const NoToolkitRecords noRecords;
    m_dialog = makeDialog(firstFolder());
    if (view) {
        m_askedFrom = view->window();
        m_dialog->setPalette(ownPalette(view->palette()));
    }
    connect(m_dialog.get(), &FileDialog::finished, this, [this] {
        // A window manager does not give the keyboard back to the panel by itself.
        if (m_askedFrom && m_askedFrom->isVisible()) {
            m_askedFrom->activateWindow();
        }
        end();
    });
    if (m_askedFrom && QGuiApplication::platformName().startsWith("wayland"_L1)) {
        // A compositor shows a dialog above its parent. Elsewhere the dialog stays on top by itself.
        m_dialog->winId();
        m_dialog->windowHandle()->setTransientParent(m_askedFrom->windowHandle());
    }
    m_dialog->showOn(view ? *view->screen() : *QGuiApplication::primaryScreen());
}

void FileRequest::rememberFolderOf(const QString& path)
{
    lastFolder = QFileInfo(path).path();
}

void FileRequest::end()
{
    deleteLater();
}

} // namespace tintwick
