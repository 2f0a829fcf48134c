#include "ProcessSetup.h"

#include <QTest>

#include <pwd.h>
#include <unistd.h>

using namespace tintwick;

class ProcessSetupTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void relativeFoldersAreIgnored_data();
    void relativeFoldersAreIgnored();
    void withoutHomeThePasswordDatabaseIsAsked_data();
    void withoutHomeThePasswordDatabaseIsAsked();
};

void ProcessSetupTest::relativeFoldersAreIgnored_data()
{
    QTest::addColumn<QByteArray>("variable");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    for (const char* name :
         {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        QTest::addRow("%s, absolute", name) << QByteArray(name) << QByteArray("/a/b") << QByteArray("/a/b");
        QTest::addRow("%s, relative", name) << QByteArray(name) << QByteArray("a/b") << QByteArray();
        QTest::addRow("%s, with a tilde", name) << QByteArray(name) << QByteArray("~/b") << QByteArray();
    }
    for (const char* name : {"XDG_DATA_DIRS", "XDG_CONFIG_DIRS"}) {
        QTest::addRow("%s, mixed", name)
            << QByteArray(name) << QByteArray("/a:b::./c:/d") << QByteArray("/a:/d");
        QTest::addRow("%s, relative", name) << QByteArray(name) << QByteArray("a:b") << QByteArray();
    }
}

void ProcessSetupTest::relativeFoldersAreIgnored()
{
    QFETCH(const QByteArray, variable);
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    qputenv(variable.constData(), before);
    correctUserFolders();
    QCOMPARE(qgetenv(variable.constData()), after);
    QCOMPARE(qEnvironmentVariableIsSet(variable.constData()), !after.isEmpty());
}

void ProcessSetupTest::withoutHomeThePasswordDatabaseIsAsked_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const QByteArray fromDatabase = ::getpwuid(::getuid())->pw_dir;
    QTest::newRow("absent") << QByteArray() << fromDatabase;
    QTest::newRow("relative") << QByteArray("home/me") << fromDatabase;
    QTest::newRow("absolute") << QByteArray("/home/somebody") << QByteArray("/home/somebody");
}

void ProcessSetupTest::withoutHomeThePasswordDatabaseIsAsked()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    if (before.isEmpty()) {
        qunsetenv("HOME");
    } else {
        qputenv("HOME", before);
    }
    correctUserFolders();
    QCOMPARE(qgetenv("HOME"), after);
}

QTEST_GUILESS_MAIN(ProcessSetupTest)
#include "ProcessSetupTest.moc"
