#include "ColorText.h"

#include <QTest>

namespace tintwick {

class ColorTextTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aWrittenColorIsRead_data();
    void aWrittenColorIsRead();
    void otherTextsAreRefused_data();
    void otherTextsAreRefused();
};

void ColorTextTest::aWrittenColorIsRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("hex");
    QTest::addColumn<bool>("isGamutMapped");
    const auto row = [](const char* text, const char* hex, bool isGamutMapped = false) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromLatin1(hex) << isGamutMapped;
    };
    row("#3b82f6", "#3B82F6FF");
    row("rgb(59 130 246 / 50%)", "#3B82F680");
    row("tomato", "#FF6347FF");
    row("Pale Violet", "#DB7093FF");
    row("pale violet", "#DB7093FF");
    row(" Dodger Blue ", "#1E90FFFF");
    row("blue-500", "#3B82F6FF");
    row("Rose-950", "#4C0519FF");
    row("slate-50", "#F8FAFCFF");
    // Not a name of CSS.
    row("Charcoal", "#36454FFF");
    row("color(display-p3 0 1 0)", "#00FB29FF", true);
    row("3B82F6", "#3B82F6FF");
    row("3b82f680", "#3B82F680");
    row("0x803B82F6", "#3B82F680");
    row("0X3B82F6", "#3B82F6FF");
    row("hsv(217, 76%, 96%)", "#3B82F5FF");
    row("HSB(0 100% 100%)", "#FF0000FF");
    row("cmyk(76%, 47%, 0%, 4%)", "#3B82F5FF");
    row("cmyk(0 0 0 1)", "#000000FF");
    row("59, 130, 246", "#3B82F6FF");
    row("59 130 246", "#3B82F6FF");
    row("1,0,1", "#010001FF");
    row("0.231, 0.510, 0.965", "#3B82F6FF");
    row("1.0, 0, .5", "#FF0080FF");
}

void ColorTextTest::aWrittenColorIsRead()
{
    QFETCH(QString, text);
    const auto written = colorFromText(text);
    QVERIFY(written);
    QTEST(written->color.hex8(), "hex");
    QTEST(written->isGamutMapped, "isGamutMapped");
    QVERIFY(!written->color.customName);
}

void ColorTextTest::otherTextsAreRefused_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"",
                             "blue-",
                             "blue-55",
                             "blue-0500",
                             "-500",
                             "ultra-500",
                             "Pale  Violet",
                             "Unknown",
                             "color(foo 1 1 1)",
                             "blue 500",
                             "3B8",
                             "3B82F",
                             "3B82F6FF0",
                             "3B82G6",
                             "0x3B8",
                             "256, 0, 0",
                             "1.5, 0, 0",
                             "1, 2",
                             "1, 2, 3, 4",
                             "-1, 0, 0",
                             "1,,2",
                             "10%, 20%, 30%",
                             "hsv(217, 76%)",
                             "hsv(217, 120%, 96%)",
                             "hsv(217, 76, 96)",
                             "cmyk(1%, 2%, 3%)",
                             "hsv(a, b, c)",
                             "hsv()",
                             "hsv(0, 100%, 100%"}) {
        QTest::newRow(text) << QString::fromUtf8(text);
    }
}

void ColorTextTest::otherTextsAreRefused()
{
    QFETCH(QString, text);
    QVERIFY(!colorFromText(text));
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::ColorTextTest)
#include "ColorTextTest.moc"
