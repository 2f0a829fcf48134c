#include "ColorExport.h"
#include "UniqueNames.h"

#include "export/TestColors.h"

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;
using test::rgb;

using Colors = QList<CapturedColor>;

Colors sameNames()
{
    return {rgb(0xDB7093, u"Pale Violet"_s), rgb(0xDB7094, u"pale violet"_s), rgb(0x102030),
            rgb(0x3B82F6, u"Sky"_s, 0.5)};
}

/// Names that end comments, begin like nothing that a language allows, or have characters that XML lacks.
Colors hostileNames()
{
    Colors colors;
    unsigned value = 0x102030;
    for (const QString& name :
         {u"a*/}b{"_s, u"#{1+1}"_s, u"42"_s, u"-"_s, u"!?"_s, u"color-42"_s, u"Éclair\n空 👩‍🎨"_s,
          u"</svg>&\"\u0001\uFFFF"_s + QChar(0xD800), u"\\"_s, u"$a: red;"_s, u"//"_s}) {
        colors.append(rgb(value, name));
        value += 0x010101;
    }
    return colors;
}

const QString hostileTitle = u"Sea */ #{Sky}\n*/ } 空 \\"_s;

QByteArray built(ExportFormat format, const Colors& colors, const QString& title = u"My Palette"_s)
{
    return ColorExport::build(format, colors, title).value_or(QByteArray());
}

} // namespace

/// The exports beside CSS, JSON and PNG: their bytes, and what independent programs read in them.
class MoreExportsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void equalNamesAreNumbered_data();
    void equalNamesAreNumbered();
    void textsAreExact_data();
    void textsAreExact();
    void fileNamesAreSuggested_data();
    void fileNamesAreSuggested();
    void aCssParserReadsEveryVariableOnce_data();
    void aCssParserReadsEveryVariableOnce();
    void pythonReadsTheDesignTokens();
    void pythonReadsTheAdobeSwatches();
    void pythonReadsTheVectorPicture();
    void codesAreDrawnAtTwoPixelsPerPoint();
    void picturesNeedAColor();
    void everyWordNamesItsFormat();

private:
    [[nodiscard]] QString put(const QByteArray& bytes) const;
    [[nodiscard]] static QByteArray outputOf(const QString& program, const QStringList& arguments);
    [[nodiscard]] QJsonDocument readBy(const QString& script, QStringList arguments,
                                       const QByteArray& bytes) const;

    QTemporaryDir m_folder;
};

QString MoreExportsTest::put(const QByteArray& bytes) const
{
    const QString path = m_folder.filePath(u"exported"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("Cannot write the file to be read");
    }
    return path;
}

QByteArray MoreExportsTest::outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0) {
        qWarning("%s: %s", qUtf8Printable(program), process.readAllStandardError().constData());
        return {};
    }
    return process.readAllStandardOutput();
}

QJsonDocument MoreExportsTest::readBy(const QString& script, QStringList arguments,
                                      const QByteArray& bytes) const
{
    arguments.prepend(QFINDTESTDATA(script));
    arguments.append(put(bytes));
    // QJsonDocument does not accept a string at the top level.
    return QJsonDocument::fromJson('[' + outputOf(u"/usr/bin/python3"_s, arguments) + ']');
}

void MoreExportsTest::equalNamesAreNumbered_data()
{
    QTest::addColumn<Colors>("colors");
    QTest::addColumn<NameStart>("start");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("none") << Colors() << NameStart::Anything << QStringList();
    QTest::newRow("equal") << sameNames() << NameStart::Anything
                           << QStringList{u"pale-violet"_s, u"pale-violet-2"_s, u"color-3"_s, u"sky"_s};
    QTest::newRow("a number that a name has already")
        << Colors{rgb(0, u"A"_s), rgb(0, u"A"_s), rgb(0, u"A 2"_s), rgb(0, u"a"_s)} << NameStart::Anything
        << QStringList{u"a"_s, u"a-3"_s, u"a-2"_s, u"a-4"_s};
    QTest::newRow("a position that a name has already")
        << Colors{rgb(0), rgb(0, u"Color 1"_s)} << NameStart::Anything
        << QStringList{u"color-1"_s, u"color-1-2"_s};
    QTest::newRow("hostile") << hostileNames() << NameStart::Letter
                             << QStringList{u"ab"_s,      u"color-11"_s,   u"color-42"_s,   u"color--"_s,
                                            u"color-5"_s, u"color-42-2"_s, u"éclair-空-"_s, u"svg"_s,
                                            u"color-9"_s, u"a-red"_s,      u"color-11-2"_s};
}

