#include "DashboardView.h"

#include "Button.h"
#include "CollectionRowCard.h"
#include "ColorDetailRow.h"
#include "DashboardSwatchView.h"
#include "Label.h"
#include "Overlay.h"
#include "ScrollArea.h"
#include "Shadow.h"
#include "SwatchView.h"
#include "Symbol.h"
#include "ui/OwnHomeMain.h"
#include "ui/PanelFixture.h"
#include "ui/Probes.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>

using namespace tintwick;
using namespace tintwick::test;

class DashboardViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyHistoryHidesTheRecentRow();
    void recentRowShowsTheFirstFifteenInOrder();
    void layoutIsExact();
    void bottomPaddingEqualsTopPadding();
    void clearedHistoryIsLaidOutAtOnce();
    void shadowsOfTheRecentRowAreNotClipped();
    void hoveredSwatchGrows();
    void everyColorShowsOnItsGround_data();
    void everyColorShowsOnItsGround();
    void hoveringBlursNoNewShadow();
    void pressedControlsShowIt();
    void focusedControlIsScrolledIntoView();
    void pickButtonRequestsAPick();
    void pickButtonOffersPicksAfterADelay();
    void cardMenuPicksIntoTheCollection();
    void clickOnASwatchCopiesInTheDefaultFormat();
    void cardEndsWithAChevron();
    void toolTipOfACardIsItsElidedName();
    void creatingTheFirstPaletteByKeyboardFocusesTheNext();
    void cardsCountTheirColors_data();
    void cardsCountTheirColors();
    void cardAndItsScreenCountTheColorsThatExist();
    void cardPreviewsTheExistingAmongTheFirstFour();
    void sixthCardHasTheGradientOfTheFirst();
    void iconGetsAColorOfItsOwn();
    void droppedTexts_data();
    void droppedTexts();
    void dragOverACardHighlightsIt();
    void proposedMoveBecomesACopy();
    void swatchMenuOffersExistingPalettes();
    void deleteInTheMenuRemovesTheColor();
    void cardMenuDeletesTheCollection();
    void cardIsRenamed_data();
    void cardIsRenamed();
    void blankNameRenamesNoPalette();
    void cardIsDuplicatedBesideTheOriginal();
    void cardIsSorted_data();
    void cardIsSorted();
    void cardExportsItsMembersAlsoWhenTheyLeaveTheHistory();
    void blankNameCreatesNoPalette_data();
    void blankNameCreatesNoPalette();
    void newPaletteHasTheTrimmedName();
    void cancelledNameIsKept();
    void tabGoesFromTopToBottom();
    void arrowKeysMoveAlongTheRecentRow();
    void colorPickedWhileHiddenIsLaidOut();
    void returnAndSpaceCopyTheFocusedSwatch();
    void newColorKeepsTheFocus();
    void screenReadersGetNamesOfSwatchesAndCards();
};

void DashboardViewTest::emptyHistoryHidesTheRecentRow()
{
    PanelFixture panel;
    panel.settle();
    QVERIFY(!visibleTexts(panel.dashboard()).contains(QStringLiteral("Recent History")));
    QVERIFY(panel.dashboard().swatches().isEmpty());
    QVERIFY(button(panel.dashboard(), QStringLiteral("Create your first palette")));
    QVERIFY(!button(panel.dashboard(), QStringLiteral("New Palette")));

    panel.capture(0x3B82F6);
    panel.settle();
    QVERIFY(visibleTexts(panel.dashboard()).contains(QStringLiteral("Recent History")));
    QVERIFY(panel.dashboard().swatches().first()->isVisible());
}

void DashboardViewTest::recentRowShowsTheFirstFifteenInOrder()
{
    PanelFixture panel;
    for (unsigned i = 0; i < 40; ++i) {
        panel.capture(i);
    }
    panel.settle();
    const auto swatches = panel.dashboard().swatches();
    QCOMPARE(swatches.size(), 15);
    QCOMPARE(swatches.first()->color().hex6(), QStringLiteral("#000027"));
    QCOMPARE(swatches.last()->color().hex6(), QStringLiteral("#000019"));
    for (qsizetype i = 1; i < swatches.size(); ++i) {
        QCOMPARE(swatches[i]->x() - swatches[i - 1]->x(), 74);
    }
    QCOMPARE(panel.dashboard().findChildren<DashboardSwatchView*>().size(), 15);
}

void DashboardViewTest::layoutIsExact()
{
    PanelFixture panel;
    panel.capture(0xF54D4D);
    panel.state.createCollection(QStringLiteral("Brand"));
    const QImage picture = panel.picture();
    QCOMPARE(picture.size(), QSize(380, 580));

    // Header 10 + 30 + 10, rule 1, padding 16.
    QCOMPARE(placeIn(*panel.view, *button(panel.dashboard(), QStringLiteral("Pick a Color"))),
             QRect(16, 67, 348, 50));
    const QRect swatch = placeIn(*panel.view, *panel.dashboard().swatches().first());
    const int middle = swatch.top() + 33;
    const QRgb red = qRgb(0xF5, 0x4D, 0x4D);
    QVERIFY(picture.pixel(15, middle) != red);
    QCOMPARE(picture.pixel(18, middle), red);
    QCOMPARE(picture.pixel(75, middle), red);
    QVERIFY(picture.pixel(78, middle) != red);

    const QRect card = placeIn(*panel.view, *panel.dashboard().cards().first());
    QCOMPARE(card.marginsRemoved(QMargins(2, 2, 2, 2)), QRect(16, card.top() + 2, 348, 64));
    const QRect add = placeIn(*panel.view, *button(panel.dashboard(), QStringLiteral("New Palette")));
    QCOMPARE(add, QRect(16, card.top() + 2 + 64 + 10, 348, 68));

    // The corners of the panel are transparent.
    QCOMPARE(qAlpha(picture.convertToFormat(QImage::Format_ARGB32).pixel(380 / 2, 579)), 255);
}

