#include "PillContent.h"

#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(tintwick::SampledColor)
Q_DECLARE_METATYPE(tintwick::PillTone)

class PillContentTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aColorIsToldByCodeNameAndTone_data();
    void aColorIsToldByCodeNameAndTone();
    void everyByteOfTheScreenKeepsItsCode();
};

void PillContentTest::aColorIsToldByCodeNameAndTone_data()
{
    QTest::addColumn<SampledColor>("color");
    QTest::addColumn<QString>("hex");
    QTest::addColumn<QString>("name");
    QTest::addColumn<PillTone>("tone");

    const PillTone light = PillTone::LightBackground;
    const PillTone dark = PillTone::DarkBackground;
    QTest::newRow("white") << SampledColor{1, 1, 1} << u"FFFFFF"_s << u"White"_s << light;
    QTest::newRow("black") << SampledColor{0, 0, 0} << u"000000"_s << u"Black"_s << dark;
    QTest::newRow("0.999 × 255 = 254.7 is truncated")
        << SampledColor{0.999, 0.999, 0.999} << u"FEFEFE"_s << u"White"_s << light;
    QTest::newRow("single digits are padded")
        << SampledColor{1 / 255.0, 10 / 255.0, 0} << u"010A00"_s << u"Black"_s << dark;
    // The luminance of a gray is its level.
    const double darker = 114 / 255.0;
    const double lighter = 115 / 255.0;
    QTest::newRow("0.447 is dark") << SampledColor{darker, darker, darker} << u"727272"_s << u"Dim Gray"_s
                                   << dark;
    QTest::newRow("0.451 is light") << SampledColor{lighter, lighter, lighter} << u"737373"_s << u"Dim Gray"_s
                                    << light;
    QTest::newRow("more than 1 counts as 1") << SampledColor{1.2, -0.1, 0} << u"FF0000"_s << u"Red"_s << dark;
    // 0.7152, 0.2126 and 0.0722
    QTest::newRow("green is light") << SampledColor{0, 1, 0} << u"00FF00"_s << u"Lime"_s << light;
    QTest::newRow("red is dark") << SampledColor{1, 0, 0} << u"FF0000"_s << u"Red"_s << dark;
    QTest::newRow("blue is dark") << SampledColor{0, 0, 1} << u"0000FF"_s << u"Blue"_s << dark;
    QTest::newRow("red and blue together are dark")
        << SampledColor{1, 0, 1} << u"FF00FF"_s << u"Magenta"_s << dark;
}

void PillContentTest::aColorIsToldByCodeNameAndTone()
{
    QFETCH(const SampledColor, color);
    const PillContent content = PillContent::of(color);
    QTEST(content.hex, "hex");
    QTEST(content.name, "name");
    QTEST(content.tone, "tone");
}

void PillContentTest::everyByteOfTheScreenKeepsItsCode()
{
    for (int byte = 0; byte <= 255; ++byte) {
        const QString digits = u"%1"_s.arg(byte, 2, 16, QLatin1Char('0')).toUpper();
        QCOMPARE(PillContent::of({byte / 255.0, byte / 255.0, byte / 255.0}).hex, digits + digits + digits);
    }
}

QTEST_APPLESS_MAIN(PillContentTest)
#include "PillContentTest.moc"
