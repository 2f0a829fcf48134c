#include "desktop/TintwickProcess.h"
#include "support/WaitUntil.h"
#include "support/wayland/SwayDesktop.h"
#include "wayland/WaylandTintwick.h"

#include <linux/input-event-codes.h>

#include <QDir>
#include <QFile>
#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

using Pixel = WaylandDesktop::Pixel;

/// What picks, killed programs, a lost compositor and lost outputs leave behind.
class WaylandLeavingsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fiftyPicksLeaveNothingBehind();
    void picksOfLargeOutputsReturnTheirMemory();
    void aKilledPickLeavesAUsableSession();
    void theEndOfTheCompositorEndsTheProgram_data();
    void theEndOfTheCompositorEndsTheProgram();
    void aNewOutputIsNotCovered();
    void aLostOutputEndsTheLoupeThere_data();
    void aLostOutputEndsTheLoupeThere();
};

namespace {

const Pixel middle{0, {640, 400}};

/// What a process holds.
struct Holdings
{
    explicit Holdings(qint64 process)
        : descriptors(entries(process, "fd"))
        , threads(entries(process, "task"))
    {
        QFile maps(QStringLiteral("/proc/%1/maps").arg(process));
        if (maps.open(QIODevice::ReadOnly)) {
            const QByteArray text = maps.readAll();
            sharedBuffers = text.count("memfd:") + text.count("/shm/");
        }
        QFile children(QStringLiteral("/proc/%1/task/%1/children").arg(process));
        if (children.open(QIODevice::ReadOnly)) {
            processes = children.readAll().count(' ');
        }
    }

    static qsizetype entries(qint64 process, const char* folder)
    {
        return QDir(QStringLiteral("/proc/%1/%2").arg(process).arg(QLatin1StringView(folder)))
            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
            .size();
    }

    qsizetype descriptors;
    qsizetype threads;
    qsizetype sharedBuffers = 0;
    qsizetype processes = 0;

    /// Threads of pools and their descriptors also end by themselves.
    [[nodiscard]] bool areWithin(const Holdings& other) const
    {
        return descriptors <= other.descriptors && threads <= other.threads &&
               sharedBuffers <= other.sharedBuffers && processes <= other.processes;
    }
};

QByteArray description(const Holdings& holdings)
{
    return QStringLiteral("%1 descriptors, %2 threads, %3 shared buffers, %4 processes")
        .arg(holdings.descriptors)
        .arg(holdings.threads)
        .arg(holdings.sharedBuffers)
        .arg(holdings.processes)
        .toUtf8();
}

/// In MB.
double residentMemory(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/statm").arg(process));
    constexpr double pagesPerMegabyte = 256;
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toDouble() / pagesPerMegabyte
                                          : 0;
}

/// Picks through the running program, one session after another.
bool pick(WaylandDesktop& desktop, WaylandTintwick& program, int count)
{
    for (int i = 0; i < count; ++i) {
        const Pixel pixel{0, middle.point + QPoint(i * 37 % 500, i * 23 % 300)};
        desktop.movePointer(pixel);
        program.askForPick();
        if (!program.waitForLoupe(pixel)) {
            return false;
        }
        desktop.click();
        if (!waitUntil([&] { return !program.showsLoupe(pixel); })) {
            return false;
        }
    }
    return program.waitForPickToEnd();
}

} // namespace

void WaylandLeavingsTest::fiftyPicksLeaveNothingBehind()
{
    SwayDesktop desktop({.sessionBus = true});
    const auto picture = desktop.showPicture();
    WaylandTintwick program(desktop);
    QVERIFY(program.waitForStart());
    // The first picks allocate what stays, such as the fonts.
    QVERIFY(pick(desktop, program, 25));
    const qint64 process = program.process().processId();
    const Holdings before(process);
    const Holdings beforeOfCompositor(desktop.compositorId());
    const double memory = residentMemory(process);
    QVERIFY(pick(desktop, program, 50));
    QVERIFY2(waitUntil([&] { return Holdings(process).areWithin(before); }, std::chrono::seconds(5)),
             description(before) + " became " + description(Holdings(process)));
    QVERIFY2(waitUntil([&] { return Holdings(desktop.compositorId()).areWithin(beforeOfCompositor); },
                       std::chrono::seconds(5)),
             description(beforeOfCompositor) + " became " + description(Holdings(desktop.compositorId())));
    const double growth = residentMemory(process) - memory;
    QVERIFY2(growth < 1, QByteArray::number(growth));
}

void WaylandLeavingsTest::picksOfLargeOutputsReturnTheirMemory()
{
    SwayDesktop desktop({.outputs = {{.size = {3840, 2160}}}, .sessionBus = true});
    const auto picture = desktop.showPicture();
    WaylandTintwick program(desktop);
    QVERIFY(program.waitForStart());
    QVERIFY(pick(desktop, program, 20));
    const double before = residentMemory(program.process().processId());
    QVERIFY(pick(desktop, program, 20));
    const double growth = residentMemory(program.process().processId()) - before;
    QVERIFY2(growth < 2, QByteArray::number(growth));
}