void DashboardViewTest::hoveredSwatchGrows()
{
    PanelFixture panel;
    panel.capture(0x1ABF80);
    panel.settle();
    DashboardSwatchView& swatch = *panel.dashboard().swatches().first();
    const int middle = placeIn(*panel.view, swatch).top() + 33;
    // Scaled by 1.05, the square of 62 extends 1.55 further.
    const QRgb before = panel.picture().pixel(15, middle);
    hover(swatch, QEvent::HoverEnter);
    const QRgb hovered = panel.picture().pixel(15, middle);
    QVERIFY(!isNear(before, hovered, 40));
    hover(swatch, QEvent::HoverLeave);
    QCOMPARE(panel.picture().pixel(15, middle), before);
    QVERIFY(!Ticker::shared().hasMotion());
}

void DashboardViewTest::everyColorShowsOnItsGround_data()
{
    QTest::addColumn<Scheme>("scheme");
    QTest::addColumn<QColor>("color");
    const auto row = [](const char* name, Scheme scheme, const QColor& color) {
        QTest::newRow(name) << scheme << color;
    };
    row("the ground, light", Scheme::Light, QColor(0xF5, 0xF5, 0xF7));
    row("white, light", Scheme::Light, Qt::white);
    row("black, light", Scheme::Light, Qt::black);
    row("transparent, light", Scheme::Light, Qt::transparent);
    row("the ground, dark", Scheme::Dark, QColor(0x1F, 0x1F, 0x23));
    row("the card, dark", Scheme::Dark, QColor(0x2A, 0x2A, 0x2F));
    row("white, dark", Scheme::Dark, Qt::white);
    row("black, dark", Scheme::Dark, Qt::black);
    row("transparent, dark", Scheme::Dark, Qt::transparent);
}

void DashboardViewTest::everyColorShowsOnItsGround()
{
    QFETCH(const Scheme, scheme);
    QFETCH(const QColor, color);
    PanelFixture panel;
    panel.view->setSystemScheme(scheme);
    const unsigned rgb = color.rgb() & 0xFFFFFFU;
    const QUuid brand = panel.state.createCollection(QStringLiteral("Brand")).id;
    panel.state.addColor(panel.capture(rgb, color.alphaF()).id, brand);
    panel.letFeedbackEnd();
    // At half the height of a square, the first column or the colour itself differs from the ground.
    const auto shows = [&](const QRect& square, const theme::Color& ground) {
        const QImage picture = panel.picture();
        const QRgb below = ground.in(scheme).rgb();
        const int middle = square.center().y();
        return !isNear(picture.pixel(square.left(), middle), below, 24) ||
               !isNear(picture.pixel(square.left() + 2, middle), below, 24);
    };
    const auto inPanel = [&](const QWidget& view, const QRect& place) {
        return place.translated(placeIn(*panel.view, view).topLeft());
    };
    panel.settle();
    QVERIFY(shows(inPanel(*panel.dashboard().swatches().first(), {2, 2, 62, 62}), theme::bg));
    // The square of 30 ends 12 before the chevron, which ends 12 before the card does.
    const int chevron = qRound(symbolSide(11));
    const QWidget& card = *panel.dashboard().cards().first();
    QVERIFY(
        shows(inPanel(card, {card.width() - 2 - 12 - chevron - 12 - 30, 2 + 17, 30, 30}), theme::surface));

    panel.view->setSelectedCollectionId(PanelView::historySelectionId);
    panel.settle();
    const QWidget& tile = *panel.view->currentScreen().findChild<SwatchView*>();
    QVERIFY(shows(inPanel(tile, {5, 2, 48, 48}), theme::bg));

    panel.view->setSelectedCollectionId(brand);
    panel.settle();
    const QWidget& line = *panel.view->currentScreen().findChild<ColorDetailRow*>();
    QVERIFY(shows(inPanel(line, {12, 6, 42, 42}), theme::bg));
}

void DashboardViewTest::bottomPaddingEqualsTopPadding()
{
    PanelFixture panel;
    for (int i = 0; i < 9; ++i) {
        panel.state.createCollection(QString::number(i));
    }
    panel.settle();
    const auto* page = panel.dashboard().findChild<ScrollArea*>();
    const QWidget* add = button(panel.dashboard(), QStringLiteral("New Palette"));
    QVERIFY(page->verticalScrollBar()->maximum() > 0);
    QCOMPARE(placeIn(*page->widget(), *add).bottom(), page->widget()->height() - 1 - 16);
}

// Without a layout in between that would be seen for a moment.
void DashboardViewTest::clearedHistoryIsLaidOutAtOnce()
{
    PanelFixture panel;
    panel.capture(0x3B82F6);
    panel.letFeedbackEnd();
    panel.settle();
    panel.state.clearHistory();
    QApplication::processEvents();
    const auto place = [&panel](const char* name) {
        return placeIn(*panel.view, *button(panel.dashboard(), QString::fromLatin1(name)));
    };
    QCOMPARE(place("Pick a Color"), QRect(16, 67, 348, 50));
    const int title = QFontMetrics(theme::font(15, QFont::DemiBold)).height();
    QCOMPARE(place("Create your first palette"), QRect(16, 67 + 50 + 20 + title + 20, 348, 50));
}

