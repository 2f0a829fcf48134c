#include "PillContent.h"

#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(tintwick::PillTone)

class PillContentTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aColorHasACodeANameAndATone_data();
    void aColorHasACodeANameAndATone();
    void everyByteKeepsItsCode();
};

void PillContentTest::aColorHasACodeANameAndATone_data()
{
    QTest::addColumn<QRgb>("color");
    QTest::addColumn<QString>("hex");
    QTest::addColumn<QString>("name");
    QTest::addColumn<PillTone>("tone");

    const PillTone light = PillTone::LightBackground;
    const PillTone dark = PillTone::DarkBackground;
    QTest::newRow("white") << qRgb(255, 255, 255) << u"FFFFFF"_s << u"White"_s << light;
    QTest::newRow("black") << qRgb(0, 0, 0) << u"000000"_s << u"Black"_s << dark;
    QTest::newRow("single digits are padded") << qRgb(1, 10, 0) << u"010A00"_s << u"Black"_s << dark;
    // The luminance of a gray is its level.
    QTest::newRow("0.447 is dark") << qRgb(114, 114, 114) << u"727272"_s << u"Dim Gray"_s << dark;
    QTest::newRow("0.451 is light") << qRgb(115, 115, 115) << u"737373"_s << u"Dim Gray"_s << light;
    // Light Sea is (32, 178, 170).
    QTest::newRow("42 from its name") << qRgb(32, 220, 170) << u"20DCAA"_s << u"Light Sea"_s << light;
    QTest::newRow("43 from its name") << qRgb(32, 221, 170) << u"20DDAA"_s << u"near Light Sea"_s << light;
    // 0.7152, 0.2126 and 0.0722
    QTest::newRow("green is light") << qRgb(0, 255, 0) << u"00FF00"_s << u"Lime"_s << light;
    QTest::newRow("red is dark") << qRgb(255, 0, 0) << u"FF0000"_s << u"Red"_s << dark;
    QTest::newRow("blue is dark") << qRgb(0, 0, 255) << u"0000FF"_s << u"Blue"_s << dark;
    QTest::newRow("red and blue together are dark")
        << qRgb(255, 0, 255) << u"FF00FF"_s << u"Magenta"_s << dark;
}

void PillContentTest::aColorHasACodeANameAndATone()
{
    QFETCH(const QRgb, color);
    const PillContent content = PillContent::of(color);
    QTEST(content.hex, "hex");
    QTEST(content.name, "name");
    QTEST(content.tone, "tone");
}

void PillContentTest::everyByteKeepsItsCode()
{
    for (int byte = 0; byte <= 255; ++byte) {
        const QString digits = u"%1"_s.arg(byte, 2, 16, QLatin1Char('0')).toUpper();
        QCOMPARE(PillContent::of(qRgb(byte, byte, byte)).hex, digits + digits + digits);
    }
}

QTEST_APPLESS_MAIN(PillContentTest)
#include "PillContentTest.moc"
