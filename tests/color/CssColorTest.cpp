#include "CssColor.h"

#include <QTest>

#include <cmath>

namespace tintwick {

namespace {

/// "#rrggbb", and "/ alpha" when the colour is not opaque.
QString textOf(const CssColor& color)
{
    QString text(QStringLiteral("#"));
    for (const double component : color.srgb) {
        text += QString::number(std::lround(component * 255), 16).rightJustified(2, u'0');
    }
    return color.alpha < 1 ? text + QStringLiteral(" / %1").arg(color.alpha) : text;
}

} // namespace

class CssColorTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFormOfAColorIsRead_data();
    void everyFormOfAColorIsRead();
    void colorsOutsideTheGamutAreMapped_data();
    void colorsOutsideTheGamutAreMapped();
    void otherTextsAreRefused_data();
    void otherTextsAreRefused();
};

void CssColorTest::everyFormOfAColorIsRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* text, const char* expected) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromLatin1(expected);
    };
    row("#3b82f6", "#3b82f6");
    row("#3B82F6", "#3b82f6");
    row("#f0a", "#ff00aa");
    row("#f0a8", "#ff00aa / 0.533333");
    row("#3b82f680", "#3b82f6 / 0.501961");
    row("  #fff\n", "#ffffff");
    row("red", "#ff0000");
    row("RebeccaPurple", "#663399");
    row("lightgoldenrodyellow", "#fafad2");
    row("transparent", "#000000 / 0");
    row("/* a */ red /* b */", "#ff0000");

    row("rgb(59, 130, 246)", "#3b82f6");
    row("rgb(59,130,246)", "#3b82f6");
    row("rgba(59, 130, 246, 0.5)", "#3b82f6 / 0.5");
    row("rgb(59 130 246)", "#3b82f6");
    row("rgb(59 130 246 / 50%)", "#3b82f6 / 0.5");
    row("RGB(59 130 246/.5)", "#3b82f6 / 0.5");
    row("rgb( 59 130 246 / 2 )", "#3b82f6");
    row("rgb(20% 40% 60%)", "#336699");
    row("rgb(20%,40%,60%)", "#336699");
    row("rgb(20% 102 60%)", "#336699");
    row("rgb(300 -5 0)", "#ff0000");
    row("rgb(none 128 none)", "#008000");
    row("rgb(255 0 0 / none)", "#ff0000 / 0");
    row("rgb(1e2 1.28e+2 +0)", "#648000");
    row("rgb(127.6 0 0)", "#800000");
    row("rgb(255/* r */0 0)", "#ff0000");

    row("hsl(217, 91%, 59%)", "#3780f6");
    row("hsl(120deg 100% 25%)", "#008000");
    row("hsl(120 100 25)", "#008000");
    row("hsl(-240 100% 25%)", "#008000");
    row("hsl(0.3333333turn 100% 25%)", "#008000");
    row("hsl(2.0943951rad 100% 25%)", "#008000");
    row("hsl(133.33333grad 100% 25%)", "#008000");
    row("hsla(480, 100%, 25%, 50%)", "#008000 / 0.5");
    row("hsl(30 -20% 40%)", "#666666");
    row("hsl(none 0% 40%)", "#666666");
    row("hwb(120 0% 50%)", "#008000");
    row("hwb(0 60% 60%)", "#808080");
    row("hwb(90 20% 40% / 0.25)", "#669933 / 0.25");

    // The examples of the CSS Color Module.
    row("lab(29.2345% 39.3825 20.0664)", "#7d2329");
    row("lab(29.2345 39.3825 20.0664)", "#7d2329");
    row("lab(52.2345% 40.1645 59.9971)", "#c65d06");
    row("lch(52.2345% 72.2 56.2)", "#c65d06");
    row("lch(52.2345 72.2 56.2deg / 0.5)", "#c65d06 / 0.5");
    row("oklab(40.101% 0.1147 0.0453)", "#7d2329");
    row("oklch(40.101% 0.12332 21.555)", "#7d2329");
    row("oklch(0.40101 0.12332 21.555)", "#7d2329");
    row("lab(100% 0 0)", "#ffffff");
    row("lab(150% 0 0)", "#ffffff");
    row("oklab(50% none none)", "#636363");
    row("lab(50% 25% -20%)", "#9b63a2");

    row("color(srgb 0.2 0.4 0.6)", "#336699");
    row("color(srgb 20% 40% 60% / 10%)", "#336699 / 0.1");
    row("color(srgb-linear 0.5 0.5 0.5)", "#bcbcbc");
    row("color(display-p3 1 1 1)", "#ffffff");
    row("color(display-p3 0.5 0.4 0.3)", "#846549");
    row("color(a98-rgb 0.5 0.4 0.3)", "#89664a");
    row("color(prophoto-rgb 0.5 0.4 0.3)", "#ab735a");
    row("color(rec2020 0.5 0.4 0.3)", "#9a7057");
    row("color(xyz 0.3 0.3 0.3)", "#a2918f");
    row("color(xyz-d65 0.3 0.3 0.3)", "#a2918f");
    row("color(xyz-d50 0.3 0.3 0.3)", "#9793a5");
}

