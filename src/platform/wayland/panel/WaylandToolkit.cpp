#include "WaylandToolkit.h"

#include "ConnectionLoss.h"

#include <QCoreApplication>
#include <QDir>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <cstdlib>
#include <mutex>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr auto* platformVariable = "QT_QPA_PLATFORM";

QtMessageHandler defaultHandler = nullptr;

bool hasPlugin()
{
    QStringList folders{qEnvironmentVariable("QT_QPA_PLATFORM_PLUGIN_PATH")};
    for (const QString& path : QCoreApplication::libraryPaths()) {
        folders.append(path + "/platforms"_L1);
    }
    return std::ranges::any_of(folders, [](const QString& folder) {
        return !folder.isEmpty() && !QDir(folder).entryList({u"libqwayland*.so"_s}, QDir::Files).isEmpty();
    });
}

/// The toolkit prints this and calls _exit(), so that changes which are being saved would be lost.
void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith("The Wayland connection "_L1)) {
        defaultHandler(type, context, message);
        return;
    }
    if (message.startsWith("The Wayland connection broke"_L1)) {
        reportConnectionLoss();
    } else {
        defaultHandler(type, context, message);
    }
    // Never unlocked: several threads of the toolkit come here, and a second quick_exit() would not wait for the saving.
    static std::mutex ending;
    ending.lock();
    // Not exit(): threads of the toolkit still use static objects.
    std::quick_exit(EXIT_FAILURE);
}

} // namespace

bool useWaylandToolkit(QString& whyNot)
{
    if (!defaultHandler) {
        defaultHandler = qInstallMessageHandler(&handleMessage);
    }
    if (!hasPlugin()) {
        whyNot =
            u"Tintwick needs Qt's plugin for Wayland, which is not installed (package \"qt6-wayland\")."_s;
        return false;
    }
    if (qEnvironmentVariableIsEmpty(platformVariable)) {
        qputenv(platformVariable, "wayland");
    }
    return true;
}

} // namespace tintwick