void MoreExportsTest::equalNamesAreNumbered()
{
    QFETCH(const Colors, colors);
    QFETCH(const NameStart, start);
    QTEST(uniqueNames(colors, start), "names");
}

void MoreExportsTest::textsAreExact_data()
{
    QTest::addColumn<ExportFormat>("format");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("css-unique") << ExportFormat::UniqueCss
                                << QByteArray(R"(/* My Palette — generated by Tintwick */
:root {
  --pale-violet: #DB7093;
  --pale-violet-2: #DB7094;
  --color-3: #102030;
  --sky: #3B82F680;
}
)");
    QTest::newRow("scss") << ExportFormat::Scss << QByteArray(R"(// My Palette — generated by Tintwick
$pale-violet: #DB7093;
$pale-violet-2: #DB7094;
$color-3: #102030;
$sky: #3B82F680;
)");
    QTest::newRow("tailwind") << ExportFormat::TailwindTheme
                              << QByteArray(R"(/* My Palette — generated by Tintwick */
@theme {
  --color-pale-violet: #DB7093;
  --color-pale-violet-2: #DB7094;
  --color-color-3: #102030;
  --color-sky: #3B82F680;
}
)");
    QTest::newRow("gpl") << ExportFormat::GimpPalette
                         << QByteArray("GIMP Palette\n"
                                       "Name: My Palette\n"
                                       "#\n"
                                       "219 112 147\tPale Violet\n"
                                       "219 112 148\tpale violet\n"
                                       " 16  32  48\t#102030\n"
                                       " 59 130 246\tSky\n");
}

void MoreExportsTest::textsAreExact()
{
    QFETCH(const ExportFormat, format);
    QTEST(built(format, sameNames()), "text");
}

void MoreExportsTest::fileNamesAreSuggested_data()
{
    QTest::addColumn<ExportFormat>("format");
    QTest::addColumn<QString>("name");
    QTest::newRow("css") << ExportFormat::Css << u"my-palette-palette.css"_s;
    QTest::newRow("json") << ExportFormat::Json << u"palette.json"_s;
    QTest::newRow("png") << ExportFormat::Png << u"palette.png"_s;
    QTest::newRow("css-unique") << ExportFormat::UniqueCss << u"my-palette-palette.css"_s;
    QTest::newRow("scss") << ExportFormat::Scss << u"my-palette-palette.scss"_s;
    QTest::newRow("tokens") << ExportFormat::DesignTokens << u"my-palette-palette.tokens.json"_s;
    QTest::newRow("ase") << ExportFormat::AdobeSwatches << u"my-palette-palette.ase"_s;
    QTest::newRow("png-codes") << ExportFormat::PngWithCodes << u"palette@2x.png"_s;
}

void MoreExportsTest::fileNamesAreSuggested()
{
    QFETCH(const ExportFormat, format);
    QTEST(suggestedFileName(format, u"My Palette"_s), "name");
}

void MoreExportsTest::aCssParserReadsEveryVariableOnce_data()
{
    QTest::addColumn<ExportFormat>("format");
    QTest::addColumn<QString>("kind");
    QTest::newRow("css-unique") << ExportFormat::UniqueCss << u":root"_s;
    QTest::newRow("scss") << ExportFormat::Scss << u"scss"_s;
    QTest::newRow("tailwind") << ExportFormat::TailwindTheme << u"@theme"_s;
}

void MoreExportsTest::aCssParserReadsEveryVariableOnce()
{
    QFETCH(const ExportFormat, format);
    QFETCH(const QString, kind);
    const Colors colors = hostileNames() + sameNames();
    const QJsonArray read =
        readBy(u"read_sheet.py"_s, {kind}, built(format, colors, hostileTitle)).array().first().toArray();
    QCOMPARE(read.size(), colors.size());
    for (qsizetype i = 0; i + 1 < colors.size(); ++i) {
        QCOMPARE(read[i].toArray()[1].toString(), colors[i].hex6());
    }
    QCOMPARE(read.last().toArray()[1].toString(), u"#3B82F680"_s);
}

