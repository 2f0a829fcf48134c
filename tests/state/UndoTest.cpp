#include "state/StateFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>

namespace tintwick {

namespace {

using test::StateFixture;
using namespace Qt::StringLiterals;

} // namespace

class UndoTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachChangeIsTakenBackAndMadeAgain_data();
    void eachChangeIsTakenBackAndMadeAgain();
    void aSortIsTakenBack();
    void aCopyKeepsTheColorOfTheIcon();
    void nothingIsTakenBackWithoutAChange();
    void aChangeWithoutEffectIsNone();
    void fiftyChangesAreTakenBack();
    void aNewChangeEndsTheWayForward();
    void aPickIsNotTakenBack();
    void aPickBetweenStays();
    void aPickKeepsTheWayForward();
    void theHistoryStaysAtItsLimit();
    void aColorThatLeftTheHistoryMeanwhileStaysInItsPalette();
    void insertedColorsPushOutTheOldest();
    void aRemovedKeptColorComesBack();
    void aLongStoredHistoryComesBackWhole();
    void editsOfTheFileBetweenStay();
    void aNameGivenInTheFileMeanwhileStays();
    void whatIsUndoneIsSaved();
};

/// Two colours in the history, red before green, both in the palette Brand, and an empty palette Sea.
class Filled : public StateFixture
{
public:
    Filled()
    {
        palette(u"Brand"_s, {red, green});
        palette(u"Sea"_s, {});
    }

    [[nodiscard]] QUuid brand() { return state().collections()[0].id; }
    [[nodiscard]] QUuid sea() { return state().collections()[1].id; }

    const QUuid green = pick(0x00FF00);
    const QUuid red = pick(0xFF0000);
};

void UndoTest::eachChangeIsTakenBackAndMadeAgain_data()
{
    using Make = std::function<void(Filled&)>;
    QTest::addColumn<Make>("make");
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("history");
    QTest::addColumn<QString>("palettes");
    const auto row = [](const char* name, const QString& what, const QString& history,
                        const QString& palettes,
                        const Make& make) { QTest::newRow(name) << make << what << history << palettes; };
    const QString both = u"#FF0000 #00FF00"_s;
    const QString asBefore = u"Brand: #FF0000 #00FF00; Sea:"_s;
    row("a color deleted", u"Removed Red"_s, u"#00FF00"_s, u"Brand: #00FF00; Sea:"_s,
        [](Filled& filled) { filled->deleteColor(filled.red); });
    row("the last color deleted", u"Removed Lime"_s, u"#FF0000"_s, u"Brand: #FF0000; Sea:"_s,
        [](Filled& filled) { filled->deleteColor(filled.green); });
    row("both colors deleted", u"Removed 2 colors"_s, u""_s, u"Brand:; Sea:"_s, [](Filled& filled) {
        filled->deleteColors({filled.green, filled.red});
    });
    row("the history cleared", u"Removed 2 colors"_s, u""_s, u"Brand:; Sea:"_s,
        [](Filled& filled) { filled->clearHistory(); });
    row("a color renamed", u"Renamed Red"_s, both, asBefore,
        [](Filled& filled) { filled->renameColor(filled.red, u"Signal"_s); });
    row("a palette created", u"Created Sky"_s, both, u"Brand: #FF0000 #00FF00; Sea:; Sky:"_s,
        [](Filled& filled) { filled->createCollection(u"Sky"_s); });
    row("a palette created with colors", u"Created Sky"_s, both,
        u"Brand: #FF0000 #00FF00; Sea:; Sky: #00FF00 #FF0000"_s, [](Filled& filled) {
            filled->createCollection(u"Sky"_s, {filled.green, filled.red, filled.green});
        });
    row("a palette renamed", u"Renamed Brand"_s, both, u"Old: #FF0000 #00FF00; Sea:"_s,
        [](Filled& filled) { filled->renameCollection(filled.brand(), u"Old"_s); });
    row("a palette duplicated", u"Duplicated Brand"_s, both,
        u"Brand: #FF0000 #00FF00; Brand copy: #FF0000 #00FF00; Sea:"_s,
        [](Filled& filled) { filled->duplicateCollection(filled.brand()); });
    row("the icon of a palette colored", u"Changed the icon of Brand"_s, both, asBefore,
        [](Filled& filled) { filled->setIconColor(filled.brand(), u"blue"_s); });
    row("a palette removed", u"Removed Brand"_s, both, u"Sea:"_s,
        [](Filled& filled) { filled->deleteCollection(filled.brand()); });
    row("a color added", u"Added Red"_s, both, u"Brand: #FF0000 #00FF00; Sea: #FF0000"_s,
        [](Filled& filled) { filled->addColor(filled.red, filled.sea()); });
    row("colors added", u"Added 2 colors"_s, both, u"Brand: #FF0000 #00FF00; Sea: #00FF00 #FF0000"_s,
        [](Filled& filled) {
            filled->addColors({filled.green, filled.red}, filled.sea());
        });
    row("a color inserted", u"Added Dodger Blue"_s, u"#1E90FF #FF0000 #00FF00"_s, asBefore,
        [](Filled& filled) { filled->insertColors({CapturedColor::capture(0x1E90FF)}); });
    row("colors inserted", u"Added 2 colors"_s, u"#0000FF #1E90FF #FF0000 #00FF00"_s, asBefore,
        [](Filled& filled) {
            filled->insertColors({CapturedColor::capture(0x0000FF), CapturedColor::capture(0x1E90FF)});
        });
    row("a color removed from a palette", u"Removed Red"_s, both, u"Brand: #00FF00; Sea:"_s,
        [](Filled& filled) { filled->removeColor(filled.red, filled.brand()); });
    row("both colors removed from a palette", u"Removed 2 colors"_s, both, u"Brand:; Sea:"_s,
        [](Filled& filled) {
            filled->removeColors({filled.green, filled.red}, filled.brand());
        });
    row("a color moved", u"Moved Lime"_s, both, u"Brand: #00FF00 #FF0000; Sea:"_s,
        [](Filled& filled) { filled->moveColors(filled.brand(), {1}, 0); });
}

