#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr const char* data = R"({
  "history": [
    {"id": "11111111-1111-1111-1111-111111111111", "red": 1, "green": 0.3882352941176471, "blue": 0.2784313725490196,
     "alpha": 1, "capturedAt": "2026-03-14T09:26:53Z", "customName": "Warm Red"},
    {"id": "22222222-2222-2222-2222-222222222222", "red": 0, "green": 0, "blue": 1, "alpha": 0.5,
     "capturedAt": "2026-03-13T09:26:53Z"}
  ],
  "collections": [
    {"id": "33333333-3333-3333-3333-333333333333", "name": "Brand",
     "colorIds": ["22222222-2222-2222-2222-222222222222", "44444444-4444-4444-4444-444444444444"],
     "createdAt": "2026-03-12T09:26:53Z", "icon": "paintpalette.fill"},
    {"id": "55555555-5555-5555-5555-555555555555", "name": "Empty", "colorIds": [],
     "createdAt": "2026-03-12T09:26:53Z", "icon": "paintpalette.fill"}
  ],
  "defaultFormat": "RGB"
})";

struct Result
{
    int status = -1;
    QByteArray output;
    QByteArray error;
};

} // namespace

/// Runs the real program without a display and without a session bus.
class CommandsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void colorsAreConverted_data();
    void colorsAreConverted();
    void aTextThatIsNoColorConvertsNothing();
    void aColorOutsideTheGamutIsReported();
    void historyIsPrintedInTheDefaultFormat();
    void palettesAreListed();
    void aPaletteIsPrinted();
    void aPaletteHasTheColorsThatItKeeps();
    void exportsGoToStandardOutputOrAFile();
    void filesAreImportedAsPalettesOrNotAtAll();
    void missingPalettesAreReported();
    void withoutDataEverythingIsEmpty();
    void aClosedOutputIsAFailure();
    void aPickIsNotPossibleWithoutADisplay();

private:
    [[nodiscard]] Result run(const QStringList& arguments) const;
    void writeData(const QByteArray& text = data) const;

    std::unique_ptr<QTemporaryDir> m_home;
};

void CommandsTest::init()
{
    m_home = std::make_unique<QTemporaryDir>();
}

void CommandsTest::cleanup()
{
    m_home.reset();
}