// The shadow has 0.4 of the colour and extends 3 deviations of 3 points; it is visible beside a white square.
void DashboardViewTest::shadowsOfTheRecentRowAreNotClipped()
{
    PanelFixture panel;
    panel.capture(0x000000);
    const QImage picture = panel.picture();
    const int middle = placeIn(*panel.view, *panel.dashboard().swatches().first()).top() + 2 + 31;
    int before = qGray(picture.pixel(15, middle));
    QVERIFY(before < 215);
    // Monotonically lighter toward the edge of the panel, without a step.
    for (int x = 14; x >= 4; --x) {
        const int now = qGray(picture.pixel(x, middle));
        QVERIFY2(now >= before && now - before <= 14, qPrintable(QStringLiteral("%1 at %2").arg(now).arg(x)));
        before = now;
    }
    QCOMPARE(picture.pixel(4, middle), qRgb(0xF5, 0xF5, 0xF7));
}

void DashboardViewTest::hoveringBlursNoNewShadow()
{
    PanelFixture panel;
    panel.capture(0x1ABF81);
    panel.state.createCollection(QStringLiteral("Brand"));
    QWidget* swatch = panel.dashboard().swatches().first();
    QWidget* card = panel.dashboard().cards().first();
    const auto runThrough = [&](QEvent::Type type) {
        hover(*swatch, type);
        hover(*card, type);
        while (Ticker::shared().hasMotion()) {
            Ticker::shared().advance(1 / 60.0);
            panel.view->grab();
        }
    };
    // The card has two shadows, each blurred once.
    panel.settle();
    runThrough(QEvent::HoverEnter);
    const int before = blurCount();
    for (int round = 0; round < 3; ++round) {
        runThrough(QEvent::HoverLeave);
        runThrough(QEvent::HoverEnter);
    }
    QCOMPARE(blurCount(), before);
}

void DashboardViewTest::pressedControlsShowIt()
{
    PanelFixture panel;
    panel.capture(0x1ABF80);
    panel.state.createCollection(QStringLiteral("Brand"));
    panel.settle();
    for (QWidget* control : {static_cast<QWidget*>(panel.dashboard().swatches().first()),
                             static_cast<QWidget*>(panel.dashboard().cards().first())}) {
        const QPoint inside = placeIn(*panel.view, *control).topLeft() + QPoint(32, 8);
        const QRgb before = panel.picture().pixel(inside);
        QTest::mousePress(control, Qt::LeftButton, Qt::NoModifier, QPoint(32, 8));
        QVERIFY(qGray(panel.picture().pixel(inside)) < qGray(before) - 10);
        // A release outside the button is not a click.
        QTest::mouseMove(control, QPoint(-20, -20));
        QTest::mouseRelease(control, Qt::LeftButton, Qt::NoModifier, QPoint(-20, -20));
        QCOMPARE(panel.picture().pixel(inside), before);
    }
}

void DashboardViewTest::focusedControlIsScrolledIntoView()
{
    PanelFixture panel;
    for (int i = 0; i < 9; ++i) {
        panel.state.createCollection(QString::number(i));
    }
    panel.letOfferEnd();
    QWidget* add = button(panel.dashboard(), QStringLiteral("New Palette"));
    QVERIFY(!panel.view->rect().contains(placeIn(*panel.view, *add)));
    // Backtab on the first control of the panel focuses the last.
    auto* first = panel.view->findChild<PlainButton*>();
    first->setFocus(Qt::TabFocusReason);
    QTest::keyClick(first, Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), add);
    QVERIFY(panel.view->rect().contains(placeIn(*panel.view, *add)));
}

void DashboardViewTest::pickButtonRequestsAPick()
{
    PanelFixture panel;
    const QSignalSpy picks(panel.view.get(), &PanelView::pickRequested);
    QTest::mouseClick(button(panel.dashboard(), QStringLiteral("Pick a Color")), Qt::LeftButton);
    QCOMPARE(picks.count(), 1);
}

void DashboardViewTest::pickButtonOffersPicksAfterADelay()
{
    PanelFixture panel;
    const QSignalSpy picks(panel.view.get(), &PanelView::pickRequested);
    QMenu* menu = contextMenu(*button(panel.dashboard(), QStringLiteral("Pick a Color")));
    QVERIFY(menu);
    QCOMPARE(titles(*menu), (QStringList{QStringLiteral("Pick in 3 s"), QStringLiteral("Pick in 5 s")}));
    menu->actions().at(1)->trigger();
    menu->close();
    QCOMPARE(picks.count(), 1);
    const auto pick = picks.at(0).at(0).value<WantedPick>();
    QCOMPARE(pick.delay, std::chrono::seconds(5));
    QVERIFY(!pick.palette);
}

void DashboardViewTest::cardMenuPicksIntoTheCollection()
{
    PanelFixture panel;
    const QUuid sea = panel.state.createCollection(QStringLiteral("Sea")).id;
    panel.settle();
    const QSignalSpy picks(panel.view.get(), &PanelView::pickRequested);
    QMenu* menu = contextMenu(*panel.dashboard().cards().first());
    QVERIFY(menu);
    QMenu* into = menu->actions().at(1)->menu();
    QVERIFY(into);
    QCOMPARE(titles(*into),
             (QStringList{QStringLiteral("Now"), QStringLiteral("In 3 s"), QStringLiteral("In 5 s")}));
    into->actions().at(0)->trigger();
    into->actions().at(1)->trigger();
    menu->close();
    QCOMPARE(picks.count(), 2);
    const auto now = picks.at(0).at(0).value<WantedPick>();
    QCOMPARE(now.delay, std::chrono::seconds(0));
    QCOMPARE(now.palette, std::optional(sea));
    const auto later = picks.at(1).at(0).value<WantedPick>();
    QCOMPARE(later.delay, std::chrono::seconds(3));
    QCOMPARE(later.palette, std::optional(sea));
}

