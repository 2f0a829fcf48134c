#include "Autostart.h"
#include "support/QuickTemporaryDir.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <cerrno>

using namespace tintwick;
using namespace Qt::StringLiterals;

class AutostartTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void nothingStartsAtLoginAtFirst();
    void theEntryIsWrittenAndRemoved();
    void anEntryThatIsSwitchedOffDoesNotCount_data();
    void anEntryThatIsSwitchedOffDoesNotCount();
    void failuresAreReported();
    void theBinaryIsQuoted_data();
    void theBinaryIsQuoted();

private:
    std::unique_ptr<QTemporaryDir> m_home;
};

void AutostartTest::init()
{
    m_home = test::quickTemporaryDir();
    qputenv("XDG_CONFIG_HOME", m_home->path().toUtf8());
}

void AutostartTest::nothingStartsAtLoginAtFirst()
{
    QVERIFY(!startsAtLogin());
    // Removing what is not there is no failure.
    QCOMPARE(setStartsAtLogin(false), 0);
}

void AutostartTest::theEntryIsWrittenAndRemoved()
{
    QCOMPARE(setStartsAtLogin(true), 0);
    QVERIFY(startsAtLogin());
    const QString path = m_home->filePath(u"autostart/org.tintwick.Tintwick.desktop"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray entry = file.readAll();
    QVERIFY(entry.startsWith("[Desktop Entry]\nType=Application\nName=Tintwick\n"));
    QVERIFY(
        entry.contains("\nExec=\"" + QCoreApplication::applicationFilePath().toUtf8() + "\" --background\n"));
    QCOMPARE(setStartsAtLogin(false), 0);
    QVERIFY(!startsAtLogin());
    QVERIFY(!QFileInfo::exists(path));
}

void AutostartTest::anEntryThatIsSwitchedOffDoesNotCount_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("starts");
    QTest::newRow("plain") << QByteArray() << true;
    QTest::newRow("hidden") << QByteArray("Hidden=true\n") << false;
    QTest::newRow("disabled") << QByteArray("X-GNOME-Autostart-enabled=false\n") << false;
    QTest::newRow("enabled") << QByteArray("X-GNOME-Autostart-enabled=true\n") << true;
}

void AutostartTest::anEntryThatIsSwitchedOffDoesNotCount()
{
    QFETCH(const QByteArray, line);
    QVERIFY(QDir().mkpath(QFileInfo(autostartFile()).path()));
    QFile file(autostartFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[Desktop Entry]\nType=Application\nExec=tintwick\n" + line);
    file.close();
    QTEST(startsAtLogin(), "starts");
    QCOMPARE(setStartsAtLogin(true), 0);
    QVERIFY(startsAtLogin());
}

void AutostartTest::failuresAreReported()
{
    QFile inTheWay(m_home->filePath(u"autostart"_s));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    QCOMPARE(setStartsAtLogin(true), ENOTDIR);
    QVERIFY(!startsAtLogin());
}

void AutostartTest::theBinaryIsQuoted_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("plain") << u"/usr/bin/tintwick"_s
                           << QByteArray(
                                  "TryExec=/usr/bin/tintwick\nExec=\"/usr/bin/tintwick\" --background\n");
    QTest::newRow("space, percent") << u"/a b/10%"_s
                                    << QByteArray("TryExec=/a b/10%\nExec=\"/a b/10%%\" --background\n");
    QTest::newRow("quote, dollar") << u"/\"$"_s
                                   << QByteArray("TryExec=/\"$\nExec=\"/\\\\\"\\\\$\" --background\n");
    QTest::newRow("backslash") << u"/\\"_s << QByteArray("TryExec=/\\\\\nExec=\"/\\\\\\\\\" --background\n");
    QTest::newRow("placeholder") << u"/%2"_s << QByteArray("TryExec=/%2\nExec=\"/%%2\" --background\n");
}

void AutostartTest::theBinaryIsQuoted()
{
    QFETCH(const QString, program);
    QFETCH(const QByteArray, lines);
    QCOMPARE(autostartEntry(program).mid(autostartEntry(program).indexOf("TryExec")), lines);
}

QTEST_GUILESS_MAIN(AutostartTest)
#include "AutostartTest.moc"
