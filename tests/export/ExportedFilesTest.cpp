#include "ColorExport.h"

#include "export/TestColors.h"

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
using test::rgb;

using Colors = QList<CapturedColor>;

/// Common and unusual names.
const QStringList names{u"Éclair Brûlé"_s,
                        u"E\u0301tat"_s,
                        u"Синее небо"_s,
                        u"空の色"_s,
                        u"하늘"_s,
                        u"नीला आसमान"_s,
                        u"ท้องฟ้า"_s,
                        u"أزرق فاتح"_s,
                        u"תכלת"_s,
                        u"𐐀 𝒜"_s,
                        u"👩‍🎨 Paint"_s,
                        u"\"Quoted\" 'twice'"_s,
                        u"a/*b*/c"_s,
                        u"a{b};c:d\\e"_s,
                        u"</style><!-- -->"_s,
                        u"#1 Reds"_s,
                        u"42"_s,
                        u"-"_s,
                        u"x² ½ Ⅷ ª"_s,
                        u"\t"_s,
                        u"\u2028 \u00a0"_s,
                        u"!?"_s,
                        QString()};

Colors named()
{
    Colors colors;
    unsigned value = 0x102030;
    for (const QString& name : names) {
        colors.append(rgb(value, name, 0.5));
        value += 0x010101;
    }
    return colors;
}

Colors unnamed(qsizetype count)
{
    Colors colors;
    for (unsigned i = 0; i < count; ++i) {
        colors.append(rgb(0xFF0000 + i * 5));
    }
    return colors;
}

} // namespace

/// Reads the exported files with independent programs: a CSS parser, Python's JSON reader, ImageMagick.
class ExportedFilesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aCssParserReadsTheVariables_data();
    void aCssParserReadsTheVariables();
    void theCssReaderRefusesOtherCss_data();
    void theCssReaderRefusesOtherCss();
    void aJsonReaderReadsTheColors_data();
    void aJsonReaderReadsTheColors();
    void anImageProgramReadsThePicture_data();
    void anImageProgramReadsThePicture();

private:
    [[nodiscard]] QString put(const QByteArray& bytes) const;
    /// The standard output of a program; empty when the program fails.
    [[nodiscard]] static QByteArray outputOf(const QString& program, const QStringList& arguments);
    [[nodiscard]] QByteArray readBy(const QString& script, const QByteArray& bytes) const;
    [[nodiscard]] QJsonDocument readCss(const QByteArray& css) const;

    QTemporaryDir m_folder;
};

QString ExportedFilesTest::put(const QByteArray& bytes) const
{
    const QString path = m_folder.filePath(u"exported"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("Cannot write the file to be read");
    }
    return path;
}

QByteArray ExportedFilesTest::outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        qWarning("%s: %s", qUtf8Printable(program), process.readAllStandardError().constData());
        return {};
    }
    return process.readAllStandardOutput();
}

QByteArray ExportedFilesTest::readBy(const QString& script, const QByteArray& bytes) const
{
    // The distribution's Python modules are installed for this interpreter, not for another one in $PATH.
    return outputOf(u"/usr/bin/python3"_s, {QFINDTESTDATA(script), put(bytes)});
}

QJsonDocument ExportedFilesTest::readCss(const QByteArray& css) const
{
    // QJsonDocument does not accept a string at the top level.
    return QJsonDocument::fromJson('[' + readBy(u"read_css.py"_s, css) + ']');
}

void ExportedFilesTest::aCssParserReadsTheVariables_data()
{
    QTest::addColumn<Colors>("colors");
    QTest::addColumn<QString>("paletteName");
    QTest::addColumn<QStringList>("variables");
    QTest::newRow("no colours") << Colors() << u"History"_s << QStringList();
    QTest::newRow("one") << Colors{rgb(0x3B82F6, u"Ocean Blue"_s)} << u"History"_s
                         << QStringList{u"--ocean-blue"_s};
    QStringList numbers;
    for (int count = 1; count <= 100; ++count) {
        numbers.append(u"--color-"_s + QString::number(count));
        if (count == 10 || count == 11 || count == 100) {
            QTest::newRow(QByteArray::number(count).constData()) << unnamed(count) << u"History"_s << numbers;
        }
    }
    QTest::newRow("unusual names") << named() << u"\"A\" 'b' /* {c} <d> \\ 空 👩‍🎨\n*"_s
                                   << QStringList{u"--éclair-brûlé"_s,
                                                  u"--e\u0301tat"_s,
                                                  u"--синее-небо"_s,
                                                  u"--空の色"_s,
                                                  u"--하늘"_s,
                                                  u"--नीला-आसमान"_s,
                                                  u"--ท้องฟ้า"_s,
                                                  u"--أزرق-فاتح"_s,
                                                  u"--תכלת"_s,
                                                  u"--𐐨-𝒜"_s,
                                                  u"---paint"_s,
                                                  u"--quoted-twice"_s,
                                                  u"--abc"_s,
                                                  u"--abcde"_s,
                                                  u"--style-----"_s,
                                                  u"--1-reds"_s,
                                                  u"--42"_s,
                                                  u"---"_s,
                                                  u"--x²-½-ⅷ-ª"_s,
                                                  u"---"_s,
                                                  u"-----"_s,
                                                  u"--"_s,
                                                  u"--"_s};
}

void ExportedFilesTest::aCssParserReadsTheVariables()
{
    QFETCH(const Colors, colors);
    QFETCH(const QString, paletteName);
    QFETCH(const QStringList, variables);
    QCOMPARE(colors.size(), variables.size());
    QJsonArray expected;
    for (qsizetype i = 0; i < colors.size(); ++i) {
        expected.append(QJsonArray{variables[i], colors[i].hex6()});
    }
    const QJsonDocument read = readCss(ColorExport::buildCSS(colors, paletteName).toUtf8());
    QCOMPARE(read.array(), QJsonArray{QJsonValue(expected)});
}