void DashboardViewTest::clickOnASwatchCopiesInTheDefaultFormat()
{
    PanelFixture panel;
    panel.capture(0x3B82F6);
    panel.state.setDefaultFormat(ColorFormat::Rgb);
    panel.letFeedbackEnd();
    panel.settle();
    QTest::mouseClick(panel.dashboard().swatches().first(), Qt::LeftButton);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("rgb(59, 130, 246)"));
    QVERIFY(panel.state.showCopiedFeedback());
}

void DashboardViewTest::cardEndsWithAChevron()
{
    PanelFixture panel;
    const ColorCollection sea = panel.state.createCollection(QStringLiteral("Sea"));
    const auto place = [&panel] {
        return placeIn(*panel.view, *panel.dashboard().cards().first()).adjusted(2, 2, -2, -2);
    };
    const QImage empty = panel.picture();
    QRect card = place();
    // In the last 12 points before the padding, as high as a letter.
    const auto inkBetween = [&](const QImage& picture, int left, int right) {
        int ink = 0;
        for (int x = left; x < right; ++x) {
            for (int y = card.top() + 15; y < card.bottom() - 15; ++y) {
                ink += isNear(picture.pixel(x, y), qRgb(0xFF, 0xFF, 0xFF), 40) ? 0 : 1;
            }
        }
        return ink;
    };
    const int edge = card.right() + 1 - 12;
    QVERIFY(inkBetween(empty, edge - 14, edge) > 8);
    QCOMPARE(inkBetween(empty, edge, card.right() - 2), 0);

    panel.state.addColor(panel.capture(0x112233).id, sea.id);
    const QImage one = panel.picture();
    card = place();
    QVERIFY(inkBetween(one, edge - 14, edge) > 8);
    // 12 points from the square of 30.
    const int chevron = qRound(symbolSide(11));
    const int middle = card.center().y();
    const QRgb color = qRgb(0x11, 0x22, 0x33);
    QVERIFY(isNear(one.pixel(edge - chevron - 12 - 1, middle), color, 12));
    QCOMPARE(one.pixel(edge - chevron - 12 - 2, middle), color);
    QCOMPARE(one.pixel(edge - chevron - 12 - 29, middle), color);
    QVERIFY(isNear(one.pixel(edge - chevron - 12 - 30, middle), color, 12));
    QVERIFY(!isNear(one.pixel(edge - chevron - 12, middle), color, 12));
}

void DashboardViewTest::toolTipOfACardIsItsElidedName()
{
    PanelFixture panel;
    const QString fits = QStringLiteral("Everything from the sea");
    const ColorCollection sea = panel.state.createCollection(fits);
    const QString tooLong = QString(300, u'W');
    panel.state.createCollection(tooLong);
    panel.settle();
    const auto& cards = panel.dashboard().cards();
    QCOMPARE(cards[0]->toolTip(), QString());
    QCOMPARE(cards[1]->toolTip(), tooLong);
    // The preview leaves less room for the name.
    for (unsigned i = 0; i < 4; ++i) {
        panel.state.addColor(panel.capture(i).id, sea.id);
    }
    QCOMPARE(cards[0]->toolTip(), fits);
    panel.state.clearHistory();
    QCOMPARE(cards[0]->toolTip(), QString());
}

void DashboardViewTest::creatingTheFirstPaletteByKeyboardFocusesTheNext()
{
    const PanelFixture panel;
    panel.settle();
    auto* first = button(panel.dashboard(), QStringLiteral("Create your first palette"));
    first->setFocus(Qt::TabFocusReason);
    QTest::keyClick(first, Qt::Key_Return);
    QTest::keyClick(panel.view->focusWidget(), Qt::Key_Escape);
    panel.settle();
    QCOMPARE(panel.view->focusWidget(), first);
    QVERIFY(Clickable::showsFocusRing(first));

    QTest::keyClick(first, Qt::Key_Return);
    QTest::keyClicks(panel.view->focusWidget(), QStringLiteral("Sea"));
    QTest::keyClick(panel.view->focusWidget(), Qt::Key_Return);
    panel.settle();
    QCOMPARE(panel.view->focusWidget(), button(panel.dashboard(), QStringLiteral("New Palette")));
    QVERIFY(Clickable::showsFocusRing(panel.view->focusWidget()));
}

void DashboardViewTest::cardsCountTheirColors_data()
{
    QTest::addColumn<int>("members");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0 << QStringLiteral("0 Colors");
    QTest::newRow("one") << 1 << QStringLiteral("1 Color");
    QTest::newRow("several") << 7 << QStringLiteral("7 Colors");
}

void DashboardViewTest::cardsCountTheirColors()
{
    QFETCH(const int, members);
    QFETCH(const QString, text);
    PanelFixture panel;
    const QUuid id = panel.state.createCollection(QStringLiteral("Brand")).id;
    for (int i = 0; i < members; ++i) {
        panel.state.addColor(panel.capture(0x101010U * static_cast<unsigned>(i)).id, id);
    }
    QCOMPARE(panel.dashboard().cards().first()->countText(), text);
}

void DashboardViewTest::cardAndItsScreenCountTheColorsThatExist()
{
    PanelFixture panel;
    const QUuid id = panel.state.createCollection(QStringLiteral("Kept")).id;
    panel.state.addColor(panel.capture(0x3B82F6).id, id);
    panel.state.addColor(QUuid::createUuid(), id);
    panel.settle();
    const CollectionRowCard& card = *panel.dashboard().cards().first();
    QCOMPARE(card.countText(), QStringLiteral("1 Color"));

    // 100 later captures drop the colour from the history. The palette keeps it.
    const CapturedColor kept = panel.state.history().first();
    for (unsigned i = 0; i < 100; ++i) {
        panel.capture(i);
    }
    QCOMPARE(panel.state.history().size(), 100);
    QCOMPARE(card.previewColors(), QList<CapturedColor>{kept});
    QCOMPARE(card.colors(), QList<CapturedColor>{kept});
    QCOMPARE(card.countText(), QStringLiteral("1 Color"));
    QCOMPARE(card.accessibleName(), QStringLiteral("Kept, 1 Color"));
    panel.view->setSelectedCollectionId(id);
    panel.settle();
    const QStringList texts = visibleTexts(panel.view->currentScreen());
    QVERIFY(texts.contains(QStringLiteral("1 color")));
    QVERIFY(texts.contains(QStringLiteral("#3B82F6")));
}

