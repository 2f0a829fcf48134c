#include "desktop/TintwickProcess.h"
#include "support/Pattern.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <X11/keysym.h>

#include <csignal>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

const QPoint middle(640, 400);

/// A private desktop with the test picture.
struct Scene
{
    explicit Scene(bool hasBus = true)
        : desktop({.sessionBus = hasBus})
        , picture(desktop.showPicture())
    {
        desktop.movePointer(middle);
    }

    [[nodiscard]] TintwickProcess start(const QStringList& arguments = {u"--background"_s})
    {
        return TintwickProcess(desktop, {}, arguments);
    }
    /// Runs a command to its end.
    [[nodiscard]] std::optional<int> run(const QStringList& arguments)
    {
        return start(arguments).process().waitForEnd();
    }

    PrivateDesktop desktop;
    std::unique_ptr<TestWindow> picture;
};

/// A data file with one colour; `digit` makes its id.
QByteArray dataWithColor(const QByteArray& name, const QByteArray& digit)
{
    return R"({"history":[{"id":"11111111-2222-4333-8444-55555555555)" + digit +
           R"(","red":1,"green":0,"blue":1,"alpha":1,"capturedAt":"2025-01-02T03:04:05Z","customName":")" +
           name + R"("}],"collections":[],"defaultFormat":"HEX"})";
}

} // namespace

/// Several starts of the program on one desktop.
class InstanceTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSecondStartOpensThePanelOfTheFirst();
    void aSecondStartWithoutABusEndsWithOneLine();
    void commandsReachTheRunningProgram();
    void openedFilesBecomePalettes();
    void aPickThroughTheRunningProgramIsPrintedCopiedAndSaved();
    void aPickLeavesClipboardAndHistoryIfAsked();
    void severalPicksAreCopiedTogether();
    void escapeEndsAPickWithOne_data();
    void escapeEndsAPickWithOne();
    void theEndOfTheCallerEndsThePick();
    void aPickIsRefusedDuringAnother();
    void aPickWithoutTheProgramSavesAndLeavesNothingRunning();
    void aPickWithoutTheProgramReportsAFailedSave();
    void anEditOfTheDataByHandIsKept();
    void aPickOnAnotherBusIsKept();
};

void InstanceTest::aSecondStartOpensThePanelOfTheFirst()
{
    Scene scene;
    TintwickProcess first = scene.start();
    QVERIFY(first.waitForTrayIcon());
    TintwickProcess second = scene.start(QStringList());
    QCOMPARE(second.process().waitForEnd(), 0);
    QVERIFY(first.waitForPanel());
    QCOMPARE(second.process().standardError(), QByteArray());
}

void InstanceTest::aSecondStartWithoutABusEndsWithOneLine()
{
    Scene scene(false);
    TintwickProcess first = scene.start();
    QVERIFY(first.waitForTrayIcon());
    TintwickProcess second = scene.start();
    QCOMPARE(second.process().waitForEnd(), 1);
    QCOMPARE(second.process().standardError(), QByteArray("tintwick: another Tintwick uses the same data\n"));

    // The lock ends with its process, whatever ends it.
    first.process().kill();
    TintwickProcess third = scene.start();
    QVERIFY(third.waitForTrayIcon());
    QVERIFY(third.process().isRunning());
}

void InstanceTest::commandsReachTheRunningProgram()
{
    Scene scene;
    TintwickProcess program = scene.start();
    QVERIFY(program.waitForTrayIcon());
    QCOMPARE(scene.run({u"panel"_s}), 0);
    QVERIFY(program.waitForPanel());
    QCOMPARE(scene.run({u"settings"_s}), 0);
    QVERIFY(waitUntil([&] { return program.settingsWindow() != XCB_NONE; }));
    QCOMPARE(scene.run({u"quit"_s}), 0);
    QCOMPARE(program.process().waitForEnd(), 0);
    // There is nothing left to quit.
    QCOMPARE(scene.run({u"quit"_s}), 0);
}