void ExportedFilesTest::theCssReaderRefusesOtherCss_data()
{
    QTest::addColumn<QByteArray>("css");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QByteArray() << u"not one rule"_s;
    QTest::newRow("two rules") << QByteArray(":root {} :root {}") << u"not one rule"_s;
    QTest::newRow("another selector") << QByteArray("body { --a: #000000; }") << u"a rule for body"_s;
    QTest::newRow("no colon") << QByteArray(":root { --a #000000; }") << u"no declaration"_s;
    QTest::newRow("no name") << QByteArray(":root { : #000000; }") << u"no declaration"_s;
    QTest::newRow("no colour") << QByteArray(":root { --a: #00000; }") << u"no colour: #00000"_s;
    // The palette name is written into the CSS comment without escaping. This name ends the comment early. The rest of
    // the line becomes part of the selector, so a browser ignores the rule.
    QTest::newRow("a palette name that ends the comment")
        << ColorExport::buildCSS({rgb(0x3B82F6)}, u"Sea */ Sky"_s).toUtf8()
        << u"a rule for Sky — generated by Tintwick */\n:root"_s;
}

void ExportedFilesTest::theCssReaderRefusesOtherCss()
{
    QFETCH(const QByteArray, css);
    QFETCH(const QString, reason);
    QCOMPARE(readCss(css).array(), QJsonArray{reason});
}

void ExportedFilesTest::aJsonReaderReadsTheColors_data()
{
    QTest::addColumn<Colors>("colors");
    QTest::newRow("none") << Colors();
    for (const int count : {1, 10, 11, 100}) {
        QTest::newRow(QByteArray::number(count).constData()) << unnamed(count);
    }
    QTest::newRow("unusual names") << named();
    Colors controls;
    for (char16_t unit = 0; unit < 0x20; ++unit) {
        controls.append(rgb(0x3B82F6, QString(QChar(unit)) + u'\u007f'));
    }
    QTest::newRow("control characters in names") << controls;
}

void ExportedFilesTest::aJsonReaderReadsTheColors()
{
    QFETCH(const Colors, colors);
    const QByteArray output = readBy(u"read_json.py"_s, ColorExport::buildJSON(colors));
    const QJsonDocument read = QJsonDocument::fromJson(output);
    QVERIFY(read.isArray());
    QCOMPARE(read.array().size(), colors.size());
    for (qsizetype i = 0; i < colors.size(); ++i) {
        const QJsonObject object = read.array().at(i).toObject();
        QCOMPARE(object.value("hex"_L1).toString(), colors[i].hex6());
        QCOMPARE(object.contains("name"_L1), colors[i].customName.has_value());
        QCOMPARE(object.value("name"_L1).toString(), colors[i].customName.value_or(QString()));
        QVERIFY(object.contains("rgb"_L1) && object.contains("hsl"_L1) && object.contains("tailwind"_L1));
    }
    // The JSON reader keeps the order of the members.
    if (!colors.isEmpty()) {
        QVERIFY(output.indexOf(R"("hex")") < output.indexOf(R"("rgb")"));
        QVERIFY(output.indexOf(R"("rgb")") < output.indexOf(R"("hsl")"));
        QVERIFY(output.indexOf(R"("hsl")") < output.indexOf(R"("tailwind")"));
    }
}

void ExportedFilesTest::anImageProgramReadsThePicture_data()
{
    QTest::addColumn<Colors>("colors");
    QTest::addColumn<QByteArray>("size");
    QTest::addColumn<QByteArray>("lastPixel");
    QTest::newRow("1") << unnamed(1) << QByteArray("68x68") << QByteArray("255,0,0");
    QTest::newRow("10") << unnamed(10) << QByteArray("644x68") << QByteArray("255,0,45");
    QTest::newRow("11") << unnamed(11) << QByteArray("644x132") << QByteArray("255,0,50");
    QTest::newRow("100") << unnamed(100) << QByteArray("644x644") << QByteArray("255,1,239");
    QTest::newRow("translucent") << Colors{rgb(0xFF8000, {}, 0.5)} << QByteArray("68x68")
                                 << QByteArray("147,83,19");
}

void ExportedFilesTest::anImageProgramReadsThePicture()
{
    QFETCH(const Colors, colors);
    QFETCH(const QByteArray, size);
    QFETCH(const QByteArray, lastPixel);
    const auto png = ColorExport::buildPNG(colors);
    QVERIFY(png.has_value());
    const qsizetype last = colors.size() - 1;
    const QString middle = u"p{%1,%2}"_s.arg(34 + last % 10 * 64).arg(34 + last / 10 * 64);
    const QString channels =
        u"%[fx:round(255*@.r)],%[fx:round(255*@.g)],%[fx:round(255*@.b)]"_s.replace(u'@', middle);
    const QString format =
        u"%m %wx%h %[colorspace] %[profile:icc] opaque=%[opaque] %[fx:round(resolution.x)] dpi|"_s +
        channels + u"|%[fx:round(255*p{0,0}.r)]"_s;
    const QByteArray description =
        outputOf(u"identify"_s, {u"-units"_s, u"PixelsPerInch"_s, u"-format"_s, format, put(*png)});
    // The versions of the program write "True" and "true".
    QCOMPARE(description.toLower(), "png " + size + " srgb srgb opaque=true 72 dpi|" + lastPixel + "|38");
}

} // namespace tintwick

QTEST_GUILESS_MAIN(tintwick::ExportedFilesTest)
#include "ExportedFilesTest.moc"