void DashboardViewTest::cardPreviewsTheExistingAmongTheFirstFour()
{
    PanelFixture panel;
    const QUuid id = panel.state.createCollection(QStringLiteral("Brand")).id;
    QList<CapturedColor> colors;
    for (unsigned i = 0; i < 5; ++i) {
        colors.append(panel.capture(0x101010 * i));
        panel.state.addColor(i == 1 ? QUuid::createUuid() : colors.last().id, id);
    }
    // The second of the first four is missing; the fifth does not replace it.
    QCOMPARE(panel.dashboard().cards().first()->previewColors(),
             (QList<CapturedColor>{colors[0], colors[2], colors[3]}));
}

void DashboardViewTest::sixthCardHasTheGradientOfTheFirst()
{
    PanelFixture panel;
    for (int i = 0; i < 6; ++i) {
        panel.state.createCollection(QString::number(i));
    }
    panel.settle();
    QList<QRgb> tiles;
    for (CollectionRowCard* card : panel.dashboard().cards()) {
        // 4 points into the tile of 44, at half its height: 26 / 88 along the gradient.
        tiles.append(card->grab().toImage().pixel(2 + 12 + 4, 2 + 10 + 22));
    }
    QVERIFY(isNear(tiles[0], qRgb(252, 138, 45)));
    QVERIFY(isNear(tiles[1], qRgb(74, 131, 239)));
    QVERIFY(isNear(tiles[4], qRgb(40, 178, 134)));
    QCOMPARE(tiles[5], tiles[0]);
    QVERIFY(tiles[2] != tiles[3]);
}

void DashboardViewTest::iconGetsAColorOfItsOwn()
{
    PanelFixture panel;
    const ColorCollection brand = panel.state.createCollection(QStringLiteral("Brand"));
    panel.settle();
    // 4 points into the tile, at half its height; at 26 / 88 of the gradient on the card and 20 / 64 on the screen.
    const auto onCard = [&] { return panel.dashboard().cards().first()->grab().toImage().pixel(18, 34); };
    const auto onScreen = [&] {
        panel.view->setSelectedCollectionId(brand.id);
        const QRgb color = panel.picture().pixel(16 + 4, 51 + 10 + 16);
        panel.view->setSelectedCollectionId({});
        panel.settle();
        return color;
    };
    const QRgb orange = qRgb(252, 138, 45);
    const QRgb blue = qRgb(74, 131, 239);
    QVERIFY(isNear(onCard(), orange, 4));
    QVERIFY(isNear(onScreen(), orange, 4));

    QMenu* menu = contextMenu(*panel.dashboard().cards().first());
    QMenu* colors = nullptr;
    for (QAction* action : menu->actions()) {
        colors = action->text() == QStringLiteral("Icon Color") ? action->menu() : colors;
    }
    QVERIFY(colors);
    QCOMPARE(titles(*colors),
             (QStringList{QStringLiteral("Automatic"), QStringLiteral("-"), QStringLiteral("Orange"),
                          QStringLiteral("Blue"), QStringLiteral("Violet"), QStringLiteral("Pink"),
                          QStringLiteral("Green")}));
    QVERIFY(colors->actions().first()->isChecked());
    choose(*menu, QStringLiteral("Blue"));
    panel.settle();
    QVERIFY(isNear(onCard(), blue, 4));
    QVERIFY(isNear(onScreen(), blue, 4));

    panel.state.undo();
    QVERIFY(isNear(onCard(), orange, 4));
    panel.state.redo();
    choose(*contextMenu(*panel.dashboard().cards().first()), QStringLiteral("Automatic"));
    QVERIFY(isNear(onCard(), orange, 4));
}

void DashboardViewTest::droppedTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("added");
    const QString one = QStringLiteral("3F2504E0-4F89-41D3-9A0C-0305E82C3301");
    const QString two = QStringLiteral("7D444840-9DC0-11D1-B245-5FFDCE74FAD2");
    QTest::newRow("an id") << one << QStringList{one};
    QTest::newRow("in lower case") << one.toLower() << QStringList{one};
    QTest::newRow("two ids") << one + u'\n' + two << QStringList{one, two};
    QTest::newRow("an id among other text") << QStringLiteral("hello\n") + two << QStringList{two};
    QTest::newRow("the same id twice") << one + u'\n' + one << QStringList{one};
    QTest::newRow("other text") << QStringLiteral("hello") << QStringList();
    QTest::newRow("an incomplete id") << one.left(35) << QStringList();
    QTest::newRow("empty") << QString() << QStringList();
}

void DashboardViewTest::droppedTexts()
{
    QFETCH(const QString, text);
    QFETCH(const QStringList, added);
    PanelFixture panel;
    panel.state.createCollection(QStringLiteral("Brand"));
    QVERIFY(drop(*panel.dashboard().cards().first(), text));
    QStringList ids;
    for (const QUuid& id : panel.state.collections().first().colorIds) {
        ids.append(id.toString(QUuid::WithoutBraces).toUpper());
    }
    QCOMPARE(ids, added);
}

