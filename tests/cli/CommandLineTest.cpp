#include "CommandLine.h"

#include <QTest>

namespace tintwick {

namespace {

/// The words of a command line, separated by blanks.
auto parsed(const char* words)
{
    return parseCommandLine(QString::fromUtf8(words).split(u' ', Qt::SkipEmptyParts));
}

} // namespace

class CommandLineTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCommandIsRead_data();
    void everyCommandIsRead();
    void optionsAreRead();
    void wrongCommandLinesAreRefusedInOneLine_data();
    void wrongCommandLinesAreRefusedInOneLine();
    void helpAndVersionAreTexts_data();
    void helpAndVersionAreTexts();
    void formatsAreNamedWithoutRegardToCase_data();
    void formatsAreNamedWithoutRegardToCase();
};

void CommandLineTest::everyCommandIsRead_data()
{
    QTest::addColumn<CommandId>("command");
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("") << CommandId::Start << QStringList();
    QTest::newRow("--background") << CommandId::Start << QStringList();
    QTest::newRow("pick") << CommandId::Pick << QStringList();
    QTest::newRow("history") << CommandId::History << QStringList();
    QTest::newRow("palettes") << CommandId::Palettes << QStringList();
    QTest::newRow("palette Brand") << CommandId::Palette << QStringList{QStringLiteral("Brand")};
    QTest::newRow("export css") << CommandId::Export << QStringList{QStringLiteral("css")};
    QTest::newRow("export -o a.png png") << CommandId::Export << QStringList{QStringLiteral("png")};
    QTest::newRow("convert red #fff")
        << CommandId::Convert << QStringList{QStringLiteral("red"), QStringLiteral("#fff")};
    QTest::newRow("convert -- -x") << CommandId::Convert << QStringList{QStringLiteral("-x")};
    QTest::newRow("import a.gpl b.png")
        << CommandId::Import << QStringList{QStringLiteral("a.gpl"), QStringLiteral("b.png")};
    QTest::newRow("panel") << CommandId::Panel << QStringList();
    QTest::newRow("settings") << CommandId::Settings << QStringList();
    QTest::newRow("quit") << CommandId::Quit << QStringList();
}

void CommandLineTest::everyCommandIsRead()
{
    const auto result = parsed(QTest::currentDataTag());
    const auto* invocation = std::get_if<Invocation>(&result);
    QVERIFY(invocation);
    QTEST(invocation->command, "command");
    QTEST(invocation->arguments, "arguments");
}

void CommandLineTest::optionsAreRead()
{
    const auto byDefault = std::get<Invocation>(parsed("pick"));
    QCOMPARE(byDefault.format, std::nullopt);
    QCOMPARE(byDefault.count, 1);
    QVERIFY(byDefault.copies);
    QVERIFY(byDefault.saves);
    QVERIFY(!byDefault.isJson);

    const auto pick = std::get<Invocation>(parsed("pick --format rgb --count 12 --no-copy --no-save --json"));
    QCOMPARE(pick.format, ColorFormat::Rgb);
    QCOMPARE(pick.count, 12);
    QVERIFY(!pick.copies);
    QVERIFY(!pick.saves);
    QVERIFY(pick.isJson);

    const auto exported = std::get<Invocation>(parsed("export json -p Brand -o brand.json"));
    QCOMPARE(exported.palette, QStringLiteral("Brand"));
    QCOMPARE(exported.output, QStringLiteral("brand.json"));
    QCOMPARE(std::get<Invocation>(parsed("export json")).output, QStringLiteral("-"));

    QVERIFY(std::get<Invocation>(parsed("--background")).isBackground);
}

void CommandLineTest::wrongCommandLinesAreRefusedInOneLine_data()
{
    QTest::addColumn<QByteArray>("words");
    for (const char* words : {"foo",
                              "picks",
                              "Pick",
                              "--foo",
                              "pick --foo",
                              "pick now",
                              "pick --format",
                              "pick --format foo",
                              "pick --count 0",
                              "pick --count -1",
                              "pick --count 101",
                              "pick --count two",
                              "history 3",
                              "palette",
                              "palette a b",
                              "export",
                              "export gif",
                              "export css png",
                              "export css -o",
                              "convert",
                              "convert --count 2 red",
                              "import",
                              "panel --json",
                              "quit now",
                              "--json"}) {
        QTest::newRow(words) << QByteArray(words);
    }
}

void CommandLineTest::wrongCommandLinesAreRefusedInOneLine()
{
    QFETCH(QByteArray, words);
    const auto result = parsed(words.constData());
    const auto* error = std::get_if<UsageError>(&result);
    QVERIFY(error);
    QVERIFY(error->text.startsWith(QStringLiteral("tintwick: ")));
    QVERIFY(error->text.endsWith(QStringLiteral("--help)")));
    QVERIFY(!error->text.contains(u'\n'));
}

void CommandLineTest::helpAndVersionAreTexts_data()
{
    QTest::addColumn<QString>("part");
    QTest::newRow("--help") << QStringLiteral("usage: tintwick [COMMAND] [OPTION]…\n");
    QTest::newRow("-h") << QStringLiteral("  export TYPE     Export the history or a palette\n");
    QTest::newRow("convert --help") << QStringLiteral("usage: tintwick convert [OPTION]… COLOR…\n");
    QTest::newRow("pick -h") << QStringLiteral("-n, --count N");
    QTest::newRow("export --help") << QStringLiteral(
        "types:\n  css, json, png, css-unique, scss, tailwind, tokens, gpl, ase, svg, png-codes\n");
    // Help wins over a missing argument.
    QTest::newRow("palette --help") << QStringLiteral("usage: tintwick palette [OPTION]… NAME\n");
    QTest::newRow("--version") << QStringLiteral("tintwick 1.");
    QTest::newRow("pick -v") << QStringLiteral("tintwick 1.");
}

void CommandLineTest::helpAndVersionAreTexts()
{
    QFETCH(QString, part);
    const auto result = parsed(QTest::currentDataTag());
    const auto* information = std::get_if<InformationRequest>(&result);
    QVERIFY(information);
    QVERIFY2(information->text.contains(part), qPrintable(information->text));
    QVERIFY(information->text.endsWith(u'\n'));
}

void CommandLineTest::formatsAreNamedWithoutRegardToCase_data()
{
    QTest::addColumn<bool>("isKnown");
    QTest::addColumn<ColorFormat>("format");
    QTest::newRow("HEX") << true << ColorFormat::Hex6;
    QTest::newRow("hex+a") << true << ColorFormat::Hex8;
    QTest::newRow("css-var") << true << ColorFormat::CssVar;
    QTest::newRow("CSS Var") << true << ColorFormat::CssVar;
    QTest::newRow("tailwind") << true << ColorFormat::Tailwind;
    QTest::newRow("name") << true << ColorFormat::ColorName;
    QTest::newRow("hex8") << false << ColorFormat::Hex6;
    QTest::newRow("cssvar") << false << ColorFormat::Hex6;
}

void CommandLineTest::formatsAreNamedWithoutRegardToCase()
{
    QFETCH(bool, isKnown);
    const auto format = colorFormatFromOption(QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(format.has_value(), isKnown);
    if (format) {
        QTEST(*format, "format");
    }
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::CommandLineTest)
#include "CommandLineTest.moc"
