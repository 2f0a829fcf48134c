#include "desktop/ClipboardManager.h"
#include "desktop/TintwickProcess.h"
#include "support/KeyCombination.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QTest>

#include <linux/input-event-codes.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <memory>

using namespace tintwick;

namespace {

using namespace Qt::StringLiterals;

// From the top left corner of the panel.
constexpr QPoint noticeBar(25, 80);
constexpr QPoint noticeButton(320, 80);
constexpr QRgb accent = qRgb(97, 102, 224);

constexpr QPoint middle(640, 400);
constexpr KeyCombination altShiftC{KEY_C, XCB_MOD_MASK_1 | XCB_MOD_MASK_SHIFT};

const QByteArray goodFile =
    R"({"history":[{"id":"11111111-2222-4333-8444-555555555555","red":1,"green":0,"blue":1,"alpha":1,)"
    R"("capturedAt":"2025-01-02T03:04:05Z","customName":"Stored"}],)"
    R"("collections":[],"defaultFormat":"HEX"})";

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

/// The program on a disk that is slow or faulty.
class FaultyDisk final
{
public:
    explicit FaultyDisk(const QByteArray& faults)
    {
        setFaults(faults);
        m_environment.insert(u"LD_PRELOAD"_s, QStringLiteral(DISK_FAULTS));
        m_environment.insert(u"TINTWICK_TEST_DISK_FAULTS"_s, faultsFile());
    }

    /// Makes programs in the home folder be found first.
    void searchHome()
    {
        m_environment.insert(u"PATH"_s, desktop.homeFolder() + u':' + qEnvironmentVariable("PATH"));
    }

    void start() { program = std::make_unique<TintwickProcess>(desktop, m_environment); }
    void setFaults(const QByteArray& faults) const { write(faultsFile(), faults); }

    /// Picks, and returns when the input is free again; false when that takes more than a second after the click.
    [[nodiscard]] bool pick()
    {
        constexpr std::chrono::seconds soon(1);
        if (!program->startPicking()) {
            return false;
        }
        desktop.movePointer(middle);
        desktop.click();
        return waitUntil([&] { return desktop.connection().inputIsFree() && !program->loupe(); }, soon);
    }

    [[nodiscard]] qsizetype storedColors() const { return program->history().size(); }
    [[nodiscard]] bool waitForStoredColors(qsizetype count) const
    {
        return waitUntil([&] { return storedColors() == count; });
    }

    [[nodiscard]] bool togglePanel()
    {
        const bool isOpen = !program->panel().isEmpty();
        desktop.clickAt(program->trayIcon().center());
        return isOpen ? program->waitForPanelToHide() : program->waitForPanel();
    }
    [[nodiscard]] bool showsNotice()
    {
        const QRect panel = program->panel();
        return !panel.isEmpty() && desktop.pixel(panel.topLeft() + noticeBar) == accent;
    }

    PrivateDesktop desktop{{}};
    std::unique_ptr<TintwickProcess> program;

private:
    [[nodiscard]] QString faultsFile() const { return desktop.homeFolder() + u"/faults"_s; }

    QProcessEnvironment m_environment;
};

} // namespace

/// What a slow, full or broken disk does to the user.
class DiskTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSlowDiskHoldsNeitherPointerNorClipboard();
    void aFullDiskIsToldInThePanelUntilASaveSucceeds();
    void aReadErrorAtTheStartCostsNothing();
    void anUnreadableFileIsKeptAndItsFolderShown();
    void aSignalEndsTheProgramAsQuitDoes_data();
    void aSignalEndsTheProgramAsQuitDoes();
    void theEndOfTheDisplayLosesNothing();
    void aClosedStandardOutputIsNoReasonToEnd_data();
    void aClosedStandardOutputIsNoReasonToEnd();
};

void DiskTest::aSlowDiskHoldsNeitherPointerNorClipboard()
{
    FaultyDisk disk("sync-delay 3000");
    disk.start();
    QVERIFY(disk.pick());
    QVERIFY(disk.desktop.clipboard().startsWith('#'));
    QCOMPARE(disk.storedColors(), 0);
    // The program is at work at once; the writer has the newest state when it comes to it.
    QVERIFY(disk.pick());
    QVERIFY(disk.pick());
    QCOMPARE(disk.storedColors(), 0);
    QVERIFY(disk.togglePanel());
    QVERIFY(disk.waitForStoredColors(3));
}

void DiskTest::aFullDiskIsToldInThePanelUntilASaveSucceeds()
{
    FaultyDisk disk("write-error " + QByteArray::number(ENOSPC));
    disk.start();
    QVERIFY(disk.pick());
    QVERIFY(disk.togglePanel());
    QVERIFY(waitUntil([&] { return disk.showsNotice(); }));
    QVERIFY(disk.togglePanel());
    QVERIFY(disk.togglePanel());
    QVERIFY(waitUntil([&] { return disk.showsNotice(); }));
    QVERIFY(disk.togglePanel());
    QCOMPARE(disk.storedColors(), 0);

    disk.setFaults({});
    QVERIFY(disk.pick());
    QVERIFY(disk.waitForStoredColors(2));
    QVERIFY(disk.togglePanel());
    static_cast<void>(disk.desktop.settledScreenshot());
    QVERIFY(!disk.showsNotice());
}