void DashboardViewTest::dragOverACardHighlightsIt()
{
    PanelFixture panel;
    panel.state.createCollection(QStringLiteral("Brand"));
    CollectionRowCard& card = *panel.dashboard().cards().first();
    QMimeData picture;
    picture.setData(QStringLiteral("image/png"), "no text");
    QDragEnterEvent foreign(QPoint(20, 20), Qt::CopyAction, &picture, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&card, &foreign);
    QVERIFY(!foreign.isAccepted());
    QVERIFY(!card.isDropTarget());

    QMimeData text;
    text.setText(QStringLiteral("anything"));
    QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&card, &enter);
    QVERIFY(card.isDropTarget());
    QDragLeaveEvent leave;
    QApplication::sendEvent(&card, &leave);
    QVERIFY(!card.isDropTarget());
}

// An editor that proposes a move would delete its text after it.
void DashboardViewTest::proposedMoveBecomesACopy()
{
    PanelFixture panel;
    panel.state.createCollection(QStringLiteral("Brand"));
    CollectionRowCard& card = *panel.dashboard().cards().first();
    QMimeData text;
    text.setText(QStringLiteral("3F2504E0-4F89-41D3-9A0C-0305E82C3301"));
    const QPoint inside(20, 20);
    const auto proposeMove = [](QDropEvent& event) {
        event.setDropAction(Qt::MoveAction);
        event.ignore();
    };
    QDragEnterEvent enter(inside, Qt::CopyAction | Qt::MoveAction, &text, Qt::LeftButton, Qt::NoModifier);
    proposeMove(enter);
    QApplication::sendEvent(&card, &enter);
    QVERIFY(enter.isAccepted());
    QCOMPARE(enter.dropAction(), Qt::CopyAction);
    QDropEvent dropped(inside, Qt::CopyAction | Qt::MoveAction, &text, Qt::LeftButton, Qt::NoModifier);
    proposeMove(dropped);
    QApplication::sendEvent(&card, &dropped);
    QVERIFY(dropped.isAccepted());
    QCOMPARE(dropped.dropAction(), Qt::CopyAction);
    QCOMPARE(panel.state.collections().first().colorIds.size(), 1);

    // A drag that offers only a move is refused.
    QDragEnterEvent moveOnly(inside, Qt::MoveAction, &text, Qt::LeftButton, Qt::NoModifier);
    moveOnly.ignore();
    QApplication::sendEvent(&card, &moveOnly);
    QVERIFY(!moveOnly.isAccepted());
}

void DashboardViewTest::swatchMenuOffersExistingPalettes()
{
    PanelFixture panel;
    panel.capture(0x3B82F6);
    panel.settle();
    QMenu* menu = contextMenu(*panel.dashboard().swatches().first());
    QVERIFY(menu);
    QCOMPARE(titles(*menu),
             (QStringList{QStringLiteral("Copy as…"), QStringLiteral("-"), QStringLiteral("Edit…"),
                          QStringLiteral("Contrast With…"), QStringLiteral("Show Similar"),
                          QStringLiteral("-"), QStringLiteral("Delete")}));
    QCOMPARE(titles(*menu->actions().first()->menu()), formatTitles());
    menu->close();

    panel.state.createCollection(QStringLiteral("Brand"));
    panel.settle();
    menu = contextMenu(*panel.dashboard().swatches().first());
    QVERIFY(menu);
    QCOMPARE(titles(*menu),
             (QStringList{QStringLiteral("Copy as…"), QStringLiteral("-"), QStringLiteral("Add to Palette…"),
                          QStringLiteral("-"), QStringLiteral("Edit…"), QStringLiteral("Contrast With…"),
                          QStringLiteral("Show Similar"), QStringLiteral("-"), QStringLiteral("Delete")}));
    menu->actions().at(2)->menu()->actions().first()->trigger();
    QCOMPARE(panel.state.collections().first().colorIds, QList<QUuid>{panel.state.history().first().id});
    menu->close();
}

void DashboardViewTest::deleteInTheMenuRemovesTheColor()
{
    PanelFixture panel;
    const CapturedColor kept = panel.capture(0x111111);
    panel.capture(0x222222);
    panel.settle();
    QMenu* menu = contextMenu(*panel.dashboard().swatches().first());
    QVERIFY(menu);
    menu->actions().last()->trigger();
    menu->close();
    panel.settle();
    QCOMPARE(panel.state.history(), QList<CapturedColor>{kept});
    QCOMPARE(panel.dashboard().swatches().size(), 1);
}

void DashboardViewTest::cardMenuDeletesTheCollection()
{
    PanelFixture panel;
    panel.state.createCollection(QStringLiteral("Brand"));
    panel.settle();
    QMenu* menu = contextMenu(*panel.dashboard().cards().first());
    QVERIFY(menu);
    QCOMPARE(
        titles(*menu),
        (QStringList{QStringLiteral("Open Palette"), QStringLiteral("Pick into"), QStringLiteral("-"),
                     QStringLiteral("Rename…"), QStringLiteral("Duplicate"), QStringLiteral("Sort by"),
                     QStringLiteral("Icon Color"), QStringLiteral("Import…"),
                     QStringLiteral("Export Other Formats"), QStringLiteral("-"),
                     QStringLiteral("Export CSS Variables"), QStringLiteral("Export JSON"),
                     QStringLiteral("Export PNG Swatch"), QStringLiteral("-"), QStringLiteral("Delete")}));
    menu->actions().last()->trigger();
    menu->close();
    panel.settle();
    QVERIFY(panel.state.collections().isEmpty());
    QVERIFY(panel.dashboard().cards().isEmpty());
    QVERIFY(button(panel.dashboard(), QStringLiteral("Create your first palette")));
}

void DashboardViewTest::cardIsRenamed_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("from its menu") << false;
    QTest::newRow("with F2") << true;
}

