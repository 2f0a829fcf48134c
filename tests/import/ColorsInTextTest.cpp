#include "ColorsInText.h"
#include "ColorFormat.h"

#include <QTest>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// For each colour its code with the opacity, and its name.
QString described(const TextColors& found)
{
    QStringList texts;
    for (const CapturedColor& color : found.colors) {
        texts.append(
            (string(ColorFormat::Hex8, color) + u' ' + color.customName.value_or(QString())).trimmed());
    }
    return texts.join(u'|');
}

} // namespace

class ColorsInTextTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void colorsAreFound_data();
    void colorsAreFound();
    void otherTextHasNoColors_data();
    void otherTextHasNoColors();
    void colorsOutsideTheGamutAreCounted_data();
    void colorsOutsideTheGamutAreCounted();
    void atMostTheWantedNumberIsRead();
    void aLongTextIsReadInLinearTime_data();
    void aLongTextIsReadInLinearTime();
};

void ColorsInTextTest::colorsAreFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("found");
    const auto row = [](const char* name, const char* text, const char* found) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(found);
    };
    row("one code", "#3B82F6", "#3B82F6");
    row("white space around", " \n\t#3b82f6 \n", "#3B82F6");
    row("three, four, six and eight digits", "#38f\n#38f8\n#3B82F6\n#3B82F680",
        "#3388FF|#3388FF88|#3B82F6|#3B82F680");
    row("lines that end with semicolons and commas", "red;\n#00F,\n#0F0", "#FF0000|#0000FF|#00FF00");
    row("the forms of CSS",
        "rgb(59, 130, 246)\nrgb(59 130 246 / 50%)\nhsl(120deg 100% 50%)\nhwb(240 0% 0%)\n"
        "lab(100% 0 0)\nlch(0% 0 0)\noklab(1 0 0)\noklch(0 0 0)\ncolor(srgb 0 1 0)",
        "#3B82F6|#3B82F680|#00FF00|#0000FF|#FFFFFF|#000000");
    row("a function over lines", "rgb(\n  59,\n  130,\n  246\n)", "#3B82F6");
    row("names of CSS", "tomato\nRebeccaPurple", "#FF6347|#663399");
    row("our names", "Pale Violet\ndodger blue", "#DB7093|#1E90FF");
    row("Tailwind tokens", "blue-500\nROSE-950", "#3B82F6|#4C0519");
    row("other notations", "3B82F6\n0xFF3B82F6\nhsv(240, 100%, 100%)\n0.0, 1.0, 0.0\n255, 0, 0",
        "#3B82F6|#0000FF|#00FF00|#FF0000");
    row("a list in one line", "red, #00F, rgb(0, 255, 0), blue-500", "#FF0000|#0000FF|#00FF00|#3B82F6");
    row("bullets", "- #FF0000\n* blue\n3. lime", "#FF0000|#0000FF|#00FF00");
    row("a color that occurs again", "red\n#F00\nblue\nred", "#FF0000|#0000FF");
    row("named lines", "Sky: #38BDF8\nDeep Sea = rgb(0, 0, 128);\nSun : gold",
        "#38BDF8 Sky|#000080 Deep Sea|#FFD700 Sun");
    row("a color with two names", "Sky: #38BDF8\nWater: #38BDF8", "#38BDF8 Sky|#38BDF8 Water");
    row("custom properties", ":root {\n  --sky: #38BDF8; --sun-1:gold;\n  --text-color: #333 !important;\n}",
        "#38BDF8 sky|#FFD700 sun-1|#333333 text-color");
    row("SCSS", "// Brand\n$sky: #38BDF8 !default; /* #000 */\n$map: (\n  \"sun\": #FFD700,\n  sea: navy\n);",
        "#38BDF8 sky|#FFD700 sun|#000080 sea");
    row("rules",
        "a:hover #add {\n  color: red;\n  border: 1px solid tomato;\n  background: linear-gradient(90deg, "
        "#FFF, hsl(0 0% 0%));\n}\n#fab, #bad { fill: #00F }",
        "#FF0000|#FF6347|#FFFFFF|#000000|#0000FF");
    row("a minified style sheet", "a{color:#f00}b{color:#0f0;fill:blue}", "#FF0000|#00FF00|#0000FF");
    row("a shadow in a variable", "--shadow: 0 1px 2px #0008", "#00000088");
    row("JSON", R"({"sky": "#38BDF8", "more": {"sun": "gold", "size": 123456, "hex": "#00F"}})",
        "#38BDF8 sky|#FFD700 sun|#0000FF");
    row("a JSON list", R"(["#38BDF8", "gold"])", "#38BDF8|#FFD700");
    row("our JSON", R"([{"hex": "#38BDF8", "name": "Sky", "rgb": {"r": 56, "g": 189, "b": 248}}])",
        "#38BDF8 Sky");
    row("tokens", R"({"sky": {"$type": "color", "$value": "#38BDF8"}})", "#38BDF8 sky");
    row("script", "export const sky = '#38bdf8';\nconst colors = {\n  sun: 'gold',\n  sea: `#000080`,\n}",
        "#38BDF8 sky|#FFD700 sun|#000080 sea");
    row("markup", R"(<rect fill="#F00" stroke='rgb(0 0 255)'/>)", "#FF0000|#0000FF");
    row("a sentence with a code", "The sky is #38BDF8, the sun rgb(255 215 0).", "#38BDF8|#FFD700");
    row("a GIMP palette", "GIMP Palette\nName: Brand\n#\n 56 189 248\tSky\n", "#38BDF8 Sky");
    row("Windows line ends", "red\r\nblue\r\n", "#FF0000|#0000FF");
    row("a comment that does not end", "red /* blue", "");
    row("a comment that does not end, after a line", "#F00\n/* blue", "#FF0000");
}

void ColorsInTextTest::colorsAreFound()
{
    QFETCH(const QString, text);
    QFETCH(const QString, found);
    const TextColors result = colorsInText(text, 100);
    QCOMPARE(described(result), found);
    QVERIFY(!result.hasMore);
}

void ColorsInTextTest::otherTextHasNoColors_data()
{
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const char* text) {
        QTest::newRow(name) << QString::fromUtf8(text);
    };
    row("nothing", "");
    row("white space", " \n \t");
    row("prose with words for colors", "The red car is tan.\nHello, Orange.\nNote (green): done, see blue");
    row("the number of an issue", "Fixes #123 and #4567 of the list");
    row("an address", "https://example.org/page#add and https://example.org/?a=1#fade");
    row("numbers in JSON", R"({"id": 123456, "places": [100000, 200000], "at": [0.1, 0.2, 0.3]})");
    row("a commit", "commit: deadbeef");
    row("codes of another length", "#12\n#12345\n#123456789");
    row("a broken function", "rgb(1, 2\nhsl(a b c)");
    row("a relative color", "rgb(from red r g b)");
}

void ColorsInTextTest::otherTextHasNoColors()
{
    QFETCH(const QString, text);
    QCOMPARE(described(colorsInText(text, 100)), QString());
}

void ColorsInTextTest::colorsOutsideTheGamutAreCounted_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qsizetype>("count");
    QTest::addRow("a list") << u"color(display-p3 0 1 0)\n#F00\noklch(0.7 0.4 150)"_s << qsizetype(2);
    QTest::addRow("tokens") << uR"~({"a": {"$type": "color", "$value": "color(display-p3 0 1 0)"}})~"_s
                            << qsizetype(1);
    QTest::addRow("inside") << u"color(display-p3 0.5 0.5 0.5)"_s << qsizetype(0);
}

