#include "DataFile.h"

#include "PayloadCoding.h"
#include "UtcDateTime.h"

#include "support/ForkedChild.h"
#include "support/QuickTemporaryDir.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <functional>
#include <memory>
#include <random>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tintwick {

namespace {

constexpr uid_t unprivilegedUser = 65534;

/// A payload that differs for each number. Large and small payloads alternate.
Payload stateNumber(int number)
{
    const QDateTime date = utcDateTime(QDate(2025, 3, 14), QTime(9, 26, 53));
    Payload payload;
    const int colorCount = number % 3 == 0 ? 100 : number % 7;
    for (int i = 0; i < colorCount; ++i) {
        const QUuid id(static_cast<uint>(number), static_cast<ushort>(i), 0x4000, 0x80, 0, 0, 0, 0, 0, 0, 1);
        payload.history.append(
            {id, i / 100.0, 1.0 / (number + 1), 1.0 / 3, 1, date, QStringLiteral("Colour")});
    }
    payload.collections.append(
        {QUuid(), QString::number(number), {}, date, QStringLiteral("paintpalette.fill")});
    return payload;
}

/// Returns 0 or an errno value, for the tests in which a save fails.
int save(const Payload& payload)
{
    return DataFile().save(payload);
}

std::optional<Payload> load()
{
    const DataReading reading = DataFile().read();
    return reading.outcome == DataReading::Outcome::Read ? std::optional(reading.payload) : std::nullopt;
}

/// The number of the payload in the data file; -1 when the file is not equal to one of them.
int savedNumber()
{
    const auto payload = load();
    if (!payload || payload->collections.size() != 1) {
        return -1;
    }
    const int number = payload->collections.first().name.toInt();
    return *payload == stateNumber(number) ? number : -1;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

mode_t modeOf(const QString& path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777U : 0;
}

/// Moves the calling process into a mount namespace of its own.
bool enterOwnMounts()
{
    const int flags = ::geteuid() == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER;
    return ::unshare(flags) == 0 && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// Sends SIGKILL to the calling process after a delay.
void beKilledAfter(std::chrono::nanoseconds delay)
{
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGKILL;
    timer_t timer{};
    itimerspec time{};
    time.it_value.tv_sec = delay.count() / 1'000'000'000;
    time.it_value.tv_nsec = delay.count() % 1'000'000'000;
    if (::timer_create(CLOCK_MONOTONIC, &event, &timer) != 0 ||
        ::timer_settime(timer, 0, &time, nullptr) != 0) {
        qFatal("No timer");
    }
}

const QByteArray cannotMount = "no mounts of our own here";

} // namespace

class DataFileTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theFirstSaveCreatesAPrivateFolderAndFile();
    void loadingCreatesTheFolder();
    void existingFoldersKeepTheirMode();
    void aSaveReplacesTheFileAndLeavesNoOtherFile();
    void aStaleTemporaryFileIsOverwritten();
    void aSymbolicLinkIsKept();
    void aPayloadThatCannotBeEncodedIsNotWritten();
    void readingTellsAMissingFileFromOneThatCannotBeRead_data();
    void readingTellsAMissingFileFromOneThatCannotBeRead();
    void aFileWithoutPermissionCannotBeRead();
    void aTooLargeFileIsUndecodable();
    void onlyARegularFileIsReplaced_data();
    void onlyARegularFileIsReplaced();
    void aLinkToAMissingFileStaysALink();
    void theNewestThreeUndecodableFilesAreKept();

    void aKilledProcessLeavesTheOldOrTheNewState();
    void theSizeLimitOfTheProcessKeepsTheOldFile_data();
    void theSizeLimitOfTheProcessKeepsTheOldFile();
    void aFullDiskKeepsTheOldFile();
    void aSmallerStateIsSavedOnAFullDisk();
    void aFullDiskLeavesNoPartialFile();
    void aReadOnlyFileSystemKeepsTheOldFile();
    void inAReadOnlyFolderTheFileIsWrittenInPlace_data();
    void inAReadOnlyFolderTheFileIsWrittenInPlace();
    void anObstructedTemporaryFileDoesNotPreventSaving();

private:
    [[nodiscard]] QString folder() const { return m_dataHome->filePath(QStringLiteral("Tintwick")); }
    [[nodiscard]] QString dataFile() const { return folder() + QStringLiteral("/data.json"); }
    [[nodiscard]] QString temporaryFile() const { return folder() + QStringLiteral("/data.tmp.json"); }

    std::unique_ptr<QTemporaryDir> m_dataHome;
};

void DataFileTest::init()
{
    // Another user must be able to reach the folder, which the home of root does not allow.
    m_dataHome = test::quickTemporaryDir();
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_dataHome->path()));
}

