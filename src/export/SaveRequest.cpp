#include "SaveRequest.h"

#include "AtomicWrite.h"
#include "OpenSaveRequests.h"
#include "PortalSaveDialog.h"
#include "SaveDialog.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPalette>
#include <QScreen>
#include <QStandardPaths>
#include <QWidget>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

QString lastFolder;

/// Where the user begins to look.
QString firstFolder()
{
    if (QFileInfo(lastFolder).isDir()) {
        return lastFolder;
    }
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

/// The view the user asked from, if it is ours.
const QWidget* asker()
{
    const QWidget* focused = QApplication::focusWidget();
    return focused ? focused : QApplication::activeWindow();
}

/// The window of a view as a portal names it, so that it puts its dialog above it; empty where it has no such name.
QString portalName(const QWidget* view)
{
    const bool isOnX11 = QGuiApplication::platformName() == "xcb"_L1;
    return view && isOnX11 ? u"x11:"_s + QString::number(view->window()->winId(), 16) : QString();
}

/// What a view inherits counts for nothing in the palette of another widget.
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

SaveRequest::SaveRequest(QByteArray data, QString suggestedName, ContentType contentType)
    : m_data(std::move(data))
    , m_suggestedName(std::move(suggestedName))
    , m_contentType(std::move(contentType))
{
    OpenSaveRequests::shared().add();
    // A window must not outlive the application.
    connect(qApp, &QCoreApplication::aboutToQuit, this, &SaveRequest::end);
}

SaveRequest::~SaveRequest()
{
    OpenSaveRequests::shared().remove();
}

void SaveRequest::begin()
{
    auto* portal = new PortalSaveDialog(this);
    connect(portal, &PortalSaveDialog::chosen, this, [this](const QString& path) {
        write(path);
        end();
    });
    connect(portal, &PortalSaveDialog::cancelled, this, &SaveRequest::end);
    connect(portal, &PortalSaveDialog::unavailable, this, &SaveRequest::askToolkit);
    portal->ask({portalName(asker()), tr("Save As"), m_suggestedName, lastFolder}, m_contentType);
}

void SaveRequest::askToolkit()
{
    const QWidget* view = asker();
    m_dialog = std::make_unique<SaveDialog>(m_contentType, firstFolder(), m_suggestedName);
    if (view) {
        m_askedFrom = view->window();
        m_dialog->setPalette(ownPalette(view->palette()));
    }
    connect(m_dialog.get(), &SaveDialog::finished, this, [this](int result) {
        if (result == QDialog::Accepted) {
            write(m_dialog->selectedFiles().value(0));
        }
        // A window manager would not give the keys back to the panel of its own accord.
        if (m_askedFrom && m_askedFrom->isVisible()) {
            m_askedFrom->activateWindow();
        }
        end();
    });
    m_dialog->showOn(view ? *view->screen() : *QGuiApplication::primaryScreen());
}

void SaveRequest::write(const QString& path)
{
    lastFolder = QFileInfo(path).path();
    writeAtomically(path, m_data);
}

void SaveRequest::end()
{
    deleteLater();
}

} // namespace tintwick