void DashboardViewTest::cardIsRenamed()
{
    QFETCH(const bool, byKey);
    PanelFixture panel;
    panel.state.createCollection(QStringLiteral("Brand"));
    panel.settle();
    CollectionRowCard& card = *panel.dashboard().cards().first();
    card.setFocus(Qt::TabFocusReason);
    if (byKey) {
        QTest::keyClick(&card, Qt::Key_F2);
    } else {
        choose(*contextMenu(card), QStringLiteral("Rename…"));
    }
    auto* field = panel.view->findChild<QLineEdit*>();
    QVERIFY(field != nullptr);
    QVERIFY(field->hasFocus());
    QCOMPARE(field->selectedText(), QStringLiteral("Brand"));
    QTest::keyClicks(field, QStringLiteral(" Sea "));
    QTest::keyClick(field, Qt::Key_Return);
    panel.settle();
    QVERIFY(!Overlay::of(*panel.view));
    QCOMPARE(panel.state.collections().first().name, QStringLiteral("Sea"));
    QCOMPARE(card.accessibleName(), QStringLiteral("Sea, 0 Colors"));
    QCOMPARE(panel.view->focusWidget(), &card);
}

void DashboardViewTest::blankNameRenamesNoPalette()
{
    PanelFixture panel;
    panel.state.createCollection(QStringLiteral("Brand"));
    panel.settle();
    QTest::keyClick(panel.dashboard().cards().first(), Qt::Key_F2);
    auto* field = panel.view->findChild<QLineEdit*>();
    field->setText(QStringLiteral("  "));
    QVERIFY(!button(*panel.view, QStringLiteral("Save"))->isEnabled());
    QTest::keyClick(field, Qt::Key_Return);
    QVERIFY(Overlay::of(*panel.view));
    QCOMPARE(panel.state.collections().first().name, QStringLiteral("Brand"));
}

void DashboardViewTest::cardIsDuplicatedBesideTheOriginal()
{
    PanelFixture panel;
    const QUuid brand = panel.state.createCollection(QStringLiteral("Brand")).id;
    panel.state.createCollection(QStringLiteral("Sea"));
    panel.state.addColor(panel.capture(0x3B82F6).id, brand);
    panel.settle();
    choose(*contextMenu(*panel.dashboard().cards().first()), QStringLiteral("Duplicate"));
    panel.settle();
    QStringList names;
    for (const CollectionRowCard* card : panel.dashboard().cards()) {
        names.append(card->accessibleName());
    }
    QCOMPARE(names, (QStringList{QStringLiteral("Brand, 1 Color"), QStringLiteral("Brand copy, 1 Color"),
                                 QStringLiteral("Sea, 0 Colors")}));
    QVERIFY(panel.state.collections()[1].id != brand);
}

void DashboardViewTest::cardIsSorted_data()
{
    QTest::addColumn<QString>("order");
    QTest::addColumn<QStringList>("sorted");
    QTest::newRow("hue") << QStringLiteral("Hue")
                         << QStringList{QStringLiteral("#FF0000"), QStringLiteral("#00FF00"),
                                        QStringLiteral("#0000FF")};
    QTest::newRow("lightness") << QStringLiteral("Lightness")
                               << QStringList{QStringLiteral("#0000FF"), QStringLiteral("#FF0000"),
                                              QStringLiteral("#00FF00")};
}

void DashboardViewTest::cardIsSorted()
{
    QFETCH(const QString, order);
    QFETCH(const QStringList, sorted);
    PanelFixture panel;
    const QUuid brand = panel.state.createCollection(QStringLiteral("Brand")).id;
    for (const unsigned color : {0x00FF00U, 0x0000FFU, 0xFF0000U}) {
        panel.state.addColor(panel.capture(color).id, brand);
    }
    panel.settle();
    choose(*contextMenu(*panel.dashboard().cards().first()), order);
    QStringList codes;
    for (const CapturedColor& color : panel.dashboard().cards().first()->colors()) {
        codes.append(color.hex6());
    }
    QCOMPARE(codes, sorted);
}

void DashboardViewTest::cardExportsItsMembersAlsoWhenTheyLeaveTheHistory()
{
    PanelFixture panel;
    panel.state.createCollection(QStringLiteral("Brand"));
    const QUuid brand = panel.state.collections().first().id;
    QList<CapturedColor> members;
    for (const unsigned color : {0x111111U, 0x222222U, 0x333333U, 0x444444U, 0x555555U, 0x666666U}) {
        members.append(panel.capture(color));
        panel.state.addColor(members.last().id, brand);
    }
    panel.settle();
    const CollectionRowCard& card = *panel.dashboard().cards().first();
    QCOMPARE(card.colors(), members);

    // One colour beyond the limit drops the oldest.
    for (int i = 0; i < 95; ++i) {
        panel.capture(0x777777);
    }
    panel.settle();
    QCOMPARE(card.collection().colorIds.size(), 6);
    QVERIFY(!panel.state.history().contains(members.first()));
    QCOMPARE(card.colors(), members);
}

void DashboardViewTest::blankNameCreatesNoPalette_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << QString();
    QTest::newRow("three spaces") << QStringLiteral("   ");
    QTest::newRow("other white space") << QStringLiteral("\t\u2003");
}

void DashboardViewTest::blankNameCreatesNoPalette()
{
    QFETCH(const QString, name);
    PanelFixture panel;
    panel.dashboard().openNewPaletteOverlay();
    auto* field = panel.view->findChild<QLineEdit*>();
    field->setText(name);
    QVERIFY(!button(*panel.view, QStringLiteral("Create"))->isEnabled());
    QTest::keyClick(field, Qt::Key_Return);
    QVERIFY(panel.state.collections().isEmpty());
    QVERIFY(Overlay::of(*panel.view));
}

