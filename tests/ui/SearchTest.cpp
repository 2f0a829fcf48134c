#include "ColorSwatchView.h"
#include "HistoryDetailView.h"
#include "TextField.h"
#include "ui/OwnHomeMain.h"
#include "ui/PanelFixture.h"

#include <QAccessible>
#include <QMenu>

using namespace tintwick;
using namespace tintwick::test;

namespace {

using namespace Qt::StringLiterals;

/// Crimson, blue and dodger blue, the newest first; crimson and blue are in the palette Brand.
class SearchFixture : public PanelFixture
{
public:
    SearchFixture()
    {
        const QUuid blue = capture(0x0000FF).id;
        const QUuid crimson = capture(0xDC143C).id;
        capture(0x1E90FF);
        state.addColors({crimson, blue}, state.createCollection(u"Brand"_s).id);
        settle();
    }

    /// Presses keys where the focus is.
    void press(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(focused(), Qt::Key(key), modifiers);
        settle();
    }

    void type(const QString& text) const
    {
        for (const QChar character : text) {
            QTest::keyClick(focused(), character.toLatin1());
        }
        settle();
    }

    [[nodiscard]] QWidget* focused() const
    {
        QWidget* widget = view->focusWidget();
        return widget != nullptr ? widget : view.get();
    }

    [[nodiscard]] TextField* field() const
    {
        auto* found = view->findChild<TextField*>();
        return found != nullptr && found->isVisible() ? found : nullptr;
    }

    [[nodiscard]] QStringList texts() const { return visibleTexts(view->currentScreen()); }

    /// "DC143C 0000FF"
    [[nodiscard]] QString results() const
    {
        QStringList codes;
        for (const auto* swatch : view->currentScreen().findChildren<ColorSwatchView*>()) {
            if (swatch->isVisible()) {
                codes += swatch->color().hex6().mid(1);
            }
        }
        return codes.join(u' ');
    }

    [[nodiscard]] QString history() const
    {
        QStringList codes;
        for (const CapturedColor& color : state.history()) {
            codes += color.hex6().mid(1);
        }
        return codes.join(u' ');
    }
};

} // namespace

class SearchTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typingOpensTheField();
    void controlFOpensTheField();
    void otherKeysDoNotOpenTheField_data();
    void otherKeysDoNotOpenTheField();
    void theTextFiltersTheColors_data();
    void theTextFiltersTheColors();
    void aColorInTheTextIsOffered_data();
    void aColorInTheTextIsOffered();
    void returnAddsTheColor();
    void aClickAddsSeveralColors();
    void escapeReturnsToWhereTheUserWas_data();
    void escapeReturnsToWhereTheUserWas();
    void removingTheTextCloses();
    void arrowsMoveBetweenFieldAndResults();
    void typingAtAResultGoesOnInTheField();
    void tabReachesTheResults();
    void screenReadersAreToldWhatIsFound();
    void similarColorsAreShown();
    void theChipEndsTheSimilarColors();
    void ofManyColorsTheFirstAreShown();
};

void SearchTest::typingOpensTheField()
{
    const SearchFixture fixture;
    QVERIFY(!fixture.field());
    fixture.type(u"Bra"_s);
    QVERIFY(fixture.field());
    QCOMPARE(fixture.field()->text(), u"Bra"_s);
    QCOMPARE(fixture.focused(), fixture.field());
    QCOMPARE(fixture.results(), u"DC143C 0000FF"_s);
    QVERIFY(fixture.texts().contains(u"2 of 3 colors"_s));
}

void SearchTest::controlFOpensTheField()
{
    const SearchFixture fixture;
    fixture.press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(fixture.focused(), fixture.field());
    QCOMPARE(fixture.results(), u"1E90FF DC143C 0000FF"_s);
    QVERIFY(fixture.texts().contains(u"3 colors"_s));
    fixture.type(u"red"_s);
    fixture.press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(fixture.field()->selectedText(), u"red"_s);
}

void SearchTest::otherKeysDoNotOpenTheField_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("with Control") << int(Qt::Key_B) << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("with Alt") << int(Qt::Key_B) << Qt::KeyboardModifiers(Qt::AltModifier);
    QTest::newRow("with Super") << int(Qt::Key_B) << Qt::KeyboardModifiers(Qt::MetaModifier);
    QTest::newRow("Return") << int(Qt::Key_Return) << Qt::KeyboardModifiers();
    QTest::newRow("Space") << int(Qt::Key_Space) << Qt::KeyboardModifiers();
    QTest::newRow("Delete") << int(Qt::Key_Delete) << Qt::KeyboardModifiers();
    QTest::newRow("F5") << int(Qt::Key_F5) << Qt::KeyboardModifiers();
}