void UndoTest::eachChangeIsTakenBackAndMadeAgain()
{
    QFETCH(const std::function<void(Filled&)>, make);
    QFETCH(const QString, what);
    QFETCH(const QString, history);
    QFETCH(const QString, palettes);
    Filled filled;
    const auto historyBefore = filled->history();
    const auto collectionsBefore = filled->collections();
    QSignalSpy made(&filled.state(), &AppState::changeMade);
    QSignalSpy undone(&filled.state(), &AppState::changeUndone);

    make(filled);
    QCOMPARE(filled.history(), history);
    QCOMPARE(filled.palettes(), palettes);
    QCOMPARE(made.takeFirst(), QVariantList{what});
    const auto historyAfter = filled->history();
    const auto collectionsAfter = filled->collections();

    filled->undo();
    QCOMPARE(filled->history(), historyBefore);
    QCOMPARE(filled->collections(), collectionsBefore);
    QCOMPARE(undone.takeFirst(), QVariantList{what});

    filled->redo();
    QCOMPARE(filled->history(), historyAfter);
    QCOMPARE(filled->collections(), collectionsAfter);
    QCOMPARE(made.takeFirst(), QVariantList{what});
}

void UndoTest::aSortIsTakenBack()
{
    Filled filled;
    const QUuid unknown = QUuid::createUuid();
    filled->moveColors(filled.brand(), {1}, 0);
    filled->addColor(unknown, filled.brand());
    filled->moveColors(filled.brand(), {2}, 0);
    QSignalSpy made(&filled.state(), &AppState::changeMade);
    filled->sortCollection(filled.brand(), ColorOrder::Lightness);
    QCOMPARE(filled->collections()[0].colorIds, (QList<QUuid>{filled.red, filled.green, unknown}));
    QCOMPARE(made.takeFirst(), QVariantList{u"Sorted Brand"_s});
    filled->undo();
    QCOMPARE(filled->collections()[0].colorIds, (QList<QUuid>{unknown, filled.green, filled.red}));
}