void DashboardViewTest::newPaletteHasTheTrimmedName()
{
    PanelFixture panel;
    QTest::mouseClick(button(panel.dashboard(), QStringLiteral("Create your first palette")), Qt::LeftButton);
    auto* field = panel.view->findChild<QLineEdit*>();
    QCOMPARE(QApplication::focusWidget(), field);
    QTest::keyClicks(field, QStringLiteral("  Harbour "));
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(panel.state.collections().size(), 1);
    QCOMPARE(panel.state.collections().first().name, QStringLiteral("Harbour"));
    QVERIFY(!Overlay::of(*panel.view));
    panel.settle();

    QTest::mouseClick(button(panel.dashboard(), QStringLiteral("New Palette")), Qt::LeftButton);
    QCOMPARE(panel.view->findChild<QLineEdit*>()->text(), QString());
}

void DashboardViewTest::cancelledNameIsKept()
{
    PanelFixture panel;
    panel.dashboard().openNewPaletteOverlay();
    QTest::keyClicks(panel.view->findChild<QLineEdit*>(), QStringLiteral("Harb"));
    QTest::mouseClick(button(*panel.view, QStringLiteral("Cancel")), Qt::LeftButton);
    QVERIFY(!Overlay::of(*panel.view));
    panel.settle();

    panel.dashboard().openNewPaletteOverlay();
    auto* field = panel.view->findChild<QLineEdit*>();
    QCOMPARE(field->text(), QStringLiteral("Harb"));
    QVERIFY(button(*panel.view, QStringLiteral("Create"))->isEnabled());
    QTest::keyClick(field, Qt::Key_Escape);
    QVERIFY(!Overlay::of(*panel.view));
    QVERIFY(panel.state.collections().isEmpty());
}

void DashboardViewTest::tabGoesFromTopToBottom()
{
    PanelFixture panel;
    panel.capture(0x111111);
    panel.state.createCollection(QStringLiteral("First"));
    panel.state.createCollection(QStringLiteral("Second"));
    panel.capture(0x222222);
    panel.settle();
    QList<QWidget*> expected{button(panel.dashboard(), QStringLiteral("Pick a Color"))};
    expected.append(button(panel.dashboard(), QStringLiteral("Recent History, See all")));
    for (QWidget* swatch : panel.dashboard().swatches()) {
        expected.append(swatch);
    }
    for (QWidget* card : panel.dashboard().cards()) {
        expected.append(card);
    }
    expected.append(button(panel.dashboard(), QStringLiteral("New Palette")));

    expected.first()->setFocus(Qt::TabFocusReason);
    for (qsizetype i = 1; i < expected.size(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), expected[i]);
    }
}

void DashboardViewTest::colorPickedWhileHiddenIsLaidOut()
{
    PanelFixture panel;
    panel.view->hide();
    for (unsigned i = 0; i < 8; ++i) {
        panel.capture(i);
        panel.settle();
    }
    panel.view->show();
    panel.settle();
    const auto& swatches = panel.dashboard().swatches();
    for (qsizetype i = 1; i < swatches.size(); ++i) {
        QCOMPARE(swatches[i]->x() - swatches[i - 1]->x(), 74);
        QCOMPARE(swatches[i]->width(), swatches[0]->sizeHint().width());
    }
}

void DashboardViewTest::arrowKeysMoveAlongTheRecentRow()
{
    PanelFixture panel;
    for (unsigned i = 0; i < 10; ++i) {
        panel.capture(i);
    }
    panel.settle();
    const auto swatches = panel.dashboard().swatches();
    swatches.first()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(swatches.first(), Qt::Key_Left);
    QCOMPARE(QApplication::focusWidget(), swatches.first());
    for (qsizetype i = 1; i < swatches.size(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QCOMPARE(QApplication::focusWidget(), swatches[i]);
    }
    QTest::keyClick(swatches.last(), Qt::Key_Right);
    QCOMPARE(QApplication::focusWidget(), swatches.last());
    QVERIFY(panel.view->rect().contains(placeIn(*panel.view, *swatches.last())));
    QTest::keyClick(swatches.last(), Qt::Key_Left);
    QCOMPARE(QApplication::focusWidget(), swatches[8]);
}

void DashboardViewTest::returnAndSpaceCopyTheFocusedSwatch()
{
    PanelFixture panel;
    panel.capture(0x111111);
    panel.capture(0x222222);
    panel.settle();
    QTest::keyClick(panel.dashboard().swatches().at(1), Qt::Key_Return);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("#111111"));
    QTest::keyClick(panel.dashboard().swatches().at(0), Qt::Key_Space);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("#222222"));
}

void DashboardViewTest::newColorKeepsTheFocus()
{
    PanelFixture panel;
    panel.capture(0x111111);
    panel.settle();
    QWidget* focused = panel.dashboard().swatches().first();
    focused->setFocus(Qt::TabFocusReason);
    panel.capture(0x222222);
    panel.settle();
    QCOMPARE(QApplication::focusWidget(), focused);
    QCOMPARE(panel.dashboard().swatches().at(1), focused);
}

void DashboardViewTest::screenReadersGetNamesOfSwatchesAndCards()
{
    PanelFixture panel;
    panel.capture(0x1E90FF);
    panel.state.createCollection(QStringLiteral("Brand"));
    panel.settle();
    const auto* swatch = QAccessible::queryAccessibleInterface(panel.dashboard().swatches().first());
    QCOMPARE(swatch->text(QAccessible::Name), QStringLiteral("Dodger Blue, #1E90FF"));
    QCOMPARE(swatch->role(), QAccessible::Button);
    const auto* card = QAccessible::queryAccessibleInterface(panel.dashboard().cards().first());
    QCOMPARE(card->text(QAccessible::Name), QStringLiteral("Brand, 0 Colors"));
}

int main(int argc, char** argv)
{
    return tintwick::test::runWithOwnHome<DashboardViewTest>(argc, argv);
}
#include "DashboardViewTest.moc"
