#include "WaylandToolkit.h"

#include <QCoreApplication>
#include <QDir>
#include <QString>
#include <QStringList>

#include <algorithm>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr auto* platformVariable = "QT_QPA_PLATFORM";

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

} // namespace

bool useWaylandToolkit(QString& whyNot)
{
    if (!qEnvironmentVariableIsEmpty(platformVariable)) {
        return true;
    }
    if (!hasPlugin()) {
        whyNot =
            u"Tintwick needs Qt's plugin for Wayland, which is not installed (package \"qt6-wayland\")."_s;
        return false;
    }
    qputenv(platformVariable, "wayland");
    return true;
}

} // namespace tintwick