void SearchTest::otherKeysDoNotOpenTheField()
{
    QFETCH(const int, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    const SearchFixture fixture;
    fixture.press(key, modifiers);
    QVERIFY(!fixture.field());

    fixture.view->setShowingSettings(true);
    settle();
    fixture.type(u"b"_s);
    QVERIFY(!fixture.field());
}

void SearchTest::theTextFiltersTheColors_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("results");
    QTest::newRow("a name") << u"dodger"_s << u"1E90FF"_s;
    QTest::newRow("a code") << u"dc143"_s << u"DC143C"_s;
    QTest::newRow("a palette and a token") << u"brand blue-"_s << u"0000FF"_s;
    QTest::newRow("nothing") << u"zzz"_s << u""_s;
}

void SearchTest::theTextFiltersTheColors()
{
    QFETCH(const QString, text);
    QFETCH(const QString, results);
    const SearchFixture fixture;
    fixture.type(text);
    QVERIFY(!fixture.texts().contains(u"Return adds it"_s));
    QCOMPARE(fixture.results(), results);
    QCOMPARE(fixture.texts().contains(u"No colors match"_s), results.isEmpty());
}

void SearchTest::aColorInTheTextIsOffered_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("a code") << u"#ff6347"_s << QStringList{u"#FF6347"_s, u"Tomato"_s, u"Return adds it"_s};
    QTest::newRow("a token") << u"rose-500"_s << QStringList{u"#F43F5E"_s, u"Return adds it"_s};
    QTest::newRow("a name and a color")
        << u"Sky: #38bdf8"_s << QStringList{u"#38BDF8"_s, u"Sky"_s, u"Return adds it"_s};
    QTest::newRow("two") << u"red, lime"_s
                         << QStringList{u"2 colors"_s, u"Red, Lime"_s, u"Return adds them"_s};
    QTest::newRow("outside sRGB") << u"color(display-p3 0 1 0)"_s
                                  << QStringList{u"outside sRGB, mapped"_s, u"Return adds it"_s};
}

void SearchTest::aColorInTheTextIsOffered()
{
    QFETCH(const QString, text);
    QFETCH(const QStringList, shown);
    const SearchFixture fixture;
    fixture.type(text);
    for (const QString& part : shown) {
        QVERIFY2(fixture.texts().contains(part), qPrintable(fixture.texts().join(u'|')));
    }
    QVERIFY(!fixture.texts().contains(u"No colors match"_s));
}

void SearchTest::returnAddsTheColor()
{
    const SearchFixture fixture;
    fixture.type(u"tomato"_s);
    fixture.press(Qt::Key_Return);
    QCOMPARE(fixture.history(), u"FF6347 1E90FF DC143C 0000FF"_s);
    QVERIFY(!fixture.field());
    QCOMPARE(visibleTexts(*fixture.view->findChild<ActionPill*>()).join(u' '), u"Added Tomato – Undo"_s);
}

void SearchTest::aClickAddsSeveralColors()
{
    const SearchFixture fixture;
    fixture.type(u"tomato, color(display-p3 0 1 0)"_s);
    button(*fixture.view, u"Add 2 colors"_s)->click();
    settle();
    QCOMPARE(fixture.history(), u"FF6347 00FB29 1E90FF DC143C 0000FF"_s);
}

void SearchTest::escapeReturnsToWhereTheUserWas_data()
{
    QTest::addColumn<bool>("fromResult");
    QTest::newRow("in the field") << false;
    QTest::newRow("at a result") << true;
}

void SearchTest::escapeReturnsToWhereTheUserWas()
{
    QFETCH(const bool, fromResult);
    const SearchFixture fixture;
    fixture.view->setSelectedCollectionId(PanelView::historySelectionId);
    settle();
    auto* history = fixture.view->findChild<HistoryDetailView*>();
    QWidget* opener = history->swatches().at(1);
    opener->setFocus(Qt::TabFocusReason);
    fixture.type(u"brand"_s);
    QVERIFY(!history->isVisible());
    if (fromResult) {
        fixture.press(Qt::Key_Down);
    }
    fixture.press(Qt::Key_Escape);
    QVERIFY(history->isVisible());
    QVERIFY(!fixture.field());
    QCOMPARE(fixture.focused(), opener);
    QVERIFY(fixture.view->isVisible());
}

void SearchTest::removingTheTextCloses()
{
    const SearchFixture fixture;
    fixture.type(u"re"_s);
    fixture.press(Qt::Key_Backspace);
    QVERIFY(fixture.field());
    fixture.press(Qt::Key_Backspace);
    QVERIFY(!fixture.field());
    QVERIFY(fixture.dashboard().isVisible());
}