void DataFileTest::theFirstSaveCreatesAPrivateFolderAndFile()
{
    const QString dataHome = m_dataHome->filePath(QStringLiteral("not/yet"));
    qputenv("XDG_DATA_HOME", QFile::encodeName(dataHome));
    const mode_t mask = ::umask(0);
    save(stateNumber(1));
    ::umask(mask);
    QCOMPARE(DataFile().fileURL(), QUrl::fromLocalFile(dataHome + QStringLiteral("/Tintwick/data.json")));
    QCOMPARE(modeOf(m_dataHome->filePath(QStringLiteral("not"))), 0700U);
    QCOMPARE(modeOf(dataHome), 0700U);
    QCOMPARE(modeOf(dataHome + QStringLiteral("/Tintwick")), 0700U);
    QCOMPARE(modeOf(dataHome + QStringLiteral("/Tintwick/data.json")), 0600U);
    QCOMPARE(savedNumber(), 1);
}

void DataFileTest::loadingCreatesTheFolder()
{
    QVERIFY(!load().has_value());
    QVERIFY(QFileInfo(folder()).isDir());
    QVERIFY(QDir(folder()).isEmpty());
}

void DataFileTest::existingFoldersKeepTheirMode()
{
    QVERIFY(QDir().mkdir(folder()));
    QVERIFY(::chmod(QFile::encodeName(folder()).constData(), 0755) == 0);
    save(stateNumber(1));
    QCOMPARE(modeOf(folder()), 0755U);
}

void DataFileTest::aSaveReplacesTheFileAndLeavesNoOtherFile()
{
    save(stateNumber(3));
    QFile reader(dataFile());
    QVERIFY(reader.open(QIODevice::ReadOnly));
    save(stateNumber(4));
    // The save replaces the directory entry, so the open file still has the old content.
    QCOMPARE(decodePayload(reader.readAll()), stateNumber(3));
    QCOMPARE(contentOf(dataFile()), *encodePayload(stateNumber(4)));
    QCOMPARE(QDir(folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("data.json")});
}

