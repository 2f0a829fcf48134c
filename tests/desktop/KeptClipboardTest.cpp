#include "desktop/ClipboardManager.h"
#include "desktop/TintwickProcess.h"
#include "support/Pattern.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <array>
#include <csignal>
#include <optional>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

constexpr QPoint middle(640, 400);

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The folder below /proc of the process that serves the clipboard of a display; none while there is none.
std::optional<QDir> servingProcess(const QByteArray& display)
{
    const QDir all(u"/proc"_s);
    for (const QString& name : all.entryList(QDir::Dirs)) {
        const QDir process(all.filePath(name));
        if (contentOf(process.filePath(u"cmdline"_s)).contains("--serve-clipboard") &&
            contentOf(process.filePath(u"environ"_s)).split('\0').contains("DISPLAY=" + display)) {
            return process;
        }
    }
    return std::nullopt;
}

/// The program on a desktop without a clipboard manager, after a pick.
struct Scene
{
    Scene()
        : picture(desktop.showPicture())
    {
        desktop.movePointer(middle);
    }

    [[nodiscard]] bool pick()
    {
        program.emplace(desktop);
        if (!program->startPicking()) {
            return false;
        }
        desktop.movePointer(middle);
        desktop.click();
        return program->waitForPickToEnd() && program->waitForClipboard(text);
    }
    [[nodiscard]] bool quit()
    {
        if (!program->openMenu()) {
            return false;
        }
        program->chooseQuit();
        return program->process().waitForEnd() == 0;
    }
    /// What another program gets that asks for the clipboard in this form.
    [[nodiscard]] QByteArray clipboardAs(const QString& target)
    {
        const auto reader =
            desktop.start(u"xclip"_s, {u"-selection"_s, u"clipboard"_s, u"-o"_s, u"-t"_s, target});
        return reader->waitForEnd() ? reader->standardOutput() : QByteArray();
    }
    [[nodiscard]] bool isServed() const { return servingProcess(desktop.display()).has_value(); }

    PrivateDesktop desktop{{}};
    std::unique_ptr<TestWindow> picture;
    std::optional<TintwickProcess> program;
    const QByteArray text = hexText(patternPixel(middle.x(), middle.y()));
};

} // namespace

/// The copied text after the end of the program.
class KeptClipboardTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTextStaysAfterQuit();
    void theTextStaysAfterASignal();
    void theTextStaysAfterASinglePick();
    void theTextStaysWhenASeriesIsInterrupted();
    void programsGetTheTextInTheFormTheyAskFor();
    void severalFormsAreGivenAtOnce();
    void theProcessHoldsNothingElse();
    void theProcessEndsWhenAnotherProgramCopies();
    void theProcessEndsWithTheServer();
    void aTextOfAnotherProgramIsLeftAlone();
    void aClipboardManagerNeedsNoProcess();
};

void KeptClipboardTest::theTextStaysAfterQuit()
{
    Scene scene;
    QVERIFY(scene.pick());
    QVERIFY(scene.quit());
    QCOMPARE(scene.desktop.clipboard(), scene.text);
    // Reading does not take it away.
    QCOMPARE(scene.desktop.clipboard(), scene.text);
}

void KeptClipboardTest::theTextStaysAfterASignal()
{
    Scene scene;
    QVERIFY(scene.pick());
    ::kill(static_cast<pid_t>(scene.program->process().processId()), SIGTERM);
    QCOMPARE(scene.program->process().waitForEnd(), std::optional(0));
    QCOMPARE(scene.desktop.clipboard(), scene.text);
    QCOMPARE(scene.program->process().standardError(), QByteArray());
}

void KeptClipboardTest::theTextStaysAfterASinglePick()
{
    Scene scene;
    TintwickProcess caller(scene.desktop, {}, QStringList{u"pick"_s});
    QVERIFY(caller.waitForLoupe());
    scene.desktop.click();
    QCOMPARE(caller.process().waitForEnd(), std::optional(0));
    QCOMPARE(caller.process().standardOutput(), scene.text + '\n');
    QCOMPARE(scene.desktop.clipboard(), scene.text);
}

void KeptClipboardTest::theTextStaysWhenASeriesIsInterrupted()
{
    Scene scene;
    TintwickProcess caller(scene.desktop, {}, QStringList{u"pick"_s, u"--count"_s, u"2"_s});
    QVERIFY(caller.waitForLoupe());
    scene.desktop.click();
    QVERIFY(caller.waitForClipboard(scene.text));
    ::kill(static_cast<pid_t>(caller.process().processId()), SIGINT);
    QCOMPARE(caller.process().waitForEnd(), std::optional(0));
    QCOMPARE(caller.process().standardOutput(), scene.text + '\n');
    QCOMPARE(scene.desktop.clipboard(), scene.text);
}