void UndoTest::aCopyKeepsTheColorOfTheIcon()
{
    Filled filled;
    filled->setIconColor(filled.brand(), u"blue"_s);
    filled->duplicateCollection(filled.brand());
    QCOMPARE(filled->collections()[1].iconColor, u"blue"_s);
    filled.restart();
    QCOMPARE(filled->collections()[1].iconColor, u"blue"_s);
}

void UndoTest::nothingIsTakenBackWithoutAChange()
{
    StateFixture fixture;
    QSignalSpy made(&fixture.state(), &AppState::changeMade);
    QSignalSpy undone(&fixture.state(), &AppState::changeUndone);
    fixture->undo();
    fixture->redo();
    QVERIFY(made.isEmpty());
    QVERIFY(undone.isEmpty());
}

void UndoTest::aChangeWithoutEffectIsNone()
{
    Filled filled;
    QSignalSpy made(&filled.state(), &AppState::changeMade);
    filled->moveColors(filled.brand(), {0}, 1);
    filled->renameColor(filled.red, u"Red"_s);
    filled->addColor(filled.red, filled.brand());
    filled->deleteColor(QUuid::createUuid());
    filled->deleteCollection(QUuid::createUuid());
    filled->removeColor(filled.red, filled.sea());
    filled->insertColors({});
    QVERIFY(made.isEmpty());
}

void UndoTest::fiftyChangesAreTakenBack()
{
    Filled filled;
    for (int i = 1; i <= 60; ++i) {
        filled->renameColor(filled.red, QString::number(i));
    }
    for (int i = 0; i < 60; ++i) {
        filled->undo();
    }
    QCOMPARE(filled->history().first().customName, u"10"_s);
    for (int i = 0; i < 60; ++i) {
        filled->redo();
    }
    QCOMPARE(filled->history().first().customName, u"60"_s);
}

void UndoTest::aNewChangeEndsTheWayForward()
{
    Filled filled;
    filled->deleteColor(filled.red);
    filled->undo();
    filled->deleteColor(filled.green);
    filled->redo();
    QCOMPARE(filled.history(), u"#FF0000"_s);
}

void UndoTest::aPickIsNotTakenBack()
{
    StateFixture fixture;
    fixture.pick(0x0000FF);
    fixture->undo();
    QCOMPARE(fixture.history(), u"#0000FF"_s);
}

void UndoTest::aPickBetweenStays()
{
    Filled filled;
    filled->deleteColor(filled.red);
    filled.pick(0x0000FF);
    filled->clearHistory();
    filled.pick(0x00FFFF);
    filled->undo();
    QCOMPARE(filled.history(), u"#00FFFF #0000FF #00FF00"_s);
    filled->undo();
    QCOMPARE(filled.history(), u"#00FFFF #0000FF #FF0000 #00FF00"_s);
    QCOMPARE(filled.palettes(), u"Brand: #FF0000 #00FF00; Sea:"_s);
}

void UndoTest::aPickKeepsTheWayForward()
{
    Filled filled;
    filled->deleteColor(filled.red);
    filled->undo();
    filled.pick(0x0000FF);
    filled->redo();
    QCOMPARE(filled.history(), u"#0000FF #00FF00"_s);
}

void UndoTest::theHistoryStaysAtItsLimit()
{
    StateFixture fixture;
    const QUuid oldest = fixture.pick(0xFF0000);
    fixture.pickMany(98);
    const QUuid newest = fixture.pick(0x00FF00);
    fixture->deleteColor(newest);
    fixture.pick(0x0000FF);
    QCOMPARE(fixture->history().last().id, oldest);
    fixture->undo();
    QCOMPARE(fixture->history().size(), 100);
    QCOMPARE(fixture->history()[0].hex6(), u"#0000FF"_s);
    QCOMPARE(fixture->history()[1].id, newest);
    QVERIFY(fixture->history().last().id != oldest);
}