void DataFileTest::aStaleTemporaryFileIsOverwritten()
{
    save(stateNumber(1));
    QFile leftOver(temporaryFile());
    QVERIFY(leftOver.open(QIODevice::WriteOnly));
    leftOver.write(QByteArray(100'000, 'x'));
    leftOver.close();
    QVERIFY(leftOver.setPermissions(QFile::ReadOwner | QFile::ReadOther));
    save(stateNumber(2));
    QCOMPARE(savedNumber(), 2);
    QCOMPARE(modeOf(dataFile()), 0600U);
    QVERIFY(!QFile::exists(temporaryFile()));
}

void DataFileTest::aSymbolicLinkIsKept()
{
    const QString elsewhere = m_dataHome->filePath(QStringLiteral("dotfiles"));
    QVERIFY(QDir().mkpath(elsewhere));
    QVERIFY(QDir().mkpath(folder()));
    const QString linked = elsewhere + QStringLiteral("/colours.json");
    QVERIFY(QFile(linked).open(QIODevice::WriteOnly));
    QVERIFY(QFile::link(linked, dataFile()));

    save(stateNumber(3));
    QVERIFY(QFileInfo(dataFile()).isSymLink());
    QCOMPARE(contentOf(linked), *encodePayload(stateNumber(3)));
    QCOMPARE(savedNumber(), 3);
    QCOMPARE(QDir(elsewhere).entryList(QDir::Files), QStringList{QStringLiteral("colours.json")});
}

void DataFileTest::aPayloadThatCannotBeEncodedIsNotWritten()
{
    save(stateNumber(3));
    Payload payload = stateNumber(6);
    payload.history.first().red = std::numeric_limits<double>::infinity();
    save(payload);
    QCOMPARE(savedNumber(), 3);
}

void DataFileTest::readingTellsAMissingFileFromOneThatCannotBeRead_data()
{
    using Outcome = DataReading::Outcome;
    using Arrange = std::function<bool(const QByteArray& path)>;
    QTest::addColumn<Arrange>("arrange");
    QTest::addColumn<Outcome>("outcome");
    QTest::addColumn<int>("error");
    const auto row = [](const char* name, const Arrange& arrange, Outcome outcome, int error = 0) {
        QTest::newRow(name) << arrange << outcome << error;
    };
    const auto containing = [](const QByteArray& bytes) -> Arrange {
        return [bytes](const QByteArray& path) {
            QFile file(QFile::decodeName(path));
            return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
        };
    };
    const auto linkTo = [](const char* target) -> Arrange {
        return [target](const QByteArray& path) { return ::symlink(target, path.constData()) == 0; };
    };
    row(
        "nothing", [](const QByteArray&) { return true; }, Outcome::Missing);
    row("a link to nothing", linkTo("nowhere"), Outcome::Missing);
    row("a payload", containing(*encodePayload(stateNumber(3))), Outcome::Read);
    row("no byte", containing({}), Outcome::Undecodable);
    row("one odd byte", containing(encodePayload(stateNumber(3))->replace('[', '\x80')),
        Outcome::Undecodable);
    row("20 MB", containing(QByteArray(20'000'000, ' ')), Outcome::Undecodable);
    row(
        "a folder", [](const QByteArray& path) { return ::mkdir(path.constData(), 0700) == 0; },
        Outcome::Failed, EISDIR);
    row(
        "a pipe", [](const QByteArray& path) { return ::mkfifo(path.constData(), 0600) == 0; },
        Outcome::Failed, EISDIR);
    row("a link to a device", linkTo("/dev/full"), Outcome::Failed, EISDIR);
    row("a link to itself", linkTo("data.json"), Outcome::Failed, ELOOP);
}

void DataFileTest::readingTellsAMissingFileFromOneThatCannotBeRead()
{
    QFETCH(const std::function<bool(const QByteArray&)>, arrange);
    QFETCH(const DataReading::Outcome, outcome);
    QFETCH(const int, error);
    QVERIFY(QDir().mkpath(folder()));
    QVERIFY(arrange(QFile::encodeName(dataFile())));
    const DataReading reading = DataFile().read();
    QCOMPARE(reading.outcome, outcome);
    QCOMPARE(reading.error, error);
    QCOMPARE(reading.payload, outcome == DataReading::Outcome::Read ? stateNumber(3) : Payload());
}

void DataFileTest::aFileWithoutPermissionCannotBeRead()
{
    QCOMPARE(save(stateNumber(3)), 0);
    QVERIFY(::chmod(QFile::encodeName(dataFile()).constData(), 0) == 0);
    QVERIFY(::chmod(QFile::encodeName(m_dataHome->path()).constData(), 0777) == 0);
    QVERIFY(::chmod(QFile::encodeName(folder()).constData(), 0777) == 0);
    const auto end = test::runInChild([]() -> QByteArray {
        // Permissions do not restrict root.
        if (::geteuid() == 0 && ::setuid(unprivilegedUser) != 0) {
            return "no other user";
        }
        const DataReading reading = DataFile().read();
        return reading.outcome == DataReading::Outcome::Failed ? std::strerror(reading.error) : "read";
    });
    QCOMPARE(end.report, QByteArray("Permission denied"));
}

void DataFileTest::aTooLargeFileIsUndecodable()
{
    const QByteArray text = *encodePayload(stateNumber(1));
    save(stateNumber(1));
    QFile file(dataFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text.leftJustified(largestPayload, ' '));
    file.flush();
    QCOMPARE(savedNumber(), 1);
    file.write(" ");
    file.close();
    QCOMPARE(DataFile().read().outcome, DataReading::Outcome::Undecodable);
}

void DataFileTest::onlyARegularFileIsReplaced_data()
{
    QTest::addColumn<bool>("isLinked");
    QTest::newRow("a pipe") << false;
    QTest::newRow("a link to a pipe") << true;
}

void DataFileTest::onlyARegularFileIsReplaced()
{
    QFETCH(const bool, isLinked);
    QVERIFY(QDir().mkpath(folder()));
    const QString pipe = isLinked ? folder() + QStringLiteral("/pipe") : dataFile();
    QVERIFY(::mkfifo(QFile::encodeName(pipe).constData(), 0600) == 0);
    QVERIFY(!isLinked || QFile::link(pipe, dataFile()));
    QCOMPARE(save(stateNumber(3)), EISDIR);
    struct stat status = {};
    QVERIFY(::lstat(QFile::encodeName(pipe).constData(), &status) == 0);
    QVERIFY(S_ISFIFO(status.st_mode));
    QCOMPARE(QFileInfo(dataFile()).isSymLink(), isLinked);
}

void DataFileTest::aLinkToAMissingFileStaysALink()
{
    const QString linked = m_dataHome->filePath(QStringLiteral("colours.json"));
    QVERIFY(QDir().mkpath(folder()));
    QVERIFY(QFile::link(linked, dataFile()));
    QCOMPARE(save(stateNumber(3)), 0);
    QVERIFY(QFileInfo(dataFile()).isSymLink());
    QCOMPARE(contentOf(linked), *encodePayload(stateNumber(3)));
}

void DataFileTest::theNewestThreeUndecodableFilesAreKept()
{
    QVERIFY(QDir().mkpath(folder()));
    for (const char* date : {"2025-03-14T09-26-53", "2024-12-31T23-59-59", "2025-03-14T09-26-54"}) {
        QFile old(folder() + QStringLiteral("/data.unreadable-%1.json").arg(QLatin1StringView(date)));
        QVERIFY(old.open(QIODevice::WriteOnly));
    }
    QFile file(dataFile());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("mine") == 4);
    file.close();
    const QDateTime before = QDateTime::currentDateTime();
    QCOMPARE(DataFile().moveAside(), 0);

    const QStringList names = QDir(folder()).entryList(QDir::Files, QDir::Name);
    QCOMPARE(names.size(), 3);
    QCOMPARE(names[0], QStringLiteral("data.unreadable-2025-03-14T09-26-53.json"));
    QCOMPARE(names[1], QStringLiteral("data.unreadable-2025-03-14T09-26-54.json"));
    const QDateTime date =
        QDateTime::fromString(names[2], QStringLiteral("'data.unreadable-'yyyy-MM-dd'T'HH-mm-ss'.json'"));
    QVERIFY2(date >= before.addSecs(-1) && date <= QDateTime::currentDateTime(), qPrintable(names[2]));
    QCOMPARE(contentOf(folder() + u'/' + names[2]), QByteArray("mine"));
}

void DataFileTest::aKilledProcessLeavesTheOldOrTheNewState()
{
    constexpr int kills = 600;
    save(stateNumber(0));

    // Spreads the kills over several saves, independent of the speed of the machine.
    QElapsedTimer elapsed;
    elapsed.start();
    for (int i = 0; i < 10; ++i) {
        save(stateNumber(0));
    }
    const std::chrono::nanoseconds saveTime(elapsed.nsecsElapsed() / 10);

    std::mt19937 random(20250314);
    std::uniform_real_distribution<double> saves(0.0, 3.0);
    int current = 0;
    int interrupted = 0;
    for (int kill = 0; kill < kills; ++kill) {
        const auto delay = std::chrono::duration_cast<std::chrono::nanoseconds>(saveTime * saves(random)) +
                           std::chrono::microseconds(1);
        std::array<int, 2> finished{};
        QVERIFY(::pipe(finished.data()) == 0);
        const auto end = test::runInChild([&]() -> QByteArray {
            beKilledAfter(delay);
            for (int number = current + 1;; ++number) {
                save(stateNumber(number));
                if (::write(finished[1], &number, sizeof number) != sizeof number) {
                    return {};
                }
            }
        });
        ::close(finished[1]);
        int lastFinished = current;
        while (::read(finished[0], &lastFinished, sizeof lastFinished) == sizeof lastFinished) {
        }
        ::close(finished[0]);
        QCOMPARE(end.signal, SIGKILL);

        const int found = savedNumber();
        QVERIFY2(found == lastFinished || found == lastFinished + 1,
                 qPrintable(QStringLiteral("found %1 after %2").arg(found).arg(lastFinished)));
        interrupted += QFile::exists(temporaryFile()) ? 1 : 0;
        current = found;
    }
    qInfo("%d of %d kills hit a save with its temporary file half written", interrupted, kills);
}

void DataFileTest::theSizeLimitOfTheProcessKeepsTheOldFile_data()
{
    QTest::addColumn<rlim_t>("limit");
    const auto size = static_cast<rlim_t>(encodePayload(stateNumber(6))->size());
    QTest::newRow("nothing") << rlim_t(0);
    QTest::newRow("a part") << rlim_t(size / 2);
    QTest::newRow("all but one byte") << size - 1;
}

void DataFileTest::theSizeLimitOfTheProcessKeepsTheOldFile()
{
    QFETCH(rlim_t, limit);
    save(stateNumber(3));
    const auto end = test::runInChild([&]() -> QByteArray {
        const rlimit sizes{limit, limit};
        if (::setrlimit(RLIMIT_FSIZE, &sizes) != 0) {
            return "no limit";
        }
        return std::strerror(save(stateNumber(6)));
    });
    QCOMPARE(end.signal, 0);
    QCOMPARE(end.report, QByteArray("File too large"));
    QCOMPARE(contentOf(dataFile()), *encodePayload(stateNumber(3)));
}

void DataFileTest::aFullDiskKeepsTheOldFile()
{
    QVERIFY(QDir().mkpath(folder()));
    const auto end = test::runInChild([&]() -> QByteArray {
        if (!enterOwnMounts() ||
            ::mount("none", QFile::encodeName(folder()).constData(), "tmpfs", 0, "size=64k,mode=0700") != 0) {
            return cannotMount;
        }
        save(stateNumber(4));
        QFile filler(folder() + QStringLiteral("/filler"));
        if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
            return "no filler";
        }
        while (filler.write(QByteArray(4096, 'x')) == 4096) {
        }
        return save(stateNumber(6)) == ENOSPC ? contentOf(dataFile()) : "another result";
    });
    if (end.report == cannotMount) {
        QSKIP(cannotMount.constData());
    }
    QCOMPARE(end.signal, 0);
    QCOMPARE(end.report, *encodePayload(stateNumber(4)));
}

