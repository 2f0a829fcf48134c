#include "FileImport.h"
#include "ColorExport.h"
#include "ColorFormat.h"

#include "export/TestColors.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;
using test::rgb;

/// The name, then a line for each colour: its code with the opacity, and its name.
QString described(const Import& result)
{
    if (const auto* problem = std::get_if<ImportProblem>(&result)) {
        return problem->sentence;
    }
    const auto& palette = std::get<ImportedPalette>(result);
    QStringList lines{palette.name};
    for (const CapturedColor& color : palette.colors) {
        lines.append(string(ColorFormat::Hex8, color) + u' ' + color.customName.value_or(u"-"_s));
    }
    return lines.join(u'|');
}

QByteArray bytes(const char* hex)
{
    return QByteArray::fromHex(hex);
}

QByteArray pngOf(const QImage& picture)
{
    QByteArray png;
    QBuffer buffer(&png);
    picture.save(&buffer, "PNG");
    return png;
}

/// Red on a half, green and blue on a quarter each, and a pixel of nearly red.
QImage bands()
{
    QImage picture(100, 100, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.fillRect(0, 0, 100, 40, QColor(220, 20, 60));
    painter.fillRect(0, 40, 100, 25, QColor(0, 128, 64));
    painter.fillRect(0, 65, 100, 20, QColor(30, 60, 200));
    painter.fillRect(3, 3, 1, 1, QColor(221, 20, 60));
    return picture;
}

} // namespace

class FileImportTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filesAreRead_data();
    void filesAreRead();
    void brokenFilesAreRefusedWithTheirPlace_data();
    void brokenFilesAreRefusedWithTheirPlace();
    void ourExportsAreReadBack_data();
    void ourExportsAreReadBack();
    void theColorsOfAPictureAreThoseOfItsAreas();
    void aPictureGivesAtMostEightColors();
    void onlyFilesAreRead();
};

void FileImportTest::filesAreRead_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("result");
    QTest::newRow("GIMP") << QByteArray(
                                 "GIMP Palette\r\nName: Sea \xE7\xA9\xBA\r\nColumns: 4\r\n# by hand\r\n"
                                 "\r\n 59 130 246\tSky blue\r\n0 0 0\r\n255 255 255 Untitled\r\n")
                          << u"Sea 空|#3B82F6 Sky blue|#000000 -|#FFFFFF -"_s;
    QTest::newRow("GIMP without a name") << QByteArray("GIMP Palette\n1 2 3 a") << u"file|#010203 a"_s;
    QTest::newRow("ASE") << bytes("41534546 00010000 00000003"
                                  "C001 0000000A 0004 004100200042 0000" // the group "A B"
                                  "0001 00000018 0002 0058 0000 52474220 3F800000 3F000000 00000000 0000"
                                  "C002 00000000")
                         << QString();
    QTest::newRow("ACO 1") << bytes("0001 0002 0000 FFFF 8080 0000 0000 0008 2710 0000 0000 0000")
                           << u"file|#FF8000 -|#FFFFFF -"_s;
    QTest::newRow("ACO 2") << bytes("0001 0001 0000 FFFF 0000 0000 0000"
                                    "0002 0001 0000 FFFF 0000 0000 0000 00000004 0052 0065 0064 0000")
                           << u"file|#FF0000 Red"_s;
    // Hue 240; full cyan; lightness 50.
    QTest::newRow("ACO models") << bytes("0001 0003 0001 AAAA FFFF FFFF 0000 0002 0000 FFFF FFFF FFFF"
                                         "0007 1388 0000 0000 0000")
                                << u"file|#0000FF -|#00FFFF -|#777777 -"_s;
    QTest::newRow("CSS")
        << QByteArray(
               "/* --a: #111; */\n:root {\n  --sky: #38BDF8;\n  --sky-50: rgb(0 0 255 / 50%);"
               "--gap: 4px; --layer: 100000; --ease: 0.4, 0, 0.2; --ref: var(--sky); --éclair: tomato }\n")
        << u"file|#38BDF8 sky|#0000FF80 sky-50|#FF6347 éclair"_s;
    QTest::newRow("SCSS") << QByteArray(
                                 "// $a: #111;\n$sky: #38BDF8 !default;\n$url: \"https://a\";\n$two: $sky;\n"
                                 "$ok: oklch(62.796% 0.25768 29.234);")
                          << u"file|#38BDF8 sky|#FF0000 ok"_s;
    QTest::newRow("tokens") << QByteArray(R"({"brand": {"$type": "color",
        "sky": {"$value": {"colorSpace": "srgb", "components": [0, 0.5, 1], "alpha": 0.5}},
        "deep": {"red": {"$value": "#ff0000", "$description": "Signal"},
                 "p3": {"$value": {"colorSpace": "display-p3", "components": [0, "none", 0]}},
                 "hsl": {"$value": {"colorSpace": "hsl", "components": [240, 100, 50]}}},
        "alias": {"$value": "{brand.sky}"},
        "gap": {"$type": "dimension", "$value": "4px"}}})")
                            << u"brand|#0080FF80 sky|#FF0000 Signal|#000000 p3|#0000FF hsl"_s;
    QTest::newRow("our JSON")
        << QByteArray("\xEF\xBB\xBF [{\"hex\": \"#010203\", \"name\": \"Ink\"}, {\"hex\": \"#fff\"}]")
        << u"file|#010203 Ink|#FFFFFF -"_s;
}

