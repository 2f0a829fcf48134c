#include "AtomicWrite.h"

#include "support/ForkedChild.h"
#include "support/QuickTemporaryDir.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <csignal>
#include <functional>

#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr uid_t unprivilegedUser = 65534;
const QByteArray oldText = "old";
const QByteArray newText(100'000, 'n');
const QByteArray cannotMount = "no mounts of our own here";

void put(const QString& path, const QByteArray& text, mode_t mode = 0644)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.close();
    QVERIFY(::chmod(QFile::encodeName(path).constData(), mode) == 0);
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

mode_t modeOf(const QString& path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777U : 0;
}

QStringList filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

/// Describes the result of a write and the files in the folder in one line.
QByteArray outcome(bool isWritten, const QString& folder)
{
    QByteArray text = isWritten ? "written:" : "refused:";
    for (const QString& name : filesIn(folder)) {
        text += ' ' + name.toUtf8() + '=' + QByteArray::number(contentOf(folder + u'/' + name).size());
    }
    return text;
}

/// Moves the calling process into a mount namespace of its own and mounts a small file system on the folder.
bool mountSmallDisk(const QString& folder)
{
    const int flags = ::geteuid() == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER;
    return ::unshare(flags) == 0 && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("none", QFile::encodeName(folder).constData(), "tmpfs", 0, "size=64k") == 0;
}

} // namespace

class AtomicWriteTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Another user must be able to reach the folder, which the home of root does not allow.
    void init() { m_folder = test::quickTemporaryDir(); }

    void aNewFileGetsTheUsualMode_data();
    void aNewFileGetsTheUsualMode();
    void aReplacedFileKeepsItsMode_data();
    void aReplacedFileKeepsItsMode();
    void anOpenOldFileStaysReadable();
    void aSymbolicLinkIsKept();
    void aDanglingLinkGetsItsTarget();
    void anythingButAFileIsRefused();
    void aMissingFolderIsRefused();
    void theSizeLimitKeepsTheOldFile();
    void aFullDiskKeepsTheOldFile_data();
    void aFullDiskKeepsTheOldFile();
    void aReadOnlyFolderKeepsTheOldFile();
    void aReadOnlyFileIsNotReplaced();

private:
    [[nodiscard]] QString target() const { return m_folder->filePath(u"palette.css"_s); }
    [[nodiscard]] static QByteArray asAnotherUser(const QString& folder,
                                                  const std::function<QByteArray()>& work);

    std::unique_ptr<QTemporaryDir> m_folder;
};

void AtomicWriteTest::aNewFileGetsTheUsualMode_data()
{
    QTest::addColumn<mode_t>("mask");
    QTest::addColumn<mode_t>("mode");
    QTest::newRow("022") << mode_t(022) << mode_t(0644);
    QTest::newRow("077") << mode_t(077) << mode_t(0600);
    QTest::newRow("002") << mode_t(002) << mode_t(0664);
}

void AtomicWriteTest::aNewFileGetsTheUsualMode()
{
    QFETCH(const mode_t, mask);
    QFETCH(const mode_t, mode);
    const mode_t before = ::umask(mask);
    const bool isWritten = writeAtomically(target(), newText);
    ::umask(before);
    QVERIFY(isWritten);
    QCOMPARE(modeOf(target()), mode);
    QCOMPARE(contentOf(target()), newText);
    QCOMPARE(filesIn(m_folder->path()), QStringList{u"palette.css"_s});
}

void AtomicWriteTest::aReplacedFileKeepsItsMode_data()
{
    QTest::addColumn<mode_t>("mode");
    QTest::newRow("0600") << mode_t(0600);
    QTest::newRow("0644") << mode_t(0644);
    QTest::newRow("0664") << mode_t(0664);
    QTest::newRow("0755") << mode_t(0755);
}

void AtomicWriteTest::aReplacedFileKeepsItsMode()
{
    QFETCH(const mode_t, mode);
    put(target(), oldText, mode);
    QVERIFY(writeAtomically(target(), newText));
    QCOMPARE(modeOf(target()), mode);
    QCOMPARE(contentOf(target()), newText);
    QCOMPARE(filesIn(m_folder->path()), QStringList{u"palette.css"_s});
}

void AtomicWriteTest::anOpenOldFileStaysReadable()
{
    put(target(), oldText);
    QFile reader(target());
    QVERIFY(reader.open(QIODevice::ReadOnly));
    QVERIFY(writeAtomically(target(), newText));
    QCOMPARE(reader.readAll(), oldText);
}

void AtomicWriteTest::aSymbolicLinkIsKept()
{
    const QString elsewhere = m_folder->filePath(u"elsewhere"_s);
    QVERIFY(QDir().mkpath(elsewhere));
    put(elsewhere + u"/real.css"_s, oldText, 0640);
    QVERIFY(QFile::link(u"elsewhere/real.css"_s, m_folder->filePath(u"first"_s)));
    QVERIFY(QFile::link(u"first"_s, target()));

    QVERIFY(writeAtomically(target(), newText));
    QCOMPARE(QFile::symLinkTarget(target()), m_folder->filePath(u"first"_s));
    QVERIFY(QFileInfo(m_folder->filePath(u"first"_s)).isSymLink());
    QCOMPARE(contentOf(elsewhere + u"/real.css"_s), newText);
    QCOMPARE(modeOf(elsewhere + u"/real.css"_s), mode_t(0640));
    QCOMPARE(filesIn(elsewhere), QStringList{u"real.css"_s});
}