void SearchTest::arrowsMoveBetweenFieldAndResults()
{
    const SearchFixture fixture;
    fixture.type(u"brand"_s);
    fixture.press(Qt::Key_Down);
    const auto* swatch = qobject_cast<ColorSwatchView*>(fixture.focused());
    QVERIFY(swatch);
    QCOMPARE(swatch->color().hex6(), u"#DC143C"_s);
    QVERIFY(swatch->showsFocusRing());
    fixture.press(Qt::Key_Space);
    QCOMPARE(fixture.state.lastCopiedString(), u"#DC143C"_s);
    fixture.press(Qt::Key_Up);
    QCOMPARE(fixture.focused(), fixture.field());
    QCOMPARE(fixture.field()->text(), u"brand"_s);
}

void SearchTest::typingAtAResultGoesOnInTheField()
{
    const SearchFixture fixture;
    fixture.type(u"b"_s);
    fixture.press(Qt::Key_Down);
    fixture.type(u"r"_s);
    QCOMPARE(fixture.field()->text(), u"br"_s);
    QCOMPARE(fixture.focused(), fixture.field());
}

void SearchTest::tabReachesTheResults()
{
    const SearchFixture fixture;
    fixture.type(u"blue"_s);
    fixture.press(Qt::Key_Tab);
    QCOMPARE(fixture.focused()->accessibleName(), u"Add Blue, #0000FF"_s);
    fixture.press(Qt::Key_Tab);
    QCOMPARE(fixture.focused()->accessibleName(), u"Dodger Blue, #1E90FF"_s);
    fixture.press(Qt::Key_Tab);
    QCOMPARE(fixture.focused()->accessibleName(), u"Blue, #0000FF"_s);
}

void SearchTest::screenReadersAreToldWhatIsFound()
{
    const SearchFixture fixture;
    fixture.type(u"color(display-p3 0 1 0)"_s);
    QCOMPARE(fixture.field()->accessibleName(), u"Search or enter a color"_s);
    QCOMPARE(fixture.field()->accessibleDescription(), u"Add Lime, #00FB29"_s);
    const QAbstractButton* add = button(*fixture.view, u"Add Lime, #00FB29"_s);
    QVERIFY(add);
    QCOMPARE(add->accessibleDescription(), u"outside sRGB, mapped"_s);
    fixture.field()->selectAll();
    fixture.type(u"brand"_s);
    QCOMPARE(fixture.field()->accessibleDescription(), u"2 of 3 colors"_s);
    fixture.type(u"x"_s);
    QCOMPARE(fixture.field()->accessibleDescription(), u"No colors match"_s);
}

void SearchTest::similarColorsAreShown()
{
    const SearchFixture fixture;
    fixture.view->setSelectedCollectionId(PanelView::historySelectionId);
    settle();
    QWidget* opener = fixture.view->findChild<HistoryDetailView*>()->swatches().at(0);
    choose(*contextMenu(*opener), u"Show Similar"_s);
    settle();
    QCOMPARE(fixture.results(), u"1E90FF 0000FF DC143C"_s);
    QVERIFY(fixture.texts().contains(u"Similar to Dodger Blue"_s));
    fixture.press(Qt::Key_Escape);
    QVERIFY(fixture.view->findChild<HistoryDetailView*>()->isVisible());
}

void SearchTest::theChipEndsTheSimilarColors()
{
    const SearchFixture fixture;
    fixture.view->setSelectedCollectionId(PanelView::historySelectionId);
    settle();
    choose(*contextMenu(*fixture.view->findChild<HistoryDetailView*>()->swatches().at(0)), u"Show Similar"_s);
    settle();
    button(*fixture.view, u"Similar to Dodger Blue, end"_s)->click();
    settle();
    QVERIFY(fixture.view->findChild<HistoryDetailView*>()->isVisible());
}

void SearchTest::ofManyColorsTheFirstAreShown()
{
    SearchFixture fixture;
    QList<CapturedColor> colors;
    for (std::uint32_t i = 0; i < 300; ++i) {
        colors.append(CapturedColor::capture(i));
    }
    fixture.state.importCollection(u"Big"_s, colors);
    fixture.type(u"big"_s);
    QCOMPARE(fixture.results().split(u' ').size(), 200);
    QVERIFY(fixture.texts().contains(u"The first 200 of 300 colors"_s));
}

int main(int argc, char** argv)
{
    return runWithOwnHome<SearchTest>(argc, argv);
}

#include "SearchTest.moc"