void FileImportTest::filesAreRead()
{
    QFETCH(const QByteArray, content);
    QFETCH(QString, result);
    if (QLatin1StringView(QTest::currentDataTag()) == "ASE"_L1) {
        result = u"A B|#FF8000 X"_s;
    }
    QCOMPARE(described(importBytes(content, u"file"_s)), result);
}

void FileImportTest::brokenFilesAreRefusedWithTheirPlace_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("problem");
    QTest::newRow("empty") << QByteArray() << u"there are no colors in it"_s;
    QTest::newRow("prose") << QByteArray("Dear reader") << u"there are no colors in it"_s;
    QTest::newRow("GIMP, no color") << QByteArray("GIMP Palette\n#\n1 2 3\n300 0 0 x\n")
                                    << u"line 4: '300 0 0 x' is not a color"_s;
    QTest::newRow("GIMP, two numbers")
        << QByteArray("GIMP Palette\n1 2") << u"line 2: '1 2' is not a color"_s;
    QTest::newRow("ASE, cut header") << bytes("41534546 0001") << u"byte 4: the file ends early"_s;
    QTest::newRow("ASE, fewer blocks")
        << bytes("41534546 00010000 00000002 C002 00000000") << u"byte 18: the file ends early"_s;
    QTest::newRow("ASE, block too long")
        << bytes("41534546 00010000 00000001 0001 7FFFFFFF 00") << u"byte 12: the file ends early"_s;
    QTest::newRow("ASE, no number") << bytes(
                                           "41534546 00010000 00000001"
                                           "0001 00000018 0001 0000 52474220 7FC00000 00000000 00000000 0000"
                                           "0000 0000")
                                    << u"byte 12: 'RGB ' is not a color that can be read"_s;
    QTest::newRow("ACO, cut") << bytes("0001 0002 0000 FFFF 8080 0000 0000 0000 FF")
                              << u"byte 14: the file ends early"_s;
    QTest::newRow("ACO, unknown space")
        << bytes("0001 0001 0003 0000 0000 0000 0000") << u"byte 4: the color space 3 cannot be read"_s;
    QTest::newRow("ACO, name too long")
        << bytes("0002 0001 0000 FFFF 8080 0000 0000 FFFFFFFF 0000") << u"byte 14: the color has no name"_s;
    QTest::newRow("CSS, no color") << QByteArray(":root {\n  --a: #12345;\n}")
                                   << u"line 2: '#12345' is not a color"_s;
    QTest::newRow("CSS, open comment")
        << QByteArray("--a: #123;\n/* --b") << u"line 2: the comment is not closed"_s;
    QTest::newRow("JSON, syntax") << QByteArray("[\n{\"hex\": \"#fff\"},\n}")
                                  << u"line 3: this is not JSON"_s;
    QTest::newRow("JSON, zero byte") << QByteArray("[\n\0]", 4) << u"line 2: this is not JSON"_s;
    QTest::newRow("JSON, depth") << QByteArray(100'000, '[') << u"line 1: the file is nested too deeply"_s;
    QTest::newRow("JSON, no hex") << QByteArray(R"([{"hex": "#fff"}, {}])") << u"entry 2 has no color"_s;
    QTest::newRow("tokens, no color") << QByteArray(R"({"a": {"b": {"$type": "color", "$value": "blu"}}})")
                                      << u"the token a.b is not a color"_s;
    QTest::newRow("picture, cut") << pngOf(bands()).first(60) << QString();
    QTest::newRow("too many") << QByteArray("GIMP Palette\n") + QByteArray("1 2 3\n").repeated(2001)
                              << u"it has more than 2000 colors"_s;
}

void FileImportTest::brokenFilesAreRefusedWithTheirPlace()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QString, problem);
    const Import result = importBytes(content, u"file"_s);
    QVERIFY(std::holds_alternative<ImportProblem>(result));
    if (!problem.isEmpty()) {
        QCOMPARE(described(result), problem);
    }
}

