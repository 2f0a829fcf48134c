#include "WaylandToolkit.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

class WaylandToolkitTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theToolkitShowsItsWindowsOnWayland_data();
    void theToolkitShowsItsWindowsOnWayland();
    void withoutThePluginTheUserHearsOfIt();
};

namespace {

constexpr auto* variable = "QT_QPA_PLATFORM";

/// The toolkit finds only the plugins in this folder.
void usePluginsIn(const QTemporaryDir& folder, const QStringList& plugins)
{
    QVERIFY(QDir(folder.path()).mkpath(u"platforms"_s));
    for (const QString& plugin : plugins) {
        QFile file(folder.filePath(u"platforms/"_s + plugin));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QCoreApplication::setLibraryPaths({folder.path()});
}

} // namespace

void WaylandToolkitTest::theToolkitShowsItsWindowsOnWayland_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("no choice of the user") << QByteArray() << QByteArray("wayland");
    QTest::newRow("the user's choice") << QByteArray("wayland-egl") << QByteArray("wayland-egl");
}

void WaylandToolkitTest::theToolkitShowsItsWindowsOnWayland()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    const QTemporaryDir folder;
    usePluginsIn(folder, {u"libqxcb.so"_s, u"libqwayland-generic.so"_s});
    qputenv(variable, before);
    QString whyNot;
    QVERIFY(useWaylandToolkit(whyNot));
    QCOMPARE(qgetenv(variable), after);
    QVERIFY(whyNot.isEmpty());
}

void WaylandToolkitTest::withoutThePluginTheUserHearsOfIt()
{
    const QTemporaryDir folder;
    usePluginsIn(folder, {u"libqxcb.so"_s});
    qunsetenv(variable);
    QString whyNot;
    QVERIFY(!useWaylandToolkit(whyNot));
    QCOMPARE(whyNot,
             u"Tintwick needs Qt's plugin for Wayland, which is not installed (package \"qt6-wayland\")."_s);
    QVERIFY(!qEnvironmentVariableIsSet(variable));
}

QTEST_GUILESS_MAIN(WaylandToolkitTest)
#include "WaylandToolkitTest.moc"