void CssColorTest::everyFormOfAColorIsRead()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    const auto color = parseCssColor(text);
    QVERIFY(color);
    QCOMPARE(textOf(*color), expected);
    QVERIFY(!color->isGamutMapped);
}

void CssColorTest::colorsOutsideTheGamutAreMapped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* text, const char* expected) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromLatin1(expected);
    };
    // Computed by a separate program with matrices from the primaries and Oklab's own linear sRGB matrix.
    row("color(display-p3 0 1 0)", "#00fb29");
    row("color(display-p3 1 0 0)", "#ff0b0c");
    row("color(rec2020 0 0 1 / 0.5)", "#005193 / 0.5");
    row("oklch(70% 0.4 150)", "#00c248");
    row("oklch(90% 0.3 100)", "#ffdf00");
    row("lch(50% 150 30)", "#f80047");
    row("lab(100% 50 50)", "#ffffff");
    row("color(srgb 2 2 2)", "#ffffff");
    row("oklch(0% 0.3 100)", "#000000");
}

void CssColorTest::colorsOutsideTheGamutAreMapped()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    const auto color = parseCssColor(text);
    QVERIFY(color);
    QCOMPARE(textOf(*color), expected);
    QVERIFY(color->isGamutMapped);
}

void CssColorTest::otherTextsAreRefused_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"",
                             " ",
                             "#",
                             "#ff",
                             "#fffff",
                             "#fffffff",
                             "#fffffffff",
                             "#ggg",
                             "# fff",
                             "#+ff",
                             "reddish",
                             "red blue",
                             "currentcolor",
                             "canvas",
                             "rgb",
                             "rgb(",
                             "rgb()",
                             "rgb(1 2)",
                             "rgb(1 2 3",
                             "rgb(1 2 3))",
                             "rgb(1 2 3 4)",
                             "rgb(1, 2 3)",
                             "rgb(1 2, 3)",
                             "rgb(1, 2, 3 / 1)",
                             "rgb(1 2 3, 1)",
                             "rgb(1, 2%, 3)",
                             "rgb(1deg 2 3)",
                             "rgb(none, 2, 3)",
                             "rgb(1px 2 3)",
                             "rgb(1. 2 3)",
                             "rgb (1 2 3)",
                             "rgb(1 2 3 /)",
                             "rgb(1 2 3 / 1deg)",
                             "rgb(1e999 0 0)",
                             "hsl(1%, 2%, 3%)",
                             "hsl(1, 2, 3)",
                             "hwb(1, 2%, 3%)",
                             "lab(1, 2, 3)",
                             "lch(50% 20 10%)",
                             "color(srgb, 1, 1, 1)",
                             "color(foo 1 1 1)",
                             "color(srgb 1 1)",
                             "color(1 1 1)",
                             "oklch(calc(1) 0 0)",
                             "rgb(1 2 3); x",
                             "--x: red",
                             "/* red",
                             "hsl(1foo 2% 3%)"}) {
        QTest::newRow(text) << QString::fromUtf8(text);
    }
}

void CssColorTest::otherTextsAreRefused()
{
    QFETCH(QString, text);
    QVERIFY(!parseCssColor(text));
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::CssColorTest)
#include "CssColorTest.moc"