void MoreExportsTest::pythonReadsTheDesignTokens()
{
    const QJsonObject file = readBy(u"read_json.py"_s, {}, built(ExportFormat::DesignTokens, sameNames()))
                                 .array()
                                 .at(0)
                                 .toObject();
    QCOMPARE(file.keys(), QStringList{u"my-palette"_s});
    const QJsonObject group = file["my-palette"_L1].toObject();
    QCOMPARE(group.keys(),
             (QStringList{u"$type"_s, u"color-3"_s, u"pale-violet"_s, u"pale-violet-2"_s, u"sky"_s}));
    QCOMPARE(group["$type"_L1].toString(), u"color"_s);
    const QJsonObject sky = group["sky"_L1].toObject();
    QCOMPARE(sky["$description"_L1].toString(), u"Sky"_s);
    QCOMPARE(sky["$value"_L1].toObject(),
             (QJsonObject{{u"colorSpace"_s, u"srgb"_s},
                          {u"components"_s, QJsonArray{0.23137, 0.5098, 0.96471}},
                          {u"alpha"_s, 0.5},
                          {u"hex"_s, u"#3b82f6"_s}}));
    QVERIFY(!group["color-3"_L1].toObject().contains("$description"_L1));
}

void MoreExportsTest::pythonReadsTheAdobeSwatches()
{
    const QJsonArray read =
        readBy(u"read_ase.py"_s, {}, built(ExportFormat::AdobeSwatches, sameNames())).array().at(0).toArray();
    QCOMPARE(read, (QJsonArray{u"My Palette"_s, QJsonArray{QJsonArray{u"Pale Violet"_s, 219, 112, 147},
                                                           QJsonArray{u"pale violet"_s, 219, 112, 148},
                                                           QJsonArray{u"#102030"_s, 16, 32, 48},
                                                           QJsonArray{u"Sky"_s, 59, 130, 246}}}));
    // A length of 16 bits, which counts the zero at the end.
    const Colors longName{rgb(0x3B82F6, QString(70'000, u'x'))};
    const QJsonArray cut = readBy(u"read_ase.py"_s, {}, built(ExportFormat::AdobeSwatches, longName)).array();
    QCOMPARE(cut[0][1][0][0].toString().size(), 65'534);
}

void MoreExportsTest::pythonReadsTheVectorPicture()
{
    const QJsonValue none(QJsonValue::Null);
    const Colors colors = sameNames().last(1) + hostileNames().sliced(7, 1);
    QCOMPARE(readBy(u"read_svg.py"_s, {}, built(ExportFormat::Svg, colors)).array().at(0).toArray(),
             (QJsonArray{QJsonArray{132, 68}, QJsonArray{QJsonArray{0, 0, 132, 68}, u"#262626"_s, none, none},
                         QJsonArray{QJsonArray{4, 4, 60, 60}, u"#3B82F6"_s, u"0.5"_s, u"Sky"_s},
                         QJsonArray{QJsonArray{68, 4, 60, 60}, u"#172737"_s, none, u"</svg>&\" \uFFFD"_s}}));
}

void MoreExportsTest::codesAreDrawnAtTwoPixelsPerPoint()
{
    const QImage picture =
        QImage::fromData(built(ExportFormat::PngWithCodes, {rgb(0xFFFFFF), rgb(0x000000)}));
    QCOMPARE(picture.size(), QSize(264, 136));
    QCOMPARE(picture.dotsPerMeterX(), 5670);
    const auto differs = [&](const QRect& area, QRgb ground) {
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                if (picture.pixel(x, y) != ground) {
                    return true;
                }
            }
        }
        return false;
    };
    // The code is below the middle, in black on white and white on black.
    QVERIFY(!differs({28, 28, 80, 50}, qRgb(255, 255, 255)));
    QVERIFY(differs({28, 84, 80, 40}, qRgb(255, 255, 255)));
    QVERIFY(!differs({156, 28, 80, 50}, qRgb(0, 0, 0)));
    QVERIFY(differs({156, 84, 80, 40}, qRgb(0, 0, 0)));
}

void MoreExportsTest::picturesNeedAColor()
{
    QVERIFY(!ColorExport::build(ExportFormat::Svg, {}, {}));
    QVERIFY(!ColorExport::build(ExportFormat::PngWithCodes, {}, {}));
    QVERIFY(ColorExport::build(ExportFormat::AdobeSwatches, {}, {}));
}

void MoreExportsTest::everyWordNamesItsFormat()
{
    QCOMPARE(exportFormatWords(u" "_s),
             u"css json png css-unique scss tailwind tokens gpl ase svg png-codes"_s);
    for (const QString& word : exportFormatWords(u" "_s).split(u' ')) {
        QCOMPARE(infoOf(exportFormatFromWord(word).value()).word, QStringView(word));
    }
    QVERIFY(!exportFormatFromWord(u"gif"));
    QVERIFY(!exportFormatFromWord(u""));
}

} // namespace tintwick

QTEST_MAIN(tintwick::MoreExportsTest)
#include "MoreExportsTest.moc"