Result CommandsTest::run(const QStringList& arguments) const
{
    QProcessEnvironment environment;
    environment.insert(u"PATH"_s, qEnvironmentVariable("PATH"));
    environment.insert(u"HOME"_s, m_home->path());
    environment.insert(u"XDG_DATA_HOME"_s, m_home->path());
    environment.insert(u"XDG_RUNTIME_DIR"_s, m_home->path());
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path="_s + m_home->filePath(u"no-bus"_s));
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_home->path());
    process.start(QStringLiteral(TINTWICK_PROGRAM), arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit) {
        return {};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

void CommandsTest::writeData(const QByteArray& text) const
{
    QVERIFY(QDir(m_home->path()).mkdir(u"Tintwick"_s));
    QFile file(m_home->filePath(u"Tintwick/data.json"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

void CommandsTest::colorsAreConverted_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("output");
    const auto row = [](const char* name, const QStringList& arguments, const char* output) {
        QTest::newRow(name) << arguments << QByteArray(output);
    };
    row("hex is the default", {u"rgb(59 130 246)"_s}, "#3B82F6\n");
    row("several", {u"red"_s, u"blue-500"_s, u"Pale Violet"_s}, "#FF0000\n#3B82F6\n#DB7093\n");
    row("rgb", {u"#3b82f6"_s, u"-f"_s, u"rgb"_s}, "rgb(59, 130, 246)\n");
    row("alpha", {u"#3b82f680"_s, u"--format=RGBA"_s}, "rgba(59, 130, 246, 0.50)\n");
    row("tailwind", {u"#3b82f6"_s, u"-f"_s, u"tailwind"_s}, "blue-500\n");
    row("name", {u"#3b82f6"_s, u"-f"_s, u"name"_s}, "Royal Blue\n");
    row("CSS variable", {u"#3b82f6"_s, u"-f"_s, u"css-var"_s}, "--color: #3B82F6;\n");
}

void CommandsTest::colorsAreConverted()
{
    QFETCH(QStringList, arguments);
    const Result result = run(QStringList(u"convert"_s) + arguments);
    QCOMPARE(result.status, 0);
    QTEST(result.output, "output");
    QCOMPARE(result.error, QByteArray());
}

void CommandsTest::aTextThatIsNoColorConvertsNothing()
{
    const Result result = run({u"convert"_s, u"red"_s, u"reddish"_s});
    QCOMPARE(result.status, 2);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.error, QByteArray("tintwick: 'reddish' is not a color\n"));
}

void CommandsTest::aColorOutsideTheGamutIsReported()
{
    const Result result = run({u"convert"_s, u"color(display-p3 0 1 0)"_s});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, QByteArray("#00FB29\n"));
    QCOMPARE(result.error.count('\n'), 1);
    QVERIFY(result.error.contains("outside sRGB"));
}

void CommandsTest::historyIsPrintedInTheDefaultFormat()
{
    writeData();
    QCOMPARE(run({u"history"_s}).output, QByteArray("rgb(255, 99, 71)\nrgb(0, 0, 255)\n"));
    QCOMPARE(run({u"history"_s, u"-f"_s, u"HEX+A"_s}).output, QByteArray("#FF6347\n#0000FF80\n"));

    const auto colors = QJsonDocument::fromJson(run({u"history"_s, u"--json"_s}).output).array();
    QCOMPARE(colors.size(), 2);
    const QJsonObject first = colors.first().toObject();
    QCOMPARE(first.value("text"_L1).toString(), u"rgb(255, 99, 71)"_s);
    QCOMPARE(first.value("hex"_L1).toString(), u"#FF6347"_s);
    QCOMPARE(first.value("name"_L1).toString(), u"Warm Red"_s);
    QCOMPARE(first.value("capturedAt"_L1).toString(), u"2026-03-14T09:26:53Z"_s);
    const QJsonObject second = colors.last().toObject();
    QVERIFY(!second.contains("name"_L1));
    QCOMPARE(second.value("alpha"_L1).toDouble(), 0.5);
    QCOMPARE(second.value("tailwind"_L1).toString(), u"blue-700"_s);
}

void CommandsTest::palettesAreListed()
{
    writeData();
    QCOMPARE(run({u"palettes"_s}).output, QByteArray("Brand\nEmpty\n"));
    const auto palettes = QJsonDocument::fromJson(run({u"palettes"_s, u"--json"_s}).output).array();
    QCOMPARE(palettes.size(), 2);
    // An id that no colour has does not count.
    QCOMPARE(palettes.first().toObject().value("colors"_L1).toInt(), 1);
}

void CommandsTest::aPaletteIsPrinted()
{
    writeData();
    QCOMPARE(run({u"palette"_s, u"Brand"_s}).output, QByteArray("rgb(0, 0, 255)\n"));
    const Result empty = run({u"palette"_s, u"Empty"_s});
    QCOMPARE(empty.status, 0);
    QCOMPARE(empty.output, QByteArray());
}

void CommandsTest::aPaletteHasTheColorsThatItKeeps()
{
    writeData(QByteArray(data).replace(
        R"("defaultFormat": "RGB")",
        R"("defaultFormat": "RGB", "keptColors": [{"id": "44444444-4444-4444-4444-444444444444", "red": 0, "green": 1,
           "blue": 0, "alpha": 1, "capturedAt": "2025-03-14T09:26:53Z", "customName": "Leaf"}])"));
    QCOMPARE(run({u"palette"_s, u"Brand"_s}).output, QByteArray("rgb(0, 0, 255)\nrgb(0, 255, 0)\n"));
    const auto palettes = QJsonDocument::fromJson(run({u"palettes"_s, u"--json"_s}).output).array();
    QCOMPARE(palettes.first().toObject().value("colors"_L1).toInt(), 2);
    QCOMPARE(
        run({u"export"_s, u"css"_s, u"-p"_s, u"Brand"_s}).output,
        QByteArray(
            "/* Brand — generated by Tintwick */\n:root {\n  --color-1: #0000FF;\n  --leaf: #00FF00;\n}"));
    QCOMPARE(run({u"history"_s}).output, QByteArray("rgb(255, 99, 71)\nrgb(0, 0, 255)\n"));
}