void DataFileTest::aSmallerStateIsSavedOnAFullDisk()
{
    QVERIFY(QDir().mkpath(folder()));
    const auto end = test::runInChild([&]() -> QByteArray {
        if (!enterOwnMounts() ||
            ::mount("none", QFile::encodeName(folder()).constData(), "tmpfs", 0, "size=64k,mode=0700") != 0) {
            return cannotMount;
        }
        save(stateNumber(6));
        QFile filler(folder() + QStringLiteral("/filler"));
        if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
            return "no filler";
        }
        while (filler.write(QByteArray(4096, 'x')) == 4096) {
        }
        save(stateNumber(4));
        return contentOf(dataFile());
    });
    if (end.report == cannotMount) {
        QSKIP(cannotMount.constData());
    }
    QCOMPARE(end.signal, 0);
    QCOMPARE(end.report, *encodePayload(stateNumber(4)));
}

void DataFileTest::aFullDiskLeavesNoPartialFile()
{
    QVERIFY(QDir().mkpath(folder()));
    const auto end = test::runInChild([&]() -> QByteArray {
        if (!enterOwnMounts() ||
            ::mount("none", QFile::encodeName(folder()).constData(), "tmpfs", 0, "size=8k,mode=0700") != 0) {
            return cannotMount;
        }
        save(stateNumber(3));
        return QDir(folder()).entryList(QDir::Files | QDir::Hidden).join(u' ').toUtf8();
    });
    if (end.report == cannotMount) {
        QSKIP(cannotMount.constData());
    }
    QCOMPARE(end.signal, 0);
    QCOMPARE(end.report, QByteArray());
}

