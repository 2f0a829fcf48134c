#include "ColorSearch.h"
#include "state/StateFixture.h"

#include <QTest>

namespace tintwick {

namespace {

using test::StateFixture;
using namespace Qt::StringLiterals;

/// "#0A0B0C #FF0000"
QString codes(const QList<CapturedColor>& colors)
{
    QStringList texts;
    for (const CapturedColor& color : colors) {
        texts += color.hex6();
    }
    return texts.join(u' ');
}

} // namespace

class ColorSearchTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachWordOccursInWhatIsKnownOfAColor_data();
    void eachWordOccursInWhatIsKnownOfAColor();
    void aColorThatOnlyAPaletteHoldsIsFound();
    void likeColorsComeFirst_data();
    void likeColorsComeFirst();
};

void ColorSearchTest::eachWordOccursInWhatIsKnownOfAColor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("found");
    QTest::newRow("nothing") << u" "_s << u"#3B82F6 #FF0000 #DC143C"_s;
    QTest::newRow("the name from the table") << u"crims"_s << u"#DC143C"_s;
    QTest::newRow("a given name, in another case") << u"SIGNAL"_s << u"#FF0000"_s;
    QTest::newRow("a code") << u"#3b82"_s << u"#3B82F6"_s;
    QTest::newRow("a part of a code") << u"f6"_s << u"#3B82F6"_s;
    QTest::newRow("a token") << u"blue-500"_s << u"#3B82F6"_s;
    QTest::newRow("a shade") << u"-600"_s << u"#FF0000 #DC143C"_s;
    QTest::newRow("a palette") << u"brand"_s << u"#3B82F6 #DC143C"_s;
    QTest::newRow("words of different kinds") << u"brand rose-"_s << u"#DC143C"_s;
    QTest::newRow("a word that nothing has") << u"brand unknown"_s << u""_s;
}

void ColorSearchTest::eachWordOccursInWhatIsKnownOfAColor()
{
    QFETCH(const QString, text);
    QFETCH(const QString, found);
    StateFixture fixture;
    const QUuid crimson = fixture.pick(0xDC143C);
    fixture->renameColor(fixture.pick(0xFF0000), u"Signal"_s);
    const QUuid blue = fixture.pick(0x3B82F6);
    fixture.palette(u"Brand"_s, {blue, crimson});
    QCOMPARE(codes(matchingColors(fixture.state(), text)), found);
}

void ColorSearchTest::aColorThatOnlyAPaletteHoldsIsFound()
{
    StateFixture fixture;
    fixture.palette(u"Brand"_s, {fixture.pick(0xFF0000)});
    fixture.pickMany(100);
    QCOMPARE(codes(matchingColors(fixture.state(), u"brand"_s)), u"#FF0000"_s);
    QCOMPARE(codes(similarColors(fixture.state(), CapturedColor::capture(0xFF0000)).first(1)), u"#FF0000"_s);
}

void ColorSearchTest::likeColorsComeFirst_data()
{
    QTest::addColumn<unsigned>("color");
    QTest::addColumn<QString>("order");
    // The distances were worked out with python from the matrices of Oklab.
    QTest::newRow("to blue") << 0x0000FFU << u"#0000FF #3B82F6 #FF0000 #000000 #FFFF00"_s;
    QTest::newRow("to orange") << 0xFFA500U << u"#FFFF00 #FF0000 #3B82F6 #0000FF #000000"_s;
}

void ColorSearchTest::likeColorsComeFirst()
{
    QFETCH(const unsigned, color);
    QFETCH(const QString, order);
    StateFixture fixture;
    for (const std::uint32_t rgb : {0x000000U, 0xFF0000U, 0x3B82F6U, 0xFFFF00U, 0x0000FFU}) {
        fixture.pick(rgb);
    }
    QCOMPARE(codes(similarColors(fixture.state(), CapturedColor::capture(color))), order);
}

} // namespace tintwick

QTEST_MAIN(tintwick::ColorSearchTest)
#include "ColorSearchTest.moc"
