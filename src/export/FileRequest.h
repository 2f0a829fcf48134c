#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

namespace tintwick {

class FileChooser;
class FileDialog;

/// Asks the user for files, and deletes itself. The dialog is the desktop's own, or else the toolkit's. Several requests may be
/// open at the same time; none blocks the program. The first folder shown is the one of the last file.
class FileRequest : public QObject
{
    Q_OBJECT

public:
    /// Gives the name that desktop portals use for a window; empty where it has none.
    using PortalHandle = std::function<QString(const QWidget& window)>;

    ~FileRequest() override;

protected:
    explicit FileRequest(PortalHandle portalHandle);

    /// Opens the desktop's dialog.
    void askPortal();
    /// Calls the portal. The chooser is deleted after the answer, which the request takes.
    virtual void ask(FileChooser& chooser, const QString& parentWindow, const QString& folder) = 0;
    /// Makes the toolkit's dialog.
    [[nodiscard]] virtual std::unique_ptr<FileDialog> makeDialog(const QString& folder) = 0;
    static void rememberFolderOf(const QString& path);
    void end();

private:
    void askToolkit();

    PortalHandle m_portalHandle;
    std::unique_ptr<FileDialog> m_dialog;
    /// The window of ours that had the keyboard at the start, and gets it back.
    QPointer<QWidget> m_askedFrom;
};

} // namespace tintwick