void DataFileTest::aReadOnlyFileSystemKeepsTheOldFile()
{
    save(stateNumber(3));
    const auto end = test::runInChild([&]() -> QByteArray {
        const QByteArray path = QFile::encodeName(folder());
        if (!enterOwnMounts() ||
            ::mount(path.constData(), path.constData(), nullptr, MS_BIND, nullptr) != 0 ||
            ::mount(nullptr, path.constData(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) != 0) {
            return cannotMount;
        }
        return save(stateNumber(6)) == EROFS ? contentOf(dataFile()) : "another result";
    });
    if (end.report == cannotMount) {
        QSKIP(cannotMount.constData());
    }
    QCOMPARE(end.signal, 0);
    QCOMPARE(end.report, *encodePayload(stateNumber(3)));
}

void DataFileTest::inAReadOnlyFolderTheFileIsWrittenInPlace_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::newRow("longer") << 4 << 6;
    QTest::newRow("shorter") << 6 << 4;
    QTest::newRow("equally long") << 4 << 11;
}

void DataFileTest::inAReadOnlyFolderTheFileIsWrittenInPlace()
{
    QFETCH(int, before);
    QFETCH(int, after);
    save(stateNumber(before));
    const QByteArray home = QFile::encodeName(m_dataHome->path());
    const QByteArray path = QFile::encodeName(folder());
    const auto end = test::runInChild([&]() -> QByteArray {
        // Permissions do not restrict root.
        if (::geteuid() == 0) {
            const QByteArray file = QFile::encodeName(dataFile());
            for (const QByteArray& owned : {home, path, file}) {
                if (::chown(owned.constData(), unprivilegedUser, unprivilegedUser) != 0) {
                    return "no other owner";
                }
            }
            if (::setgid(unprivilegedUser) != 0 || ::setuid(unprivilegedUser) != 0) {
                return "no other user";
            }
            ::prctl(PR_SET_DUMPABLE, 1);
        }
        if (::chmod(path.constData(), 0500) != 0) {
            return "no protection";
        }
        if (::open((path + "/new").constData(), O_CREAT | O_WRONLY, 0600) >= 0) {
            return "the folder takes files";
        }
        save(stateNumber(after));
        return contentOf(dataFile());
    });
    ::chmod(path.constData(), 0700);
    QCOMPARE(end.signal, 0);
    QCOMPARE(end.report, *encodePayload(stateNumber(after)));
}

void DataFileTest::anObstructedTemporaryFileDoesNotPreventSaving()
{
    QVERIFY(QDir().mkpath(temporaryFile()));
    save(stateNumber(1));
    QCOMPARE(savedNumber(), 1);
    QCOMPARE(modeOf(dataFile()), 0600U);
    for (const int number : {6, 4, 9}) {
        save(stateNumber(number));
        QCOMPARE(contentOf(dataFile()), *encodePayload(stateNumber(number)));
    }
}

} // namespace tintwick

QTEST_GUILESS_MAIN(tintwick::DataFileTest)
#include "DataFileTest.moc"
