#include "state/StateFixture.h"

#include <QTest>

namespace tintwick {

namespace {

using test::StateFixture;
using namespace Qt::StringLiterals;

/// A history of green, red and blue; red has the name Signal and is in the palette Brand.
class Picked : public StateFixture
{
public:
    Picked()
    {
        state().renameColor(red, u"Signal"_s);
        palette(u"Brand"_s, {red});
        green = pick(0x00FF00);
    }

    const QUuid blue = pick(0x0000FF);
    const QUuid red = pick(0xFF0000);
    QUuid green;
};

} // namespace

class RepeatedPickTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRepeatedPickIsAddedByDefault();
    void aRepeatedPickMovesTheColorToTheFront();
    void theCopiedTextHasTheNameOfTheMovedColor();
    void onlyAnEqualColorIsMoved_data();
    void onlyAnEqualColorIsMoved();
    void aMoveIsNotTakenBack();
    void aMoveIsSaved();
};

void RepeatedPickTest::aRepeatedPickIsAddedByDefault()
{
    Picked fixture;
    fixture.pick(0xFF0000);
    QCOMPARE(fixture.history(), u"#FF0000 #00FF00 #FF0000 #0000FF"_s);
}

void RepeatedPickTest::aRepeatedPickMovesTheColorToTheFront()
{
    Picked fixture;
    fixture->setRepeatedPick(RepeatedPick::Move);
    CapturedColor again = CapturedColor::capture(0xFF0000);
    again.capturedAt = QDateTime(QDate(2030, 1, 2), QTime(3, 4), Qt::UTC);
    fixture->addToHistory(again);
    QCOMPARE(fixture.history(), u"#FF0000 #00FF00 #0000FF"_s);
    const CapturedColor& moved = fixture->history().first();
    QCOMPARE(moved.id, fixture.red);
    QCOMPARE(moved.customName, u"Signal"_s);
    QCOMPARE(moved.capturedAt, again.capturedAt);
    QCOMPARE(fixture.palettes(), u"Brand: #FF0000"_s);
}

void RepeatedPickTest::theCopiedTextHasTheNameOfTheMovedColor()
{
    Picked fixture;
    const CapturedColor again = CapturedColor::capture(0xFF0000);
    QCOMPARE(fixture->copiedText(again, ColorFormat::ColorName), u"Red"_s);
    fixture->setRepeatedPick(RepeatedPick::Move);
    QCOMPARE(fixture->copiedText(again, ColorFormat::ColorName), u"Signal"_s);
}

void RepeatedPickTest::onlyAnEqualColorIsMoved_data()
{
    QTest::addColumn<double>("red");
    QTest::addColumn<double>("alpha");
    QTest::addColumn<QString>("history");
    QTest::newRow("rounds to the same") << 0.9999 << 1.0 << u"#FF0000 #00FF00 #0000FF"_s;
    QTest::newRow("one step darker") << 254 / 255.0 << 1.0 << u"#FE0000 #00FF00 #FF0000 #0000FF"_s;
    QTest::newRow("translucent") << 1.0 << 0.5 << u"#FF0000 #00FF00 #FF0000 #0000FF"_s;
}

void RepeatedPickTest::onlyAnEqualColorIsMoved()
{
    QFETCH(const double, red);
    QFETCH(const double, alpha);
    QFETCH(const QString, history);
    Picked fixture;
    fixture->setRepeatedPick(RepeatedPick::Move);
    fixture->addToHistory(CapturedColor::capture(red, 0, 0, alpha));
    QCOMPARE(fixture.history(), history);
}

void RepeatedPickTest::aMoveIsNotTakenBack()
{
    Picked fixture;
    fixture->setRepeatedPick(RepeatedPick::Move);
    fixture->deleteColor(fixture.blue);
    CapturedColor again = CapturedColor::capture(0xFF0000);
    again.capturedAt = again.capturedAt.addSecs(60);
    fixture->addToHistory(again);
    fixture.pick(0xFFFF00);
    fixture->undo();
    QCOMPARE(fixture.history(), u"#FFFF00 #FF0000 #00FF00 #0000FF"_s);
    fixture->redo();
    QCOMPARE(fixture.history(), u"#FFFF00 #FF0000 #00FF00"_s);
}

void RepeatedPickTest::aMoveIsSaved()
{
    Picked fixture;
    fixture->setRepeatedPick(RepeatedPick::Move);
    fixture.pick(0xFF0000);
    fixture.restart();
    QCOMPARE(fixture.history(), u"#FF0000 #00FF00 #0000FF"_s);
    QCOMPARE(fixture.palettes(), u"Brand: #FF0000"_s);
}

} // namespace tintwick

QTEST_MAIN(tintwick::RepeatedPickTest)
#include "RepeatedPickTest.moc"