void WaylandLeavingsTest::aKilledPickLeavesAUsableSession()
{
    SwayDesktop desktop({.sessionBus = true});
    const auto picture = desktop.showPicture();
    desktop.movePointer(middle);
    {
        WaylandTintwick program(desktop);
        QVERIFY(program.waitForStart());
        WaylandTintwick command(desktop, {u"pick"_s});
        QVERIFY(command.waitForLoupe(middle));
        program.process().kill();
        QVERIFY(program.waitForPickToEnd());
        QVERIFY(command.process().waitForEnd().has_value());
    }
    WaylandTintwick program(desktop);
    QVERIFY(program.waitForStart());
    QVERIFY(pick(desktop, program, 1));
    QCOMPARE(desktop.clipboard(), hexText(desktop.patternPixel(middle)));
}

void WaylandLeavingsTest::theEndOfTheCompositorEndsTheProgram_data()
{
    QTest::addColumn<bool>("duringAPick");
    QTest::newRow("at rest") << false;
    QTest::newRow("during a pick") << true;
}

void WaylandLeavingsTest::theEndOfTheCompositorEndsTheProgram()
{
    QFETCH(const bool, duringAPick);
    SwayDesktop desktop({.sessionBus = true});
    const auto picture = desktop.showPicture();
    WaylandTintwick program(desktop);
    QVERIFY(program.waitForStart());
    desktop.movePointer(middle);
    WaylandTintwick command(desktop, {u"pick"_s, u"--count"_s, u"2"_s});
    QVERIFY(command.waitForLoupe(middle));
    desktop.click();
    const Pixel second{0, {200, 200}};
    desktop.movePointer(second);
    QVERIFY(command.waitForLoupe(second));
    if (!duringAPick) {
        desktop.typeKey(KEY_ESC);
        QVERIFY(program.waitForPickToEnd());
    }
    desktop.endCompositor();
    const auto status = program.process().waitForEnd();
    QVERIFY(status.has_value());
    QVERIFY2(*status > 0, QByteArray::number(*status));
    QCOMPARE(program.process().standardError(),
             QByteArray("tintwick: the connection to the Wayland compositor is lost\n"));
    QCOMPARE(program.history().size(), 1);
    QVERIFY(command.process().waitForEnd().has_value());
}

void WaylandLeavingsTest::aNewOutputIsNotCovered()
{
    SwayDesktop desktop({});
    const auto picture = desktop.showPicture();
    desktop.movePointer(middle);
    WaylandTintwick program(desktop, {u"pick"_s});
    QVERIFY(program.waitForLoupe(middle));
    desktop.command(u"create_output"_s);
    QVERIFY(waitUntil([&] { return desktop.outputCount() == 2 && desktop.showsPictureOnly(1); }));
    const Pixel beside{0, middle.point + QPoint(50, 50)};
    desktop.movePointer(beside);
    QVERIFY(program.waitForLoupe(beside));
    desktop.click();
    QCOMPARE(program.process().waitForEnd(), 0);
    QCOMPARE(program.process().standardOutput(), hexText(desktop.patternPixel(beside)) + '\n');
}

void WaylandLeavingsTest::aLostOutputEndsTheLoupeThere_data()
{
    QTest::addColumn<bool>("hasTheLoupe");
    QTest::newRow("the output with the loupe") << true;
    QTest::newRow("the other output") << false;
}

void WaylandLeavingsTest::aLostOutputEndsTheLoupeThere()
{
    QFETCH(const bool, hasTheLoupe);
    SwayDesktop outer({});
    SwayDesktop desktop({.outputs = {{}, {.scale = 2, .position = {1280, 0}}}}, &outer);
    const auto picture = desktop.showPicture();
    const Pixel start{hasTheLoupe ? 1U : 0U, {500, 300}};
    desktop.movePointer(start);
    WaylandTintwick program(desktop, {u"pick"_s});
    QVERIFY(program.waitForLoupe(start));
    desktop.closeWindowOutput();
    QVERIFY(waitUntil([&] { return desktop.outputCount() == 1; }));
    const Pixel left{0, {333, 222}};
    desktop.movePointer(left);
    QVERIFY(program.waitForLoupe(left));
    desktop.click();
    QCOMPARE(program.process().waitForEnd(), 0);
    QCOMPARE(program.process().standardOutput(), hexText(desktop.patternPixel(left)) + '\n');
}

QTEST_GUILESS_MAIN(WaylandLeavingsTest)
#include "WaylandLeavingsTest.moc"
