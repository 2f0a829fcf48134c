#include "ColorOrder.h"

#include <QTest>

namespace tintwick {

class ColorOrderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void colorsAreSorted_data();
    void colorsAreSorted();
    void equalColorsKeepTheirOrder();
};

void ColorOrderTest::colorsAreSorted_data()
{
    QTest::addColumn<QString>("colors");
    QTest::addColumn<ColorOrder>("order");
    QTest::addColumn<QString>("sorted");
    const auto row = [](const char* name, ColorOrder order, const char* colors, const char* sorted) {
        QTest::newRow(name) << QString::fromLatin1(colors) << order << QString::fromLatin1(sorted);
    };
    row("none", ColorOrder::Hue, "", "");
    // OKLCH hues 29, 110, 142, 195, 264 and 328.
    row("hues", ColorOrder::Hue, "FF00FF 0000FF 00FFFF 00FF00 FFFF00 FF0000",
        "FF0000 FFFF00 00FF00 00FFFF 0000FF FF00FF");
    row("greys last, from dark to light", ColorOrder::Hue, "FFFFFF 808080 0000FF 000000 FF0000",
        "FF0000 0000FF 000000 808080 FFFFFF");
    row("almost grey", ColorOrder::Hue, "828080 0000FF", "0000FF 828080");
    row("lightness", ColorOrder::Lightness, "FFFFFF FFFF00 0000FF 00FF00 FF0000 000000",
        "000000 0000FF FF0000 00FF00 FFFF00 FFFFFF");
    // HSL gives both a lightness of 50 %; Oklab gives 0.45 and 0.97.
    row("as it looks, not as HSL has it", ColorOrder::Lightness, "FFFF00 0000FF", "0000FF FFFF00");
}

void ColorOrderTest::colorsAreSorted()
{
    QFETCH(const QString, colors);
    QFETCH(const ColorOrder, order);
    QList<CapturedColor> list;
    for (const QString& code : colors.split(u' ', Qt::SkipEmptyParts)) {
        list.append(CapturedColor::capture(code.toUInt(nullptr, 16)));
    }
    QStringList codes;
    for (const CapturedColor& color : tintwick::sorted(list, order)) {
        codes.append(color.hex6().mid(1));
    }
    QTEST(codes.join(u' '), "sorted");
}

void ColorOrderTest::equalColorsKeepTheirOrder()
{
    const QList<CapturedColor> same{CapturedColor::capture(0x3B82F6), CapturedColor::capture(0x3B82F6),
                                    CapturedColor::capture(0x3B82F6)};
    QCOMPARE(sorted(same, ColorOrder::Hue), same);
    QCOMPARE(sorted(same, ColorOrder::Lightness), same);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::ColorOrderTest)
#include "ColorOrderTest.moc"