void KeptClipboardTest::programsGetTheTextInTheFormTheyAskFor()
{
    Scene scene;
    QVERIFY(scene.pick());
    QVERIFY(scene.quit());
    QCOMPARE(scene.clipboardAs(u"TARGETS"_s),
             QByteArray("TARGETS\nTIMESTAMP\nMULTIPLE\nUTF8_STRING\ntext/plain;charset=utf-8\ntext/plain\n"
                        "TEXT\nSTRING\n"));
    for (const QString& target :
         {u"UTF8_STRING"_s, u"STRING"_s, u"TEXT"_s, u"text/plain"_s, u"text/plain;charset=utf-8"_s}) {
        QCOMPARE(scene.clipboardAs(target), scene.text);
    }
    QCOMPARE(scene.clipboardAs(u"image/png"_s), QByteArray());
}

void KeptClipboardTest::severalFormsAreGivenAtOnce()
{
    Scene scene;
    QVERIFY(scene.pick());
    QVERIFY(scene.quit());
    DesktopConnection& connection = scene.desktop.connection();
    const TestWindow reader(connection, {});
    const auto atom = [&](const char* name) { return connection.atom(name); };
    const std::array pairs{atom("UTF8_STRING"), atom("FIRST"), atom("image/png"), atom("SECOND")};
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, reader.id(), atom("PAIRS"),
                        atom("ATOM_PAIR"), 32, static_cast<std::uint32_t>(pairs.size()), pairs.data());
    xcb_convert_selection(connection.get(), reader.id(), atom("CLIPBOARD"), atom("MULTIPLE"), atom("PAIRS"),
                          XCB_CURRENT_TIME);
    // The property of the form that does not exist has become none.
    const std::array answer{pairs[0], pairs[1], pairs[2], xcb_atom_t{XCB_ATOM_NONE}};
    const QByteArray expected(reinterpret_cast<const char*>(answer.data()), sizeof answer);
    QVERIFY(waitUntil([&] { return connection.property(reader.id(), "PAIRS") == expected; }));
    QCOMPARE(connection.property(reader.id(), "FIRST"), scene.text);
    QVERIFY(!connection.hasProperty(reader.id(), "SECOND"));
}

// A shell that waits for the end of the output, or a disk that is to be unmounted, must not wait for the process.
void KeptClipboardTest::theProcessHoldsNothingElse()
{
    Scene scene;
    QVERIFY(scene.pick());
    QVERIFY(scene.quit());
    const auto process = servingProcess(scene.desktop.display());
    QVERIFY(process);
    QCOMPARE(QFileInfo(process->filePath(u"cwd"_s)).symLinkTarget(), u"/"_s);
    const QDir files(process->filePath(u"fd"_s));
    for (const QFileInfo& file :
         files.entryInfoList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)) {
        const QString target = QFile::symLinkTarget(file.filePath());
        QVERIFY2(target == "/dev/null"_L1 || target.contains("socket:"_L1), qPrintable(target));
    }
}

void KeptClipboardTest::theProcessEndsWhenAnotherProgramCopies()
{
    Scene scene;
    QVERIFY(scene.pick());
    QVERIFY(scene.quit());
    QVERIFY(scene.isServed());
    scene.desktop.takeClipboard("theirs");
    QVERIFY(waitUntil([&] { return !scene.isServed(); }));
    QCOMPARE(scene.desktop.clipboard(), QByteArray("theirs"));
}

void KeptClipboardTest::theProcessEndsWithTheServer()
{
    QByteArray display;
    {
        Scene scene;
        QVERIFY(scene.pick());
        QVERIFY(scene.quit());
        QVERIFY(scene.isServed());
        display = scene.desktop.display();
    }
    QVERIFY(waitUntil([&] { return !servingProcess(display); }));
}

void KeptClipboardTest::aTextOfAnotherProgramIsLeftAlone()
{
    Scene scene;
    QVERIFY(scene.pick());
    scene.desktop.takeClipboard("theirs");
    QVERIFY(scene.quit());
    QVERIFY(!scene.isServed());
    QCOMPARE(scene.desktop.clipboard(), QByteArray("theirs"));
}

void KeptClipboardTest::aClipboardManagerNeedsNoProcess()
{
    Scene scene;
    QVERIFY(scene.pick());
    ClipboardManager manager(scene.desktop);
    QVERIFY(scene.program->openMenu());
    scene.program->chooseQuit();
    QVERIFY(waitUntil([&] { return manager.isAskedToSave(); }));
    QCOMPARE(scene.program->process().waitForEnd(), std::optional(0));
    QVERIFY(!scene.isServed());
}

QTEST_GUILESS_MAIN(KeptClipboardTest)
#include "KeptClipboardTest.moc"