void InstanceTest::openedFilesBecomePalettes()
{
    Scene scene;
    TintwickProcess program = scene.start();
    QVERIFY(program.waitForTrayIcon());
    const QTemporaryDir folder;
    const auto write = [&](const QString& name, const QByteArray& text) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    };
    write(u"deep sea.gpl"_s, "GIMP Palette\nName: Sea\n59 130 246 Wave\n");
    write(u"sky.css"_s, ":root { --day: #1e90ff; }\n");
    write(u"broken.gpl"_s, "GIMP Palette\n59 130\n");
    const auto palettes = [&] {
        QStringList names;
        for (const QJsonValue palette : program.data().value("collections"_L1).toArray()) {
            names.append(palette["name"_L1].toString());
        }
        return names;
    };
    // As a file manager does.
    const auto open = [&](const QString& name) {
        const QString address = QUrl::fromLocalFile(folder.filePath(name)).toString(QUrl::FullyEncoded);
        return scene.desktop
            .start(u"gdbus"_s, {u"call"_s, u"--session"_s, u"--dest"_s, u"org.tintwick.Tintwick"_s,
                                u"--object-path"_s, u"/org/tintwick/Tintwick"_s, u"--method"_s,
                                u"org.freedesktop.Application.Open"_s, u"['"_s + address + u"']"_s, u"{}"_s})
            ->waitForEnd();
    };
    QCOMPARE(open(u"deep sea.gpl"_s), 0);
    QVERIFY(waitUntil([&] { return palettes() == QStringList{u"Sea"_s}; }));
    QVERIFY(program.waitForPanel());

    // So does the command that the desktop entry has for files.
    QCOMPARE(scene.run({folder.filePath(u"sky.css"_s)}), 0);
    QVERIFY(waitUntil([&] { return palettes() == QStringList{u"Sea"_s, u"sky"_s}; }));

    // A refused one shows its sentence where the content was, and changes nothing.
    const QImage before = scene.desktop.settledScreenshot(program.panel());
    QCOMPARE(open(u"broken.gpl"_s), 0);
    QVERIFY(waitUntil([&] { return scene.desktop.settledScreenshot(program.panel()) != before; }));
    QCOMPARE(palettes(), (QStringList{u"Sea"_s, u"sky"_s}));
}

void InstanceTest::aPickThroughTheRunningProgramIsPrintedCopiedAndSaved()
{
    Scene scene;
    TintwickProcess program = scene.start();
    QVERIFY(program.waitForTrayIcon());
    TintwickProcess caller = scene.start({u"pick"_s, u"--json"_s});
    QVERIFY(program.waitForLoupe());
    scene.desktop.click();
    QCOMPARE(caller.process().waitForEnd(), 0);

    const QByteArray hex = hexText(patternPixel(middle.x(), middle.y()));
    const auto colors = QJsonDocument::fromJson(caller.process().standardOutput()).array();
    QCOMPARE(colors.size(), 1);
    QCOMPARE(colors.first().toObject().value("text"_L1).toString().toLatin1(), hex);
    QVERIFY(program.waitForClipboard(hex));
    QVERIFY(waitUntil([&] { return program.history().size() == 1; }));
}

void InstanceTest::aPickLeavesClipboardAndHistoryIfAsked()
{
    Scene scene;
    scene.desktop.takeClipboard("before");
    TintwickProcess program = scene.start();
    QVERIFY(program.waitForTrayIcon());
    TintwickProcess caller = scene.start({u"pick"_s, u"--no-copy"_s, u"--no-save"_s, u"-f"_s, u"RGB"_s});
    QVERIFY(program.waitForLoupe());
    scene.desktop.click();
    QCOMPARE(caller.process().waitForEnd(), 0);
    QVERIFY(caller.process().standardOutput().startsWith("rgb("));
    QCOMPARE(scene.desktop.clipboard(), QByteArray("before"));
    // A save would have been the first.
    QVERIFY(!QFileInfo::exists(program.dataFile()));
}

void InstanceTest::severalPicksAreCopiedTogether()
{
    Scene scene;
    TintwickProcess program = scene.start();
    QVERIFY(program.waitForTrayIcon());
    TintwickProcess caller = scene.start({u"pick"_s, u"--count"_s, u"2"_s});
    QVERIFY(program.waitForLoupe());
    scene.desktop.click();
    QVERIFY(waitUntil([&] { return program.history().size() == 1; }));
    QVERIFY(program.waitForLoupe());
    scene.desktop.movePointer(middle + QPoint(50, 0));
    QVERIFY(program.waitForCenterCell(patternPixel(middle.x() + 50, middle.y())));
    scene.desktop.click();
    QCOMPARE(caller.process().waitForEnd(), 0);
    const QByteArray texts = hexText(patternPixel(middle.x(), middle.y())) + '\n' +
                             hexText(patternPixel(middle.x() + 50, middle.y()));
    QCOMPARE(caller.process().standardOutput(), texts + '\n');
    QVERIFY(program.waitForClipboard(texts));
    QVERIFY(waitUntil([&] { return !program.badge().isEmpty(); }));
}

void InstanceTest::escapeEndsAPickWithOne_data()
{
    QTest::addColumn<bool>("isRunning");
    QTest::newRow("running program") << true;
    QTest::newRow("no running program") << false;
}