void ColorsInTextTest::colorsOutsideTheGamutAreCounted()
{
    QFETCH(const QString, text);
    QFETCH(const qsizetype, count);
    QCOMPARE(colorsInText(text, 100).mappedCount, count);
}

void ColorsInTextTest::atMostTheWantedNumberIsRead()
{
    QCOMPARE(described(colorsInText(u"red\nlime\nblue"_s, 2)), u"#FF0000|#00FF00"_s);
    QVERIFY(colorsInText(u"red\nlime\nblue"_s, 2).hasMore);
    QVERIFY(!colorsInText(u"red\nlime\nblue"_s, 3).hasMore);
    QVERIFY(!colorsInText(u"red\nlime\nred"_s, 2).hasMore);
}

void ColorsInTextTest::aLongTextIsReadInLinearTime_data()
{
    QTest::addColumn<QString>("part");
    for (const char* part :
         {"word ", " ", "(", "rgb(", "a:", "#", "#fff ", "\"", "1 ", "1, ", "a{", "/", "é", "-"}) {
        QTest::newRow(part) << QString::fromUtf8(part);
    }
}

void ColorsInTextTest::aLongTextIsReadInLinearTime()
{
    QFETCH(const QString, part);
    // In quadratic time it would not end within the time limit of the test program.
    const QString text = part.repeated(3'000'000 / part.size());
    QVERIFY(colorsInText(u"x"_s + text + u"x"_s, 100).colors.size() <= 1);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::ColorsInTextTest)
#include "ColorsInTextTest.moc"