void DiskTest::aReadErrorAtTheStartCostsNothing()
{
    FaultyDisk disk("read-error " + QByteArray::number(EIO));
    keepData(disk.desktop, goodFile);
    disk.start();
    QVERIFY(disk.pick());
    QVERIFY(disk.togglePanel());
    QVERIFY(waitUntil([&] { return disk.showsNotice(); }));
    QVERIFY(disk.togglePanel());
    QCOMPARE(contentOf(disk.program->dataFile()), goodFile);

    disk.setFaults({});
    QVERIFY(disk.pick());
    QVERIFY(disk.waitForStoredColors(3));
    const QJsonArray history = disk.program->history();
    QCOMPARE(history.last().toObject().value("customName"_L1).toString(), u"Stored"_s);
    QCOMPARE(QDir(disk.program->dataFolder()).entryList(QDir::Files), QStringList{u"data.json"_s});
}

void DiskTest::anUnreadableFileIsKeptAndItsFolderShown()
{
    const QByteArray odd = goodFile + "x";
    FaultyDisk disk({});
    // Takes the place of the file manager.
    const QString opener = disk.desktop.homeFolder() + u"/xdg-open"_s;
    write(opener, "#!/bin/sh\necho \"$1\" > \"$HOME/opened\"\n");
    QVERIFY(QFile::setPermissions(opener, QFile::ReadOwner | QFile::ExeOwner));
    disk.searchHome();
    keepData(disk.desktop, odd);
    disk.start();
    QVERIFY(disk.program->waitForTrayIcon());
    QVERIFY(disk.togglePanel());
    QVERIFY(waitUntil([&] { return disk.showsNotice(); }));
    disk.desktop.clickAt(disk.program->panel().topLeft() + noticeButton);
    const QString opened = disk.desktop.homeFolder() + u"/opened"_s;
    QVERIFY(waitUntil([&] { return contentOf(opened).endsWith('\n'); }));
    QCOMPARE(contentOf(opened), "file://" + disk.program->dataFolder().toUtf8() + '\n');
    if (!disk.program->panel().isEmpty()) {
        QVERIFY(disk.togglePanel());
    }
    QCOMPARE(contentOf(disk.program->dataFile()), odd);

    QVERIFY(disk.pick());
    QVERIFY(disk.waitForStoredColors(1));
    const QDir folder(disk.program->dataFolder());
    const QStringList aside = folder.entryList({u"data.unreadable-*.json"_s});
    QCOMPARE(aside.size(), 1);
    QCOMPARE(contentOf(folder.filePath(aside.first())), odd);
    // Told once.
    QVERIFY(disk.togglePanel());
    static_cast<void>(disk.desktop.settledScreenshot());
    QVERIFY(!disk.showsNotice());
}

void DiskTest::aSignalEndsTheProgramAsQuitDoes_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void DiskTest::aSignalEndsTheProgramAsQuitDoes()
{
    QFETCH(const int, number);
    FaultyDisk disk("sync-delay 1000");
    disk.start();
    QVERIFY(disk.pick());
    ClipboardManager manager(disk.desktop);
    QVERIFY(::kill(static_cast<pid_t>(disk.program->process().processId()), number) == 0);
    QVERIFY(waitUntil([&] { return manager.isAskedToSave(); }));
    QCOMPARE(disk.program->process().waitForEnd(), std::optional(0));
    QCOMPARE(disk.storedColors(), 1);
    QCOMPARE(disk.program->process().standardError(), QByteArray());
}

void DiskTest::theEndOfTheDisplayLosesNothing()
{
    FaultyDisk disk("sync-delay 1000");
    disk.start();
    QVERIFY(disk.pick());
    QCOMPARE(disk.storedColors(), 0);
    disk.desktop.endServer();
    QVERIFY(disk.program->process().waitForEnd().has_value());
    QCOMPARE(disk.storedColors(), 1);
}

void DiskTest::aClosedStandardOutputIsNoReasonToEnd_data()
{
    QTest::addColumn<QString>("redirection");
    QTest::newRow("its reader is gone") << u"> >(true)"_s;
    QTest::newRow("it is closed") << u">&-"_s;
    QTest::newRow("input and outputs are closed") << u"<&- >&- 2>&-"_s;
}

void DiskTest::aClosedStandardOutputIsNoReasonToEnd()
{
    QFETCH(const QString, redirection);
    PrivateDesktop desktop({});
    // The program reports on standard output that it cannot use its shortcut.
    DesktopConnection other(desktop.display());
    QVERIFY(altShiftC.take(other));
    TintwickProcess program(desktop, {}, redirection);
    QVERIFY(program.waitForTrayIcon());
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    desktop.click();
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(waitUntil([&] { return !program.data().isEmpty(); }));
    QVERIFY(program.process().isRunning());
}

QTEST_GUILESS_MAIN(DiskTest)
#include "DiskTest.moc"