void InstanceTest::escapeEndsAPickWithOne()
{
    QFETCH(bool, isRunning);
    Scene scene;
    std::optional<TintwickProcess> program;
    if (isRunning) {
        program.emplace(scene.desktop);
        QVERIFY(program->waitForTrayIcon());
    }
    TintwickProcess caller = scene.start({u"pick"_s});
    TintwickProcess& picking = isRunning ? *program : caller;
    QVERIFY(picking.waitForLoupe());
    scene.desktop.typeKey(XK_Escape);
    QCOMPARE(caller.process().waitForEnd(), 1);
    QCOMPARE(caller.process().standardOutput(), QByteArray());
    QCOMPARE(caller.process().standardError(), QByteArray());
    QVERIFY(!QFileInfo::exists(picking.dataFile()));
}

void InstanceTest::theEndOfTheCallerEndsThePick()
{
    Scene scene;
    TintwickProcess program = scene.start();
    QVERIFY(program.waitForTrayIcon());
    TintwickProcess caller = scene.start({u"pick"_s});
    QVERIFY(program.waitForLoupe());
    ::kill(static_cast<pid_t>(caller.process().processId()), SIGINT);
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(program.startPicking());
}

void InstanceTest::aPickIsRefusedDuringAnother()
{
    Scene scene;
    TintwickProcess program = scene.start();
    QVERIFY(program.startPicking());
    TintwickProcess caller = scene.start({u"pick"_s});
    QCOMPARE(caller.process().waitForEnd(), 3);
    QCOMPARE(caller.process().standardError(), QByteArray("tintwick: Another pick has not ended yet.\n"));
    QVERIFY(program.loupe());
}

void InstanceTest::aPickWithoutTheProgramSavesAndLeavesNothingRunning()
{
    Scene scene;
    TintwickProcess caller = scene.start({u"pick"_s, u"--format"_s, u"rgb"_s});
    QVERIFY(caller.waitForLoupe());
    scene.desktop.click();
    QCOMPARE(caller.process().waitForEnd(), 0);
    QVERIFY(caller.process().standardOutput().startsWith("rgb("));
    QCOMPARE(caller.history().size(), 1);
    QVERIFY(caller.trayIcon().isEmpty());
}

void InstanceTest::anEditOfTheDataByHandIsKept()
{
    Scene scene;
    keepData(scene.desktop, dataWithColor("Before", "1"));
    TintwickProcess program = scene.start();
    QVERIFY(program.waitForTrayIcon());
    keepData(scene.desktop, dataWithColor("Edited", "2"));
    TintwickProcess caller = scene.start({u"pick"_s});
    QVERIFY(program.waitForLoupe());
    scene.desktop.click();
    QCOMPARE(caller.process().waitForEnd(), 0);
    QVERIFY(waitUntil([&] { return program.history().size() == 2; }));
    QCOMPARE(program.history().last().toObject().value("customName"_L1).toString(), u"Edited"_s);
}

void InstanceTest::aPickOnAnotherBusIsKept()
{
    Scene scene;
    TintwickProcess program = scene.start();
    QVERIFY(program.waitForTrayIcon());
    QProcessEnvironment otherBus;
    otherBus.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"disabled:"_s);
    TintwickProcess alone(scene.desktop, otherBus, QStringList{u"pick"_s});
    QVERIFY(alone.waitForLoupe());
    scene.desktop.click();
    QCOMPARE(alone.process().waitForEnd(), 0);
    QCOMPARE(alone.history().size(), 1);
    const QJsonValue first = alone.history().first();

    QVERIFY(program.startPicking());
    scene.desktop.movePointer(middle);
    scene.desktop.click();
    QVERIFY(waitUntil([&] { return program.history().size() == 2; }));
    QCOMPARE(program.history().last(), first);
}

void InstanceTest::aPickWithoutTheProgramReportsAFailedSave()
{
    Scene scene;
    // A folder in the place of the file
    QVERIFY(QDir().mkpath(scene.desktop.dataHome() + u"/Tintwick/data.json"_s));
    TintwickProcess caller = scene.start({u"pick"_s});
    QVERIFY(caller.waitForLoupe());
    scene.desktop.click();
    QCOMPARE(caller.process().waitForEnd(), 0);
    QCOMPARE(caller.process().standardOutput(), hexText(patternPixel(middle.x(), middle.y())) + '\n');
    QCOMPARE(caller.process().standardError(), QByteArray("tintwick: Not saved: data.json is not a file\n"));
}

QTEST_GUILESS_MAIN(InstanceTest)
#include "InstanceTest.moc"