void UndoTest::aColorThatLeftTheHistoryMeanwhileStaysInItsPalette()
{
    Filled filled;
    filled->removeColor(filled.red, filled.brand());
    filled.pickMany(100);
    QCOMPARE(filled.palettes(), u"Brand: #00FF00; Sea:"_s);
    filled->undo();
    QCOMPARE(filled.palettes(), u"Brand: #FF0000 #00FF00; Sea:"_s);
    filled.restart();
    QCOMPARE(filled.palettes(), u"Brand: #FF0000 #00FF00; Sea:"_s);
}

void UndoTest::insertedColorsPushOutTheOldest()
{
    Filled filled;
    filled.pickMany(97);
    const auto before = filled->history();
    QList<CapturedColor> colors;
    for (const std::uint32_t rgb : {0x0000FFU, 0xFFFF00U}) {
        colors.append(CapturedColor::capture(rgb));
    }
    filled->insertColors(colors);
    QCOMPARE(filled->history().size(), 100);
    QVERIFY(filled.history().startsWith(u"#0000FF #FFFF00 #000060"_s));
    QVERIFY(filled.history().endsWith(u"#000000 #FF0000"_s));
    QCOMPARE(filled.palettes(), u"Brand: #FF0000 #00FF00; Sea:"_s);
    filled->undo();
    QCOMPARE(filled->history(), before);
}

void UndoTest::aRemovedKeptColorComesBack()
{
    Filled filled;
    filled.pickMany(100);
    filled->clearHistory();
    QCOMPARE(filled.palettes(), u"Brand:; Sea:"_s);
    filled->undo();
    QCOMPARE(filled.palettes(), u"Brand: #FF0000 #00FF00; Sea:"_s);
    QCOMPARE(filled->history().size(), 100);
    filled->deleteCollection(filled.brand());
    filled->undo();
    QCOMPARE(filled.palettes(), u"Brand: #FF0000 #00FF00; Sea:"_s);
}

void UndoTest::aLongStoredHistoryComesBackWhole()
{
    StateFixture fixture;
    Payload payload;
    for (std::uint32_t i = 0; i < 103; ++i) {
        payload.history.append(CapturedColor::capture(i));
    }
    QCOMPARE(DataFile().save(payload), 0);
    fixture.restart();
    fixture->clearHistory();
    fixture->undo();
    QCOMPARE(fixture->history().size(), 103);
}

void UndoTest::editsOfTheFileBetweenStay()
{
    Filled filled;
    filled->deleteCollection(filled.brand());
    filled->flush();
    Payload edited = DataFile().read().payload;
    edited.history.prepend(CapturedColor::capture(0x0000FF));
    edited.collections.append(ColorCollection::create(u"Theirs"_s));
    QCOMPARE(DataFile().save(edited), 0);

    filled->undo();
    filled->flush();
    QCOMPARE(filled.history(), u"#0000FF #FF0000 #00FF00"_s);
    QCOMPARE(filled.palettes(), u"Sea:; Theirs:; Brand: #FF0000 #00FF00"_s);
    filled->redo();
    QCOMPARE(filled.history(), u"#0000FF #FF0000 #00FF00"_s);
    QCOMPARE(filled.palettes(), u"Sea:; Theirs:"_s);
}

void UndoTest::aNameGivenInTheFileMeanwhileStays()
{
    Filled filled;
    filled->renameColor(filled.red, u"Ours"_s);
    filled->flush();
    Payload edited = DataFile().read().payload;
    edited.history.first().customName = u"Theirs"_s;
    QCOMPARE(DataFile().save(edited), 0);
    filled->setDefaultFormat(ColorFormat::Rgb);
    filled->flush();
    filled->undo();
    QCOMPARE(filled->history().first().customName, u"Theirs"_s);
    QCOMPARE(filled->defaultFormat(), ColorFormat::Rgb);
}

void UndoTest::whatIsUndoneIsSaved()
{
    Filled filled;
    filled->deleteColor(filled.red);
    filled->undo();
    filled.restart();
    QCOMPARE(filled.history(), u"#FF0000 #00FF00"_s);
    // The way back is that of one run.
    filled->undo();
    QCOMPARE(filled.history(), u"#FF0000 #00FF00"_s);
}

} // namespace tintwick

QTEST_MAIN(tintwick::UndoTest)
#include "UndoTest.moc"