void FileImportTest::ourExportsAreReadBack_data()
{
    QTest::addColumn<ExportFormat>("format");
    QTest::addColumn<QString>("result");
    const QString names = u"|#3B82F6 Sky/Sea|#102030 -|#DB7093 Sky/Sea"_s;
    QTest::newRow("gpl") << ExportFormat::GimpPalette << u"My Palette"_s + names;
    QTest::newRow("ase") << ExportFormat::AdobeSwatches << u"My Palette"_s + names;
    QTest::newRow("json") << ExportFormat::Json << u"file"_s + names;
    const QString slugs = u"|#3B82F6 skysea|#102030 color-2|#DB7093 skysea-2"_s;
    QTest::newRow("css") << ExportFormat::UniqueCss << u"file"_s + slugs;
    QTest::newRow("scss") << ExportFormat::Scss << u"file"_s + slugs;
    QTest::newRow("tokens") << ExportFormat::DesignTokens
                            << u"my-palette|#3B82F6 Sky/Sea|#102030 color-2|#DB7093 Sky/Sea"_s;
}

void FileImportTest::ourExportsAreReadBack()
{
    QFETCH(const ExportFormat, format);
    const QList<CapturedColor> colors{rgb(0x3B82F6, u"Sky/Sea"_s), rgb(0x102030),
                                      rgb(0xDB7093, u"Sky/Sea"_s)};
    const auto file = ColorExport::build(format, colors, u"My Palette"_s);
    QTEST(described(importBytes(file.value(), u"file"_s)), "result");
}

void FileImportTest::theColorsOfAPictureAreThoseOfItsAreas()
{
    QCOMPARE(described(importBytes(pngOf(bands()), u"photo"_s)), u"photo|#DC143C -|#008040 -|#1E3CC8 -"_s);
}

void FileImportTest::aPictureGivesAtMostEightColors()
{
    QImage picture(360, 20, QImage::Format_RGB32);
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y) {
            picture.setPixelColor(x, y, QColor::fromHsv(x, 255, 255 - y * 10));
        }
    }
    const auto palette = std::get<ImportedPalette>(importBytes(pngOf(picture), u"rainbow"_s));
    QCOMPARE(palette.colors.size(), 8);
}

void FileImportTest::onlyFilesAreRead()
{
    const QTemporaryDir folder;
    QCOMPARE(described(importFile(folder.path())), u"this is not a file"_s);
    QVERIFY(std::holds_alternative<ImportProblem>(importFile(folder.filePath(u"none"_s))));
}

} // namespace tintwick

QTEST_GUILESS_MAIN(tintwick::FileImportTest)
#include "FileImportTest.moc"