void AtomicWriteTest::aDanglingLinkGetsItsTarget()
{
    QVERIFY(QFile::link(u"later.css"_s, target()));
    QVERIFY(writeAtomically(target(), newText));
    QVERIFY(QFileInfo(target()).isSymLink());
    QCOMPARE(contentOf(m_folder->filePath(u"later.css"_s)), newText);
}

void AtomicWriteTest::anythingButAFileIsRefused()
{
    QVERIFY(QDir().mkpath(target()));
    QString whyNot;
    QVERIFY(!writeAtomically(target(), newText, &whyNot));
    QCOMPARE(whyNot, u"This is not a file"_s);
    QVERIFY(QFileInfo(target()).isDir());

    const QString pipe = m_folder->filePath(u"pipe"_s);
    QVERIFY(::mkfifo(QFile::encodeName(pipe).constData(), 0600) == 0);
    QVERIFY(!writeAtomically(pipe, newText));
    struct stat status = {};
    QVERIFY(::stat(QFile::encodeName(pipe).constData(), &status) == 0 && S_ISFIFO(status.st_mode));
    QVERIFY(!writeAtomically(QString(), newText));
}

void AtomicWriteTest::aMissingFolderIsRefused()
{
    QString whyNot;
    QVERIFY(!writeAtomically(m_folder->filePath(u"not/there.css"_s), newText, &whyNot));
    QVERIFY(!whyNot.isEmpty());
    QVERIFY(filesIn(m_folder->path()).isEmpty());
}

void AtomicWriteTest::theSizeLimitKeepsTheOldFile()
{
    put(target(), oldText);
    const auto end = test::runInChild([&]() -> QByteArray {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit half{static_cast<rlim_t>(newText.size() / 2), static_cast<rlim_t>(newText.size() / 2)};
        if (::setrlimit(RLIMIT_FSIZE, &half) != 0) {
            return "no limit";
        }
        return outcome(writeAtomically(target(), newText), m_folder->path());
    });
    QCOMPARE(end.report, QByteArray("refused: palette.css=3"));
    QCOMPARE(contentOf(target()), oldText);
}

void AtomicWriteTest::aFullDiskKeepsTheOldFile_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<QByteArray>("outcome");
    QTest::newRow("an old file") << true << QByteArray("refused: palette.css=3");
    QTest::newRow("no old file") << false << QByteArray("refused:");
}

void AtomicWriteTest::aFullDiskKeepsTheOldFile()
{
    QFETCH(const bool, isThere);
    const auto end = test::runInChild([&]() -> QByteArray {
        if (!mountSmallDisk(m_folder->path())) {
            return cannotMount;
        }
        if (isThere) {
            put(target(), oldText);
        }
        return outcome(writeAtomically(target(), newText), m_folder->path());
    });
    if (end.report == cannotMount) {
        QSKIP(cannotMount.constData());
    }
    QTEST(end.report, "outcome");
}

/// Runs the work as an unprivileged user who owns the folder and its files, because permissions do not restrict root.
QByteArray AtomicWriteTest::asAnotherUser(const QString& folder, const std::function<QByteArray()>& work)
{
    return test::runInChild([&]() -> QByteArray {
               if (::geteuid() == 0) {
                   QStringList paths{folder};
                   for (const QString& name : filesIn(folder)) {
                       paths.append(folder + u'/' + name);
                   }
                   for (const QString& path : paths) {
                       if (::chown(QFile::encodeName(path).constData(), unprivilegedUser, unprivilegedUser) !=
                           0) {
                           return "no other owner";
                       }
                   }
                   if (::setgid(unprivilegedUser) != 0 || ::setuid(unprivilegedUser) != 0) {
                       return "no other user";
                   }
                   // The leak sanitizer must be able to trace this process.
                   ::prctl(PR_SET_DUMPABLE, 1);
               }
               return work();
           })
        .report;
}

void AtomicWriteTest::aReadOnlyFolderKeepsTheOldFile()
{
    put(target(), oldText);
    const QByteArray folder = QFile::encodeName(m_folder->path());
    const QByteArray report = asAnotherUser(m_folder->path(), [&] {
        ::chmod(folder.constData(), 0500);
        return outcome(writeAtomically(target(), newText), m_folder->path());
    });
    ::chmod(folder.constData(), 0700);
    QCOMPARE(report, QByteArray("refused: palette.css=3"));
    QCOMPARE(contentOf(target()), oldText);
}

void AtomicWriteTest::aReadOnlyFileIsNotReplaced()
{
    put(target(), oldText, 0444);
    const QByteArray report = asAnotherUser(
        m_folder->path(), [&] { return outcome(writeAtomically(target(), newText), m_folder->path()); });
    QCOMPARE(report, QByteArray("refused: palette.css=3"));
    QCOMPARE(contentOf(target()), oldText);
}

} // namespace tintwick

QTEST_GUILESS_MAIN(tintwick::AtomicWriteTest)
#include "AtomicWriteTest.moc"