void CommandsTest::exportsGoToStandardOutputOrAFile()
{
    writeData();
    const QByteArray css =
        "/* History — generated by Tintwick */\n:root {\n  --warm-red: #FF6347;\n  --color-2: #0000FF;\n}";
    QCOMPARE(run({u"export"_s, u"css"_s}).output, css);
    QCOMPARE(run({u"export"_s, u"css"_s, u"-p"_s, u"Brand"_s}).output,
             QByteArray("/* Brand — generated by Tintwick */\n:root {\n  --color-1: #0000FF;\n}"));
    QVERIFY(run({u"export"_s, u"png"_s}).output.startsWith("\x89PNG"));

    const Result toFile = run({u"export"_s, u"css"_s, u"-o"_s, u"colors.css"_s});
    QCOMPARE(toFile.status, 0);
    QCOMPARE(toFile.output, QByteArray());
    QFile file(m_home->filePath(u"colors.css"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), css);

    const Result refused = run({u"export"_s, u"css"_s, u"-o"_s, u"no/folder/colors.css"_s});
    QCOMPARE(refused.status, 1);
    QCOMPARE(refused.error.count('\n'), 1);
    QCOMPARE(run({u"export"_s, u"png"_s, u"-p"_s, u"Empty"_s}).status, 1);
}

void CommandsTest::filesAreImportedAsPalettesOrNotAtAll()
{
    writeData();
    const auto put = [this](const QString& name, const QByteArray& content) {
        QFile file(m_home->filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    };
    QVERIFY(put(u"sea.gpl"_s, "GIMP Palette\nName: Sea\n59 130 246 Wave\n0 0 0 Deep\n"));
    QVERIFY(put(u"site.css"_s, ":root { --ink: #102030; }"));
    QVERIFY(put(u"broken.gpl"_s, "GIMP Palette\n1 2\n"));

    const Result refused = run({u"import"_s, u"sea.gpl"_s, u"broken.gpl"_s});
    QCOMPARE(refused.status, 1);
    QCOMPARE(refused.error,
             QByteArray("tintwick: broken.gpl cannot be imported: line 2: '1 2' is not a color\n"));
    QVERIFY(!run({u"palettes"_s}).output.contains("Sea"));

    const Result imported = run({u"import"_s, u"sea.gpl"_s, u"site.css"_s});
    QCOMPARE(imported.error, QByteArray());
    QCOMPARE(imported.status, 0);
    QCOMPARE(run({u"palette"_s, u"Sea"_s, u"-f"_s, u"hex"_s}).output, QByteArray("#3B82F6\n#000000\n"));
    QCOMPARE(run({u"palette"_s, u"site"_s, u"-f"_s, u"name"_s}).output, QByteArray("ink\n"));
}

void CommandsTest::missingPalettesAreReported()
{
    writeData();
    for (const QStringList& arguments : {QStringList{u"palette"_s, u"brand"_s},
                                         QStringList{u"export"_s, u"json"_s, u"--palette"_s, u"brand"_s}}) {
        const Result result = run(arguments);
        QCOMPARE(result.status, 1);
        QCOMPARE(result.output, QByteArray());
        QCOMPARE(result.error, QByteArray("tintwick: there is no palette 'brand'\n"));
    }
}

void CommandsTest::withoutDataEverythingIsEmpty()
{
    QCOMPARE(run({u"history"_s}).output, QByteArray());
    QCOMPARE(run({u"history"_s, u"--json"_s}).output, QByteArray("[]\n"));
    QCOMPARE(run({u"palettes"_s}).status, 0);
    QCOMPARE(run({u"export"_s, u"json"_s}).output, QByteArray("[]"));
}

void CommandsTest::aClosedOutputIsAFailure()
{
    QProcess process;
    process.start(u"sh"_s, {u"-c"_s, QStringLiteral(TINTWICK_PROGRAM " convert red >/dev/full")});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 1);
    QCOMPARE(process.readAllStandardError(), QByteArray("tintwick: standard output cannot be written\n"));
}

void CommandsTest::aPickIsNotPossibleWithoutADisplay()
{
    const Result result = run({u"pick"_s});
    QCOMPARE(result.status, 3);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.error.count('\n'), 1);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::CommandsTest)
#include "CommandsTest.moc"
