#include "PayloadCoding.h"
#include "state/StateFixture.h"

#include <QTest>

namespace tintwick {

namespace {

using test::StateFixture;
using namespace Qt::StringLiterals;

Payload stored(StateFixture& fixture)
{
    fixture->flush();
    QFile file(fixture.dataFile());
    return file.open(QIODevice::ReadOnly) ? decodePayload(file.readAll()).value_or(Payload()) : Payload();
}

QStringList keptNames(StateFixture& fixture)
{
    QStringList names;
    for (const CapturedColor& color : stored(fixture).keptColors) {
        names += color.customName.value_or(color.hex6());
    }
    return names;
}

} // namespace

/// Colours that a full history has dropped and a palette holds.
class KeptColorsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPaletteKeepsItsColorsWhenTheHistoryIsFull();
    void aHistoryThatHasItsColorsKeepsNoneApart();
    void aKeptColorIsDroppedWithItsLastPalette();
    void aKeptColorCanBeAddedToAnotherPalette();
    void aKeptColorIsRenamed();
    void aKeptColorIsDeleted();
    void clearingRemovesKeptColorsToo();
    void colorsOfAStoredFileThatNoPaletteHoldsAreDropped();
    void aVersionThatKeepsNoneTakesThemAwayOnlyWhileWeDoNotRun();
};

void KeptColorsTest::aPaletteKeepsItsColorsWhenTheHistoryIsFull()
{
    StateFixture fixture;
    const QUuid red = fixture.pick(0xFF0000);
    const QUuid green = fixture.pick(0x00FF00);
    fixture.palette(u"Brand"_s, {green, red});
    fixture.pickMany(99);
    QCOMPARE(fixture->history().size(), 100);
    QCOMPARE(fixture.palettes(), u"Brand: #00FF00 #FF0000"_s);
    QCOMPARE(keptNames(fixture), QStringList{u"Red"_s});

    fixture.pickMany(1);
    QCOMPARE(fixture->history().size(), 100);
    QCOMPARE(fixture.palettes(), u"Brand: #00FF00 #FF0000"_s);
    QCOMPARE(keptNames(fixture), (QStringList{u"Lime"_s, u"Red"_s}));

    fixture.restart();
    QCOMPARE(fixture.palettes(), u"Brand: #00FF00 #FF0000"_s);
}

void KeptColorsTest::aHistoryThatHasItsColorsKeepsNoneApart()
{
    StateFixture fixture;
    fixture.pick(0x123456);
    const QUuid color = fixture.pick(0xFF0000);
    fixture.palette(u"Brand"_s, {color});
    fixture.pickMany(99);
    QFile file(fixture.dataFile());
    fixture->flush();
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(!file.readAll().contains("keptColors"));
}

void KeptColorsTest::aKeptColorIsDroppedWithItsLastPalette()
{
    StateFixture fixture;
    const QUuid red = fixture.pick(0xFF0000);
    const QUuid brand = fixture.palette(u"Brand"_s, {red});
    const QUuid sea = fixture.palette(u"Sea"_s, {red});
    fixture.pickMany(100);
    fixture->removeColor(red, brand);
    QCOMPARE(keptNames(fixture), QStringList{u"Red"_s});
    fixture->deleteCollection(sea);
    QCOMPARE(keptNames(fixture), QStringList());
    fixture->addColor(red, brand);
    QCOMPARE(fixture.palettes(), u"Brand:"_s);
}

void KeptColorsTest::aKeptColorCanBeAddedToAnotherPalette()
{
    StateFixture fixture;
    const QUuid red = fixture.pick(0xFF0000);
    const QUuid brand = fixture.palette(u"Brand"_s, {red});
    const QUuid sea = fixture.palette(u"Sea"_s, {});
    fixture.pickMany(100);
    fixture->addColor(red, sea);
    fixture->deleteCollection(brand);
    QCOMPARE(fixture.palettes(), u"Sea: #FF0000"_s);
    QCOMPARE(keptNames(fixture), QStringList{u"Red"_s});
}

void KeptColorsTest::aKeptColorIsRenamed()
{
    StateFixture fixture;
    const QUuid red = fixture.pick(0xFF0000);
    fixture.palette(u"Brand"_s, {red});
    fixture.pickMany(100);
    fixture->renameColor(red, u"Signal"_s);
    QCOMPARE(keptNames(fixture), QStringList{u"Signal"_s});
}

void KeptColorsTest::aKeptColorIsDeleted()
{
    StateFixture fixture;
    const QUuid red = fixture.pick(0xFF0000);
    fixture.palette(u"Brand"_s, {red});
    fixture.pickMany(100);
    fixture->deleteColor(red);
    QCOMPARE(fixture.palettes(), u"Brand:"_s);
    QCOMPARE(keptNames(fixture), QStringList());
}

void KeptColorsTest::clearingRemovesKeptColorsToo()
{
    StateFixture fixture;
    fixture.palette(u"Brand"_s, {fixture.pick(0xFF0000)});
    fixture.pickMany(100);
    fixture->clearHistory();
    QCOMPARE(fixture.palettes(), u"Brand:"_s);
    QCOMPARE(keptNames(fixture), QStringList());
}

void KeptColorsTest::colorsOfAStoredFileThatNoPaletteHoldsAreDropped()
{
    StateFixture fixture;
    ColorCollection brand = ColorCollection::create(u"Brand"_s);
    const CapturedColor inBoth = CapturedColor::capture(0x111111);
    const CapturedColor held = CapturedColor::capture(0x222222);
    const CapturedColor free = CapturedColor::capture(0x333333);
    brand.colorIds = {inBoth.id, held.id};
    QCOMPARE(DataFile().save({{inBoth}, {brand}, ColorFormat::Hex6, {free, inBoth, held}}), 0);
    fixture.restart();
    QCOMPARE(fixture.palettes(), u"Brand: #111111 #222222"_s);
    fixture->createCollection(u"New"_s);
    QCOMPARE(keptNames(fixture), QStringList{u"#222222"_s});
}

void KeptColorsTest::aVersionThatKeepsNoneTakesThemAwayOnlyWhileWeDoNotRun()
{
    StateFixture fixture;
    fixture.palette(u"Brand"_s, {fixture.pick(0xFF0000)});
    fixture.pickMany(100);
    Payload theirs = stored(fixture);
    theirs.keptColors.clear();
    QCOMPARE(DataFile().save(theirs), 0);
    fixture.pick(0x00FF00);
    QCOMPARE(keptNames(fixture), QStringList{u"Red"_s});

    QCOMPARE(DataFile().save(theirs), 0);
    fixture.restart();
    QCOMPARE(fixture.palettes(), u"Brand:"_s);
}

} // namespace tintwick

QTEST_MAIN(tintwick::KeptColorsTest)
#include "KeptColorsTest.moc"
