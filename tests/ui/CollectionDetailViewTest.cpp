#include "CollectionDetailView.h"

#include "AppState.h"
#include "Appearance.h"
#include "Button.h"
#include "CollectionRowCard.h"
#include "ColorDetailRow.h"
#include "CopiedPill.h"
#include "DataFile.h"
#include "ExportMenu.h"
#include "Label.h"
#include "MenuButton.h"
#include "SelectionBar.h"
#include "Ticker.h"
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
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest/qtestspontaneevent.h>

#include <algorithm>
#include <functional>

using namespace tintwick;
using namespace tintwick::test;
using namespace Qt::StringLiterals;

namespace {

/// The area of the panel below its header.
constexpr QSize screenSize(380, 529);

/// The screen of a palette with colours, with animations advanced by hand.
class PaletteFixture final
{
public:
    explicit PaletteFixture(const QList<unsigned>& colors)
        : palette(store(colors))
        , state([](std::chrono::milliseconds, const std::function<void()>&) {})
        , view(new CollectionDetailView(state, palette, m_window))
    {
        Ticker::shared().setMode(Ticker::Mode::ByHand);
        QApplication::clipboard()->setText(QStringLiteral("untouched"));

        // Away from the rows.
        QCursor::setPos(790, 790);
        m_window.setFixedSize(screenSize);
        auto* layout = new QVBoxLayout(&m_window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(view);
        m_window.show();
        m_window.activateWindow();
        QVERIFY(QTest::qWaitForWindowExposed(&m_window));
        if (QWidget* focused = QApplication::focusWidget()) {
            focused->clearFocus();
        }
        settle();
    }

    /// Adds a colour without a name to the history and returns it.
    CapturedColor capture(unsigned rgb)
    {
        state.colorCaptured(colorOf(rgb));
        state.renameColor(state.history().first().id, QString());
        return state.history().first();
    }

    [[nodiscard]] const ColorCollection& collection() const { return state.collections().first(); }
    [[nodiscard]] ColorDetailRow& row(qsizetype position) const { return *view->rows().at(position); }

    /// The codes in the order of the state, for example "#000001 #000002".
    [[nodiscard]] QString stored() const { return codes(collection().colors(state.history())); }
    /// The codes in the order of the rows.
    [[nodiscard]] QString shown() const
    {
        QList<ColorDetailRow*> rows = view->rows();
        std::ranges::stable_sort(rows, {}, [](const ColorDetailRow* row) { return row->y(); });
        QList<CapturedColor> colors;
        for (const ColorDetailRow* row : rows) {
            colors.append(row->color());
        }
        return codes(colors);
    }
    /// Except the title of the export menu.
    [[nodiscard]] QStringList texts() const
    {
        QStringList result;
        for (const auto* label : view->findChildren<Label*>()) {
            if (label->isVisible() && !exportMenu().isAncestorOf(label)) {
                result.append(label->text());
            }
        }
        return result;
    }

    [[nodiscard]] ExportMenu& exportMenu() const { return *view->findChild<ExportMenu*>(); }
    [[nodiscard]] QScrollArea& scrollArea() const { return *view->findChild<QScrollArea*>(); }
    [[nodiscard]] ReorderList& list() const { return *view->findChild<ReorderList*>(); }

    [[nodiscard]] QPoint inWindow(const QWidget& widget, const QPoint& place) const
    {
        return widget.mapTo(&m_window, place);
    }
    [[nodiscard]] QPoint leftMiddle(qsizetype position) const
    {
        return inWindow(row(position), QPoint(100, ColorDetailRow::height / 2));
    }

    // Pointer events, sent to the window.
    void press(const QPoint& place) const
    {
        QTest::mousePress(m_window.windowHandle(), Qt::LeftButton, {}, place);
    }
    void move(const QPoint& place) const { QTest::mouseMove(m_window.windowHandle(), place); }
    /// Moves the pointer of the platform, too.
    void pointAt(const QPoint& place) const
    {
        QCursor::setPos(m_window.mapToGlobal(place));
        move(place);
    }
    void release(const QPoint& place) const
    {
        QTest::mouseRelease(m_window.windowHandle(), Qt::LeftButton, {}, place);
    }
    /// Moves in small steps and advances animations.
    void drag(const QPoint& from, const QPoint& to) const
    {
        constexpr int steps = 12;
        for (int step = 1; step <= steps; ++step) {
            move(from + (to - from) * step / steps);
            Ticker::shared().advance(1.0 / 60);
        }
    }

    void settle() const { tintwick::test::settle(); }
    [[nodiscard]] QImage picture()
    {
        settle();
        QImage image(m_window.size(), QImage::Format_RGB32);
        image.fill(theme::bg.in(Scheme::Light));
        QPainter painter(&image);
        m_window.render(&painter, {}, {}, QWidget::DrawChildren);
        return image;
    }

    const QUuid palette;
    AppState state;
    /// Owned by the window.
    CollectionDetailView* view;

private:
    static CapturedColor colorOf(unsigned rgb)
    {
        return CapturedColor::capture(((rgb >> 16U) & 0xffU) / 255.0, ((rgb >> 8U) & 0xffU) / 255.0,
                                      (rgb & 0xffU) / 255.0, 1);
    }

    /// Writes a data file with one palette of colours without names; returns its id.
    static QUuid store(const QList<unsigned>& colors)
    {
        QList<CapturedColor> history;
        ColorCollection collection = ColorCollection::create(QStringLiteral("Brand"));
        for (const unsigned rgb : colors) {
            history.prepend(colorOf(rgb));
            collection.colorIds.append(history.first().id);
        }
        if (DataFile().save({history, {collection}, ColorFormat::Hex6}) != 0) {
            qFatal("cannot write the data file");
        }
        return collection.id;
    }

    static QString codes(const QList<CapturedColor>& colors)
    {
        QStringList result;
        for (const CapturedColor& color : colors) {
            result.append(color.hex6());
        }
        return result.join(u' ');
    }

    QWidget m_window;
    Appearance m_appearance{m_window, Scheme::Light};
};

QString clipboardText()
{
    return QApplication::clipboard()->text();
}

QList<unsigned> numbered(unsigned count)
{
    QList<unsigned> colors;
    for (unsigned i = 1; i <= count; ++i) {
        colors.append(i);
    }
    return colors;
}

QString textOf(const CapturedColor& color)
{
    return color.id.toString(QUuid::WithoutBraces).toUpper();
}

const QString emptyText = QStringLiteral("No colors yet\nDrag swatches here from Recent History");

} // namespace

class CollectionDetailViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toolbarShowsNameAndCount_data();
    void toolbarShowsNameAndCount();
    void tileHasTheGradientOfTheCard();
    void layoutIsExact();
    void rowShowsCodeAndName();
    void longNamesAreElidedWithToolTip();
    void emptyScreenExplainsHowToAddColors();
    void colorsThatLeftTheHistoryAreShownAndUnknownOnesAreNot();
    void shownColorsAreExported();
    void plusPicksIntoThePalette();
    void screenFollowsTheState();
    void deletedPaletteShowsNoColors();
    void clickCopiesInTheDefaultFormat();
    void headerShowsCopyAndScreenClosesWithItsPalette();
    void menuOffersAllFormatsInOrder();
    void removingARowKeepsTheColor();
    void removedRowLeavesItsPlaceEmptyUntilThePointerMoves_data();
    void removedRowLeavesItsPlaceEmptyUntilThePointerMoves();
    void undoFillsTheEmptyPlace();
    void rowRemovedByKeyboardLeavesNoEmptyPlace();
    void buttonsOfARowHaveAHoverState();
    void droppedTexts_data();
    void droppedTexts();
    void dropOnARowCountsAsDropOnTheScreen();
    void dragOverTheScreenHighlightsIt();
    void droppedColorIsScrolledIntoView();

    void draggingMovesARow_data();
    void draggingMovesARow();
    void otherRowsMakeRoomForADraggedRow();
    void otherRowsKeepTheirPlacesWhileTheDraggedOneIsOutsideThePanel();
    void pressWithSmallMoveIsAClick();
    void dragIsNotAClick();
    void escapeCancelsADrag();
    void interruptedDragMovesNothing_data();
    void interruptedDragMovesNothing();
    void deletingAColorEndsItsDrag_data();
    void deletingAColorEndsItsDrag();
    void rowDraggedToAnEdgeScrollsTheList_data();
    void rowDraggedToAnEdgeScrollsTheList();
    void wheelScrollsDuringADrag();
    void movesUseListPositionsWhenIdsAreMissing();
    void reducedMotionMovesRowsAtOnce();

    void altAndArrowsMoveTheFocusedRow_data();
    void altAndArrowsMoveTheFocusedRow();
    void severalRowsAreSelectedAndRemoved();
    void selectedRowsMoveTogether_data();
    void selectedRowsMoveTogether();
    void arrowsMoveTheFocus_data();
    void arrowsMoveTheFocus();
    void tabVisitsRowsInOrder();
    void rowMovedByKeyboardStaysVisible();
    void screenReadersGetNamesAndRoles();
    void paletteIsRenamed_data();
    void paletteIsRenamed();
    void actionsOfThePaletteAreInAMenu();
    void sortedRowsMoveToTheirPlaces();
    void sortedRowsCanBeOrderedByHand();
};

void CollectionDetailViewTest::toolbarShowsNameAndCount_data()
{
    QTest::addColumn<unsigned>("colors");
    QTest::addColumn<QString>("count");
    QTest::newRow("none") << 0U << QStringLiteral("0 colors");
    QTest::newRow("one") << 1U << QStringLiteral("1 color");
    QTest::newRow("twelve") << 12U << QStringLiteral("12 colors");
}

void CollectionDetailViewTest::toolbarShowsNameAndCount()
{
    QFETCH(const unsigned, colors);
    QFETCH(const QString, count);
    const PaletteFixture screen(numbered(colors));
    QCOMPARE(screen.texts().mid(0, 2), (QStringList{QStringLiteral("Brand"), count}));
}

void CollectionDetailViewTest::tileHasTheGradientOfTheCard()
{
    PanelFixture panel;
    const QUuid first = panel.state.createCollection(QStringLiteral("First")).id;
    panel.view->setSelectedCollectionId(panel.state.createCollection(QStringLiteral("Second")).id);
    const auto tile = [&] {
        const QImage screen = panel.picture().copy(placeIn(*panel.view, panel.view->currentScreen()));
        // 3 points into the tile of 32, at half its height: 19 / 64 along the gradient.
        const QWidget& toolbar =
            *panel.view->currentScreen().findChild<Label*>()->parentWidget()->parentWidget();
        return screen.pixel(16 + 3, toolbar.height() / 2);
    };
    // Blue: the second card.
    QVERIFY(isNear(tile(), qRgb(74, 131, 239), 3));
    // Orange: it became the first card.
    panel.state.deleteCollection(first);
    QVERIFY(isNear(tile(), qRgb(252, 138, 46), 3));
}

void CollectionDetailViewTest::layoutIsExact()
{
    PaletteFixture screen({0x1ABF80, 0x3B82F6});
    const QImage picture = screen.picture();
    const QRgb ground = theme::bg.in(Scheme::Light).rgb();
    // The tile is 32 x 32 and 16 from the left. Name and count beside it are taller.
    const QWidget& toolbar = *screen.view->findChild<Label*>()->parentWidget()->parentWidget();
    const int middle = toolbar.height() / 2;
    QCOMPARE(picture.pixel(15, middle), ground);
    QVERIFY(picture.pixel(16, middle) != ground);
    QVERIFY(picture.pixel(47, middle) != ground);
    QCOMPARE(picture.pixel(48, middle), ground);

    // A row is 4 + 2 + 42 + 2 + 4 high; the square is 12 from the left.
    QCOMPARE(screen.row(0).geometry(), QRect(0, 0, 380, 54));
    QCOMPARE(screen.row(1).geometry(), QRect(0, 54, 380, 54));
    const int top = screen.inWindow(screen.row(0), {}).y();
    QCOMPARE(top, toolbar.height() + 1);
    const QRgb color = qRgb(0x1A, 0xBF, 0x80);
    QVERIFY(picture.pixel(11, top + 27) != color);
    QCOMPARE(picture.pixel(13, top + 27), color);
    QCOMPARE(picture.pixel(52, top + 27), color);
    QVERIFY(picture.pixel(55, top + 27) != color);
    QVERIFY(picture.pixel(33, top + 4) != color);
    QCOMPARE(picture.pixel(33, top + 7), color);
    QCOMPARE(picture.pixel(33, top + 46), color);
    QVERIFY(picture.pixel(33, top + 49) != color);

    // A rule between rows, none above the first or below the last.
    QVERIFY(picture.pixel(200, top + 54) != ground);
    QCOMPARE(picture.pixel(200, top), ground);
    QCOMPARE(picture.pixel(200, top + 108), ground);
    QCOMPARE(picture.pixel(6, top + 54), ground);

    const QWidget& copy = screen.row(0).copyButton();
    const QWidget& remove = screen.row(0).removeButton();
    QCOMPARE(QRect(copy.mapTo(&screen.row(0), QPoint()), copy.size()), QRect(302, 12, 30, 30));
    QCOMPARE(QRect(remove.mapTo(&screen.row(0), QPoint()), remove.size()), QRect(344, 15, 24, 24));
}

void CollectionDetailViewTest::rowShowsCodeAndName()
{
    PaletteFixture screen({0x3B82F6});
    QCOMPARE(screen.texts().mid(2), QStringList{QStringLiteral("#3B82F6")});
    screen.state.renameColor(screen.row(0).color().id, QStringLiteral("Ocean"));
    screen.settle();
    QCOMPARE(screen.texts().mid(2), (QStringList{QStringLiteral("#3B82F6"), QStringLiteral("Ocean")}));
    screen.state.renameColor(screen.row(0).color().id, QString());
    screen.settle();
    QCOMPARE(screen.texts().mid(2), QStringList{QStringLiteral("#3B82F6")});
}

void CollectionDetailViewTest::longNamesAreElidedWithToolTip()
{
    const QString longName =
        QStringLiteral("The blue of the third door in the street behind the harbour office");
    PaletteFixture screen({0x3B82F6});
    const auto nameLabel = [&]() -> const Label* {
        for (const auto* label : screen.row(0).findChildren<Label*>()) {
            if (label->text() != QStringLiteral("#3B82F6")) {
                return label;
            }
        }
        return nullptr;
    };
    screen.state.renameColor(screen.row(0).color().id, QStringLiteral("Ocean"));
    screen.settle();
    QCOMPARE(nameLabel()->toolTip(), QString());
    screen.state.renameColor(screen.row(0).color().id, longName);
    screen.settle();
    QCOMPARE(nameLabel()->toolTip(), longName);
    // The name ends at the buttons.
    QCOMPARE(nameLabel()->mapTo(&screen.row(0), QPoint(nameLabel()->width(), 0)).x(), 302 - 12 - 12);
    QCOMPARE(screen.row(0).size(), QSize(380, 54));
    QCOMPARE(screen.view->size(), screenSize);
}

void CollectionDetailViewTest::emptyScreenExplainsHowToAddColors()
{
    PaletteFixture screen({});
    QVERIFY(screen.texts().contains(emptyText));
    QVERIFY(!screen.scrollArea().isVisible());
    screen.state.addColor(screen.capture(0x111111).id, screen.palette);
    screen.settle();
    QVERIFY(!screen.texts().contains(emptyText));
    QVERIFY(screen.row(0).isVisible());
}

void CollectionDetailViewTest::colorsThatLeftTheHistoryAreShownAndUnknownOnesAreNot()
{
    PaletteFixture screen({0x111111, 0x222222});
    screen.state.addColor(QUuid::createUuid(), screen.palette);
    screen.settle();
    QCOMPARE(screen.collection().colorIds.size(), 3);
    QCOMPARE(screen.shown(), QStringLiteral("#111111 #222222"));
    QCOMPARE(screen.texts().at(1), QStringLiteral("2 colors"));

    // 100 later captures drop both colours from the history. The palette keeps them.
    for (unsigned i = 0; i < 100; ++i) {
        screen.state.colorCaptured(CapturedColor::capture(0, 0, i / 255.0, 1));
    }
    screen.settle();
    QCOMPARE(screen.state.history().size(), 100);
    QCOMPARE(screen.shown(), QStringLiteral("#111111 #222222"));
    QCOMPARE(screen.texts().at(1), QStringLiteral("2 colors"));
    const QPoint there = screen.inWindow(screen.row(1), QPoint(80, 20));
    screen.press(there);
    screen.release(there);
    QCOMPARE(clipboardText(), QStringLiteral("#222222"));
}

void CollectionDetailViewTest::plusPicksIntoThePalette()
{
    PaletteFixture palette({});
    const QSignalSpy picks(palette.view, &CollectionDetailView::pickRequested);
    QAbstractButton* plus = button(*palette.view, QStringLiteral("Pick colors into this palette"));
    QVERIFY(plus);
    QCOMPARE(plus->toolTip(), QStringLiteral("Pick colors into this palette"));
    plus->setFocus(Qt::TabFocusReason);
    QTest::keyClick(plus, Qt::Key_Space);
    QCOMPARE(picks.count(), 1);
    const auto pick = picks.at(0).at(0).value<WantedPick>();
    QCOMPARE(pick.palette, std::optional(palette.collection().id));
    QCOMPARE(pick.delay, std::chrono::seconds(0));
}

void CollectionDetailViewTest::shownColorsAreExported()
{
    PaletteFixture screen({0x111111, 0x222222});
    QVERIFY(screen.exportMenu().isEnabled());
    const QPoint edge = screen.inWindow(screen.exportMenu(), QPoint(4, screen.exportMenu().height() / 2));
    QVERIFY(screen.picture().pixel(edge) != theme::surfaceHigh.in(Scheme::Light).rgb());
    // At the right end of the toolbar, 16 from the edge.
    QCOMPARE(screen.inWindow(screen.exportMenu(), QPoint(screen.exportMenu().width(), 0)).x(), 364);

    screen.state.clearHistory();
    screen.settle();
    QVERIFY(!screen.exportMenu().isEnabled());
    QCOMPARE(screen.picture().pixel(edge), theme::surfaceHigh.in(Scheme::Light).rgb());

    // Ids without a colour are not exported.
    screen.state.addColor(QUuid::createUuid(), screen.palette);
    screen.settle();
    QVERIFY(!screen.exportMenu().isEnabled());
    QCOMPARE(screen.texts(), (QStringList{QStringLiteral("Brand"), QStringLiteral("0 colors"), emptyText}));
}

void CollectionDetailViewTest::screenFollowsTheState()
{
    PaletteFixture screen({0x111111, 0x222222, 0x333333});
    const ColorDetailRow* kept = &screen.row(2);
    screen.state.deleteColor(screen.row(0).color().id);
    screen.settle();
    QCOMPARE(screen.shown(), QStringLiteral("#222222 #333333"));
    QCOMPARE(screen.texts().at(1), QStringLiteral("2 colors"));
    QCOMPARE(&screen.row(1), kept);

    screen.state.clearHistory();
    screen.settle();
    QCOMPARE(screen.texts(), (QStringList{QStringLiteral("Brand"), QStringLiteral("0 colors"), emptyText}));
    QVERIFY(screen.view->findChildren<ColorDetailRow*>().isEmpty());
}

void CollectionDetailViewTest::deletedPaletteShowsNoColors()
{
    PaletteFixture screen({0x111111});
    screen.state.deleteCollection(screen.palette);
    screen.settle();
    QVERIFY(screen.view->rows().isEmpty());
    QCOMPARE(screen.texts().at(1), QStringLiteral("0 colors"));
    QVERIFY(drop(*screen.view, textOf(screen.state.history().first())));
    screen.settle();
    QVERIFY(screen.view->rows().isEmpty());

    AppState& state = screen.state;
    QWidget panel;
    CollectionDetailView never(state, QUuid::createUuid(), panel);
    QVERIFY(never.rows().isEmpty());
}

void CollectionDetailViewTest::clickCopiesInTheDefaultFormat()
{
    PaletteFixture screen({0x111111, 0x3B82F6});
    screen.state.setDefaultFormat(ColorFormat::Rgb);
    const QList<QPoint> places{QPoint(3, 27), QPoint(30, 27), QPoint(80, 20), QPoint(250, 50)};
    for (const QPoint& place : places) {
        QApplication::clipboard()->clear();
        const QPoint there = screen.inWindow(screen.row(1), place);
        screen.press(there);
        screen.release(there);
        QCOMPARE(clipboardText(), QStringLiteral("rgb(59, 130, 246)"));
        QVERIFY(screen.state.showCopiedFeedback());
        QCOMPARE(screen.state.lastCopiedString(), QStringLiteral("rgb(59, 130, 246)"));
    }
}

void CollectionDetailViewTest::headerShowsCopyAndScreenClosesWithItsPalette()
{
    test::PanelFixture panel;
    const QUuid palette = panel.state.createCollection(QStringLiteral("Brand")).id;
    panel.state.addColor(panel.capture(0x3B82F6).id, palette);
    panel.letFeedbackEnd();
    panel.settle();
    QTest::mouseClick(panel.dashboard().cards().first(), Qt::LeftButton);
    auto* screen = qobject_cast<CollectionDetailView*>(&panel.view->currentScreen());
    QVERIFY(screen);
    panel.settle();
    const auto* pill = panel.view->findChild<CopiedPill*>();
    QVERIFY(!pill->isVisible());
    QTest::mouseClick(screen->rows().first(), Qt::LeftButton, {}, QPoint(100, 27));
    panel.settle();
    QVERIFY(pill->isVisible());
    QCOMPARE(clipboardText(), QStringLiteral("#3B82F6"));

    // Deleting the palette deletes the screen during its own drag.
    QTest::mousePress(screen->rows().first(), Qt::LeftButton, {}, QPoint(100, 27));
    QTest::mouseMove(screen->rows().first(), QPoint(100, 67));
    panel.state.deleteCollection(palette);
    panel.settle();
    QVERIFY(!qobject_cast<CollectionDetailView*>(&panel.view->currentScreen()));
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    escape.ignore();
    QApplication::sendEvent(panel.view.get(), &escape);
    QVERIFY(!escape.isAccepted());
}

void CollectionDetailViewTest::menuOffersAllFormatsInOrder()
{
    PaletteFixture screen({0x3B82F6});
    const QPoint place = screen.inWindow(screen.row(0).copyButton(), QPoint(15, 15));
    screen.press(place);
    screen.release(place);
    QMenu* menu = screen.row(0).copyButton().menu();
    QVERIFY(menu);
    QCOMPARE(titles(*menu), formatTitles());
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("HEX\t#3B82F6"));
    // Opening the menu does not copy.
    QCOMPARE(clipboardText(), QStringLiteral("untouched"));
    menu->actions().at(4)->trigger();
    menu->close();
    QCOMPARE(clipboardText(), QStringLiteral("hsl(217, 91%, 60%)"));
    QVERIFY(screen.state.showCopiedFeedback());
    QCOMPARE(screen.state.lastCopiedString(), QStringLiteral("hsl(217, 91%, 60%)"));
}

void CollectionDetailViewTest::removingARowKeepsTheColor()
{
    PaletteFixture screen({0x111111, 0x222222, 0x333333});
    const QPoint place = screen.inWindow(screen.row(1).removeButton(), QPoint(12, 12));
    screen.press(place);
    screen.release(place);
    screen.settle();
    QCOMPARE(screen.shown(), QStringLiteral("#111111 #333333"));
    QCOMPARE(screen.stored(), QStringLiteral("#111111 #333333"));
    QCOMPARE(screen.state.history().size(), 3);
    QCOMPARE(clipboardText(), QStringLiteral("untouched"));
}

void CollectionDetailViewTest::removedRowLeavesItsPlaceEmptyUntilThePointerMoves_data()
{
    QTest::addColumn<int>("removed");
    QTest::addColumn<int>("scroll");
    QTest::newRow("first") << 0 << 0;
    QTest::newRow("in the middle") << 2 << 0;
    QTest::newRow("last") << 11 << 1000;
    QTest::newRow("before the last, at the end of the list") << 10 << 1000;
}

void CollectionDetailViewTest::removedRowLeavesItsPlaceEmptyUntilThePointerMoves()
{
    QFETCH(const int, removed);
    QFETCH(const int, scroll);
    PaletteFixture screen(numbered(12));
    screen.scrollArea().verticalScrollBar()->setValue(scroll);
    screen.settle();
    const auto places = [&] {
        QHash<QString, int> tops;
        for (const ColorDetailRow* row : screen.view->rows()) {
            tops.insert(row->color().hex6(), screen.inWindow(*row, {}).y());
        }
        return tops;
    };
    QHash<QString, int> before = places();
    const QString code = screen.row(removed).color().hex6();
    const QPoint place = screen.inWindow(screen.row(removed).removeButton(), QPoint(12, 12));
    screen.pointAt(place);
    screen.press(place);
    screen.release(place);
    screen.settle();
    before.remove(code);
    QCOMPARE(places(), before);

    // A second click and a trembling hand remove nothing.
    screen.move(place + QPoint(1, 1));
    screen.press(place + QPoint(1, 1));
    screen.release(place + QPoint(1, 1));
    screen.move(place - QPoint(2, 1));
    screen.settle();
    QCOMPARE(places(), before);
    QCOMPARE(screen.collection().colorIds.size(), 11);
    QCOMPARE(clipboardText(), QStringLiteral("untouched"));

    screen.move(place - QPoint(0, 20));
    screen.settle();
    QCOMPARE(screen.list().height(), 11 * 54);
    for (int i = 0; i < 11; ++i) {
        QCOMPARE(screen.row(i).y(), i * 54);
    }
}

void CollectionDetailViewTest::undoFillsTheEmptyPlace()
{
    PaletteFixture screen(numbered(3));
    const QPoint place = screen.inWindow(screen.row(1).removeButton(), QPoint(12, 12));
    screen.pointAt(place);
    screen.press(place);
    screen.release(place);
    screen.settle();
    QCOMPARE(screen.row(1).y(), 108);
    screen.state.undo();
    screen.settle();
    QCOMPARE(screen.shown(), QStringLiteral("#000001 #000002 #000003"));
    QCOMPARE(screen.list().height(), 3 * 54);
    QCOMPARE(screen.row(1).y(), 54);
    QCOMPARE(screen.row(2).y(), 108);
}

void CollectionDetailViewTest::rowRemovedByKeyboardLeavesNoEmptyPlace()
{
    PaletteFixture screen(numbered(3));
    screen.row(1).removeButton().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&screen.row(1).removeButton(), Qt::Key_Return);
    screen.settle();
    QCOMPARE(screen.row(1).y(), 54);
    QCOMPARE(screen.list().height(), 2 * 54);
}

void CollectionDetailViewTest::buttonsOfARowHaveAHoverState()
{
    PaletteFixture screen({0x111111, 0x222222});
    const QPoint copy = screen.inWindow(screen.row(0).copyButton(), QPoint(3, 15));
    const QPoint remove = screen.inWindow(screen.row(0).removeButton(), QPoint(12, 12));
    const QRgb ground = theme::bg.in(Scheme::Light).rgb();
    QImage before = screen.picture();
    QCOMPARE(before.pixel(copy), ground);

    hover(screen.row(0), QEvent::HoverEnter);
    // 10 % of (0.38, 0.40, 0.88) over 0xF5F5F7.
    const QRgb lit = screen.picture().pixel(copy);
    QVERIFY(std::abs(qRed(lit) - 230) <= 1 && std::abs(qGreen(lit) - 231) <= 1 &&
            std::abs(qBlue(lit) - 245) <= 1);
    QVERIFY(qRed(screen.picture().pixel(remove)) > qBlue(screen.picture().pixel(remove)) + 40);
    QCOMPARE(screen.picture().pixel(copy + QPoint(0, 54)), ground);

    hover(screen.row(0), QEvent::HoverLeave);
    QVERIFY(screen.picture() == before);
    // After half of the time the fade is half done.
    hover(screen.row(0), QEvent::HoverEnter);
    Ticker::shared().advance(0.06);
    QVERIFY(Ticker::shared().hasMotion());
    Ticker::shared().advance(0.06);
    QVERIFY(!Ticker::shared().hasMotion());
}

void CollectionDetailViewTest::droppedTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("after");
    // %1 is a member, %2 and %3 are other colours of the history.
    QTest::newRow("another color") << QStringLiteral("%2") << QStringLiteral("#111111 #222222");
    QTest::newRow("in lower case") << QStringLiteral("lower %2") << QStringLiteral("#111111 #222222");
    QTest::newRow("in braces") << QStringLiteral("{%2}") << QStringLiteral("#111111");
    QTest::newRow("without hyphens") << QStringLiteral("bare %2") << QStringLiteral("#111111");
    QTest::newRow("a member") << QStringLiteral("%1") << QStringLiteral("#111111");
    QTest::newRow("not an id") << QStringLiteral("a text of any kind") << QStringLiteral("#111111");
    QTest::newRow("empty") << QString() << QStringLiteral("#111111");
    QTest::newRow("several, in order")
        << QStringLiteral("%3\nno id\n%1\n%2\n") << QStringLiteral("#111111 #333333 #222222");
}

void CollectionDetailViewTest::droppedTexts()
{
    QFETCH(QString, text);
    QFETCH(const QString, after);
    PaletteFixture screen({0x111111});
    const CapturedColor second = screen.capture(0x222222);
    const CapturedColor third = screen.capture(0x333333);
    text.replace(QStringLiteral("%1"), textOf(screen.row(0).color()));
    text.replace(QStringLiteral("lower %2"), second.id.toString(QUuid::WithoutBraces));
    text.replace(QStringLiteral("bare %2"), second.id.toString(QUuid::Id128));
    text.replace(QStringLiteral("%2"), textOf(second));
    text.replace(QStringLiteral("%3"), textOf(third));
    QVERIFY(drop(*screen.view, text));
    screen.settle();
    QCOMPARE(screen.shown(), after);
    QCOMPARE(screen.stored(), after);
    QVERIFY(!screen.view->isDropTarget());
}

void CollectionDetailViewTest::dropOnARowCountsAsDropOnTheScreen()
{
    PaletteFixture screen({0x111111});
    const CapturedColor other = screen.capture(0x222222);
    QVERIFY(drop(screen.row(0), textOf(other)));
    screen.settle();
    QCOMPARE(screen.shown(), QStringLiteral("#111111 #222222"));

    PaletteFixture empty({});
    const CapturedColor first = empty.capture(0x333333);
    QVERIFY(drop(*empty.view->childAt(QPoint(190, 300)), textOf(first)));
    empty.settle();
    QCOMPARE(empty.shown(), QStringLiteral("#333333"));
}

void CollectionDetailViewTest::dragOverTheScreenHighlightsIt()
{
    PaletteFixture screen({0x111111});
    const QImage before = screen.picture();
    QMimeData picture;
    picture.setData(QStringLiteral("image/png"), "no text");
    QDragEnterEvent foreign(QPoint(20, 20), Qt::CopyAction, &picture, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(screen.view, &foreign);
    QVERIFY(!foreign.isAccepted());
    QVERIFY(!screen.view->isDropTarget());
    QVERIFY(screen.picture() == before);

    QMimeData text;
    text.setText(QStringLiteral("anything"));
    QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(screen.view, &enter);
    QVERIFY(screen.view->isDropTarget());
    // The frame is inset by 6.
    QVERIFY(screen.picture().pixel(6, 300) != before.pixel(6, 300));
    QVERIFY(screen.picture().pixel(4, 300) == before.pixel(4, 300));
    QDragLeaveEvent leave;
    QApplication::sendEvent(screen.view, &leave);
    QVERIFY(!screen.view->isDropTarget());
    QVERIFY(screen.picture() == before);
}

void CollectionDetailViewTest::droppedColorIsScrolledIntoView()
{
    PaletteFixture screen(numbered(30));
    const CapturedColor other = screen.capture(0xABCDEF);
    QVERIFY(drop(*screen.view, textOf(other)));
    screen.settle();
    QCOMPARE(screen.row(30).color(), other);
    QVERIFY(!screen.row(30).visibleRegion().isEmpty());
    QCOMPARE(screen.row(30).visibleRegion().boundingRect().height(), 54);
}

void CollectionDetailViewTest::draggingMovesARow_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("by");
    QTest::addColumn<int>("sideways");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* name, int from, int by, const char* after, int sideways = 7) {
        QTest::newRow(name) << from << by << sideways << QString::fromLatin1(after);
    };
    row("down by one", 0, 54, "#000002 #000001 #000003 #000004");
    row("down to the end", 0, 54 * 3, "#000002 #000003 #000004 #000001");
    row("down beyond the end", 1, 380, "#000001 #000003 #000004 #000002");
    row("up by one", 2, -54, "#000001 #000003 #000002 #000004");
    row("up to the start", 3, -54 * 3, "#000004 #000001 #000002 #000003");
    row("up beyond the start", 2, -300, "#000003 #000001 #000002 #000004");
    row("a little more than half a row", 1, 29, "#000001 #000003 #000002 #000004");
    row("a little less than half a row", 1, 25, "#000001 #000002 #000003 #000004");
    row("down by one at the left edge of the panel", 0, 54, "#000002 #000001 #000003 #000004", -100);
    row("out of the panel on the left", 0, 54, "#000001 #000002 #000003 #000004", -101);
    row("down by one at the right edge of the panel", 0, 54, "#000002 #000001 #000003 #000004", 279);
    row("out of the panel on the right", 0, 54, "#000001 #000002 #000003 #000004", 280);
}

void CollectionDetailViewTest::draggingMovesARow()
{
    QFETCH(const int, from);
    QFETCH(const int, by);
    QFETCH(const int, sideways);
    QFETCH(const QString, after);
    PaletteFixture screen(numbered(4));
    const QPoint start = screen.leftMiddle(from);
    screen.press(start);
    screen.drag(start, start + QPoint(sideways, by));
    screen.release(start + QPoint(sideways, by));
    QCOMPARE(screen.stored(), after);
    screen.settle();
    QCOMPARE(screen.shown(), after);
    for (qsizetype position = 0; position < 4; ++position) {
        QCOMPARE(screen.row(position).geometry(), QRect(0, 54 * static_cast<int>(position), 380, 54));
    }
    QCOMPARE(clipboardText(), QStringLiteral("untouched"));
    QVERIFY(!Ticker::shared().hasMotion());
}

void CollectionDetailViewTest::otherRowsMakeRoomForADraggedRow()
{
    PaletteFixture screen(numbered(4));
    const QImage before = screen.picture();
    const QPoint start = screen.leftMiddle(0);
    screen.press(start);
    screen.drag(start, start + QPoint(0, 70));
    QVERIFY(screen.list().isCarrying());
    QCOMPARE(screen.row(0).y(), 70);
    // The second row is animated: it is between its old and new place.
    QVERIFY(screen.row(1).y() > 0);
    QVERIFY(screen.row(1).y() < 54);
    screen.settle();
    QCOMPARE(screen.row(0).y(), 70);
    QCOMPARE(screen.row(1).y(), 0);
    QCOMPARE(screen.row(2).y(), 108);
    QCOMPARE(screen.stored(), QStringLiteral("#000001 #000002 #000003 #000004"));
    // A dragged row has a background.
    const QPoint onPlate = screen.inWindow(screen.row(0), QPoint(200, 27));
    QCOMPARE(screen.picture().pixel(onPlate), theme::surface.in(Scheme::Light).rgb());

    screen.release(start + QPoint(0, 70));
    QVERIFY(screen.row(0).color().hex6() == QStringLiteral("#000002"));
    QCOMPARE(screen.row(1).y(), 70);
    screen.settle();
    QCOMPARE(screen.row(1).y(), 54);
    QCOMPARE(screen.picture().pixel(screen.inWindow(screen.row(1), QPoint(200, 27))),
             theme::bg.in(Scheme::Light).rgb());
}

void CollectionDetailViewTest::otherRowsKeepTheirPlacesWhileTheDraggedOneIsOutsideThePanel()
{
    PaletteFixture screen(numbered(4));
    const QPoint start = screen.leftMiddle(0);
    screen.press(start);
    screen.drag(start, start + QPoint(0, 70));
    screen.drag(start + QPoint(0, 70), start + QPoint(-150, 70));
    screen.settle();
    QCOMPARE(screen.row(0).y(), 70);
    QCOMPARE(screen.row(1).y(), 54);
    // They make room again when it comes back.
    screen.drag(start + QPoint(-150, 70), start + QPoint(0, 70));
    screen.settle();
    QCOMPARE(screen.row(1).y(), 0);
    screen.release(start + QPoint(0, 70));
    QCOMPARE(screen.stored(), QStringLiteral("#000002 #000001 #000003 #000004"));
}

void CollectionDetailViewTest::pressWithSmallMoveIsAClick()
{
    PaletteFixture screen(numbered(4));
    const QPoint start = screen.leftMiddle(1);
    screen.press(start);
    screen.move(start + QPoint(0, QApplication::startDragDistance() - 1));
    QVERIFY(!screen.list().isCarrying());
    screen.release(start + QPoint(0, QApplication::startDragDistance() - 1));
    QCOMPARE(clipboardText(), QStringLiteral("#000002"));
}

void CollectionDetailViewTest::dragIsNotAClick()
{
    PaletteFixture screen(numbered(4));
    const QPoint start = screen.leftMiddle(1);
    screen.press(start);
    screen.drag(start, start + QPoint(0, 20));
    QVERIFY(screen.list().isCarrying());
    screen.drag(start + QPoint(0, 20), start);
    screen.release(start);
    QCOMPARE(clipboardText(), QStringLiteral("untouched"));
    QCOMPARE(screen.stored(), QStringLiteral("#000001 #000002 #000003 #000004"));
    screen.settle();

    // The next click works.
    screen.press(start);
    screen.release(start);
    QCOMPARE(clipboardText(), QStringLiteral("#000002"));
}

void CollectionDetailViewTest::escapeCancelsADrag()
{
    PaletteFixture screen(numbered(4));
    const QPoint start = screen.leftMiddle(0);
    screen.press(start);
    screen.drag(start, start + QPoint(0, 120));
    screen.settle();
    QTest::keyClick(screen.view->window(), Qt::Key_Escape);
    QVERIFY(!screen.list().isCarrying());
    QVERIFY(screen.view->window()->isVisible());
    // The row is animated back.
    QCOMPARE(screen.row(0).y(), 120);
    Ticker::shared().advance(0.05);
    QVERIFY(screen.row(0).y() < 120);
    QVERIFY(screen.row(0).y() > 0);
    screen.settle();
    QCOMPARE(screen.row(0).y(), 0);
    QCOMPARE(screen.row(1).y(), 54);

    // Moves until the release have no effect.
    screen.drag(start + QPoint(0, 120), start + QPoint(0, 60));
    QCOMPARE(screen.row(0).y(), 0);
    screen.drag(start + QPoint(0, 60), start);
    screen.release(start);
    QCOMPARE(clipboardText(), QStringLiteral("untouched"));
    QCOMPARE(screen.stored(), QStringLiteral("#000001 #000002 #000003 #000004"));

    // Without a drag, Escape reaches the window.
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&screen.row(0), &escape);
    QVERIFY(!escape.isAccepted());
}

void CollectionDetailViewTest::interruptedDragMovesNothing_data()
{
    QTest::addColumn<int>("end");
    QTest::newRow("the window is deactivated") << static_cast<int>(QEvent::WindowDeactivate);
    QTest::newRow("the screen is hidden") << static_cast<int>(QEvent::Hide);
    QTest::newRow("the grab is lost") << static_cast<int>(QEvent::UngrabMouse);
    QTest::newRow("the release was not delivered") << static_cast<int>(QEvent::MouseMove);
}

void CollectionDetailViewTest::interruptedDragMovesNothing()
{
    QFETCH(const int, end);
    PaletteFixture screen(numbered(4));
    const QPoint start = screen.leftMiddle(0);
    screen.press(start);
    screen.drag(start, start + QPoint(0, 120));
    QVERIFY(screen.list().isCarrying());
    switch (end) {
    case QEvent::WindowDeactivate: {
        QEvent deactivate(QEvent::WindowDeactivate);
        QApplication::sendEvent(screen.view->window(), &deactivate);
        break;
    }
    case QEvent::Hide:
        screen.view->hide();
        break;
    case QEvent::UngrabMouse: {
        QEvent ungrab(QEvent::UngrabMouse);
        QApplication::sendEvent(&screen.row(0), &ungrab);
        break;
    }
    default: {
        QMouseEvent move(QEvent::MouseMove, QPointF(10, 10), screen.row(0).mapToGlobal(QPointF(10, 10)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&screen.row(0), &move);
    }
    }
    QVERIFY(!screen.list().isCarrying());
    screen.release(start + QPoint(0, 120));
    screen.view->show();
    screen.settle();
    QCOMPARE(screen.stored(), QStringLiteral("#000001 #000002 #000003 #000004"));
    QCOMPARE(screen.row(0).y(), 0);
    QCOMPARE(screen.row(2).y(), 108);
    QCOMPARE(clipboardText(), QStringLiteral("untouched"));
}

void CollectionDetailViewTest::deletingAColorEndsItsDrag_data()
{
    QTest::addColumn<qsizetype>("deleted");
    QTest::addColumn<QString>("after");
    QTest::newRow("the dragged one") << qsizetype{1} << QStringLiteral("#000001 #000003 #000004");
    QTest::newRow("another one") << qsizetype{3} << QStringLiteral("#000001 #000002 #000003");
    QTest::newRow("all") << qsizetype{-1} << QString();
}

void CollectionDetailViewTest::deletingAColorEndsItsDrag()
{
    QFETCH(const qsizetype, deleted);
    QFETCH(const QString, after);
    PaletteFixture screen(numbered(4));
    const QPoint start = screen.leftMiddle(1);
    screen.press(start);
    screen.drag(start, start + QPoint(0, 60));
    QVERIFY(screen.list().isCarrying());
    if (deleted < 0) {
        screen.state.clearHistory();
    } else {
        screen.state.deleteColor(screen.row(deleted).color().id);
    }
    QVERIFY(!screen.list().isCarrying());
    screen.drag(start + QPoint(0, 60), start + QPoint(0, 100));
    screen.release(start + QPoint(0, 100));
    screen.settle();
    QCOMPARE(screen.shown(), after);
    QCOMPARE(screen.stored(), after);
    for (qsizetype position = 0; position < screen.view->rows().size(); ++position) {
        QCOMPARE(screen.row(position).y(), 54 * static_cast<int>(position));
    }
    QVERIFY(!Ticker::shared().hasMotion());

    // A colour captured during the drag changes nothing here.
    if (deleted == 3) {
        screen.press(start);
        screen.drag(start, start + QPoint(0, 60));
        screen.capture(0xFFFFFF);
        QVERIFY(screen.list().isCarrying());
        screen.release(start + QPoint(0, 60));
        QCOMPARE(screen.stored(), QStringLiteral("#000001 #000003 #000002"));
    }
}

void CollectionDetailViewTest::rowDraggedToAnEdgeScrollsTheList_data()
{
    QTest::addColumn<bool>("down");
    QTest::newRow("to the lower edge") << true;
    QTest::newRow("to the upper edge") << false;
}

void CollectionDetailViewTest::rowDraggedToAnEdgeScrollsTheList()
{
    QFETCH(const bool, down);
    PaletteFixture screen(numbered(30));
    QScrollBar& bar = *screen.scrollArea().verticalScrollBar();
    QCOMPARE(bar.maximum(), 30 * 54 - screen.scrollArea().viewport()->height());
    bar.setValue(down ? 0 : bar.maximum());
    screen.settle();
    const qsizetype carried = down ? 2 : 27;
    const ColorDetailRow* row = &screen.row(carried);
    const QPoint start = screen.leftMiddle(carried);
    const QWidget& viewport = *screen.scrollArea().viewport();
    const QPoint edge(start.x(), screen.inWindow(viewport, QPoint(0, down ? viewport.height() - 2 : 2)).y());
    screen.press(start);
    screen.move(start + (edge - start) / 2);
    Ticker::shared().advance(1);
    QCOMPARE(bar.value(), down ? 0 : bar.maximum());

    screen.move(edge);
    // The pointer rests; the list scrolls frame by frame and the row stays under the pointer.
    int last = bar.value();
    int frames = 0;
    while (bar.value() != (down ? bar.maximum() : 0)) {
        Ticker::shared().advance(1.0 / 60);
        QVERIFY(std::abs(bar.value() - last) <= 16);
        QVERIFY(++frames < 600);
        last = bar.value();
        QVERIFY(row->visibleRegion().boundingRect().height() > 20);
    }
    QVERIFY(frames > 60);
    screen.settle();
    QVERIFY(!Ticker::shared().hasMotion());
    screen.release(edge);
    screen.settle();
    QCOMPARE(screen.view->rows().indexOf(row), down ? 29 : 0);
    QCOMPARE(screen.collection().colorIds.indexOf(row->color().id), down ? 29 : 0);
    QCOMPARE(screen.collection().colorIds.size(), 30);
}

void CollectionDetailViewTest::wheelScrollsDuringADrag()
{
    PaletteFixture screen(numbered(30));
    const QPoint start = screen.leftMiddle(2);
    screen.press(start);
    screen.drag(start, start + QPoint(0, 60));
    const int before = screen.inWindow(screen.row(2), {}).y();
    // Two notches scroll by 120 points.
    QWheelEvent wheel(start + QPoint(0, 60), screen.view->window()->mapToGlobal(start + QPoint(0, 60)), {},
                      QPoint(0, -240), Qt::LeftButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    // Qt propagates only spontaneous wheel events to parents.
    QSpontaneKeyEvent::setSpontaneous(&wheel);
    qApp->notify(screen.view->window()->windowHandle(), &wheel);
    QCOMPARE(screen.scrollArea().verticalScrollBar()->value(), 120);
    QCOMPARE(screen.inWindow(screen.row(2), {}).y(), before);
    screen.release(start + QPoint(0, 60));
    // From 2 * 54 = 108 by 60 + 120 points to 288; the nearest slot is at 270.
    QCOMPARE(screen.stored().left(8 * 6 - 1),
             QStringLiteral("#000001 #000002 #000004 #000005 #000006 #000003"));
}

void CollectionDetailViewTest::movesUseListPositionsWhenIdsAreMissing()
{
    PaletteFixture screen({0x111111, 0x222222});
    const QUuid missing = QUuid::createUuid();
    screen.state.addColor(missing, screen.palette);
    screen.state.addColor(screen.capture(0x333333).id, screen.palette);
    screen.settle();
    const QList<QUuid> ids = screen.collection().colorIds;
    QCOMPARE(screen.shown(), QStringLiteral("#111111 #222222 #333333"));

    // The third shown row moves to the start. The third id is missing from the history.
    const QPoint start = screen.leftMiddle(2);
    screen.press(start);
    screen.drag(start, start - QPoint(0, 108));
    screen.release(start - QPoint(0, 108));
    screen.settle();
    QCOMPARE(screen.collection().colorIds, (QList<QUuid>{missing, ids[0], ids[1], ids[3]}));
    QCOMPARE(screen.shown(), QStringLiteral("#111111 #222222 #333333"));
    QCOMPARE(screen.row(2).y(), 108);
}

void CollectionDetailViewTest::reducedMotionMovesRowsAtOnce()
{
    PaletteFixture screen(numbered(30));
    Ticker::shared().setMotionReduced(true);
    const QPoint start = screen.leftMiddle(1);
    screen.press(start);
    screen.move(start + QPoint(0, 60));
    QCOMPARE(screen.row(1).y(), 114);
    QCOMPARE(screen.row(2).y(), 54);
    // At the edge each pointer move scrolls by less than a row, not to the end.
    const QWidget& viewport = *screen.scrollArea().viewport();
    screen.move(screen.inWindow(viewport, QPoint(100, viewport.height() - 1)));
    const int scrolled = screen.scrollArea().verticalScrollBar()->value();
    QVERIFY(scrolled > 0);
    QVERIFY(scrolled <= 45);
    screen.release(screen.inWindow(viewport, QPoint(100, viewport.height() - 1)));
    Ticker::shared().setMotionReduced(false);
    const qsizetype position = screen.view->rows().indexOf(&screen.row(8));
    QCOMPARE(screen.row(position).y(), 8 * 54);
    QVERIFY(!Ticker::shared().hasMotion());
}

void CollectionDetailViewTest::altAndArrowsMoveTheFocusedRow_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* name, int position, int key, const char* after) {
        QTest::newRow(name) << position << key << QString::fromLatin1(after);
    };
    row("down", 0, Qt::Key_Down, "#000002 #000001 #000003");
    row("down to the end", 1, Qt::Key_Down, "#000001 #000003 #000002");
    row("down from the end", 2, Qt::Key_Down, "#000001 #000002 #000003");
    row("up", 2, Qt::Key_Up, "#000001 #000003 #000002");
    row("up to the start", 1, Qt::Key_Up, "#000002 #000001 #000003");
    row("up from the start", 0, Qt::Key_Up, "#000001 #000002 #000003");
}

void CollectionDetailViewTest::altAndArrowsMoveTheFocusedRow()
{
    QFETCH(const int, row);
    QFETCH(const int, key);
    QFETCH(const QString, after);
    PaletteFixture screen(numbered(3));
    ColorDetailRow* focused = &screen.row(row);
    focused->setFocus(Qt::TabFocusReason);
    QTest::keyClick(focused, static_cast<Qt::Key>(key), Qt::AltModifier);
    QCOMPARE(screen.stored(), after);
    QCOMPARE(QApplication::focusWidget(), focused);
    QVERIFY(focused->showsFocusRing());
    screen.settle();
    QCOMPARE(screen.shown(), after);
    QCOMPARE(clipboardText(), QStringLiteral("untouched"));
}

void CollectionDetailViewTest::severalRowsAreSelectedAndRemoved()
{
    PaletteFixture screen(numbered(5));
    QTest::mouseClick(&screen.row(1), Qt::LeftButton, Qt::ControlModifier, QPoint(100, 20));
    QTest::keyClick(&screen.row(1), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&screen.row(2), Qt::Key_Down, Qt::ShiftModifier);
    screen.settle();
    const auto* bar = screen.view->findChild<SelectionBar*>();
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->accessibleName(), u"3 selected"_s);
    QVERIFY(screen.row(3).showsFocusRing() || screen.row(3).hasFocus());
    QCOMPARE(clipboardText(), u"untouched"_s);

    QTest::keyClick(&screen.row(3), Qt::Key_Delete);
    screen.settle();
    QCOMPARE(screen.stored(), u"#000001 #000005"_s);
    QVERIFY(!bar->isVisible());
    QCOMPARE(screen.state.history().size(), 5);
    screen.state.undo();
    QCOMPARE(screen.stored(), u"#000001 #000002 #000003 #000004 #000005"_s);
}

void CollectionDetailViewTest::selectedRowsMoveTogether_data()
{
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* name, const QList<int>& selected, int key, const char* after) {
        QTest::newRow(name) << selected << key << QString::fromLatin1(after);
    };
    row("down", {0, 1}, Qt::Key_Down, "#000003 #000001 #000002 #000004");
    row("up", {2, 3}, Qt::Key_Up, "#000001 #000003 #000004 #000002");
    row("up, apart", {1, 3}, Qt::Key_Up, "#000002 #000004 #000001 #000003");
    row("up from the start", {0, 1}, Qt::Key_Up, "#000001 #000002 #000003 #000004");
    row("down from the end", {2, 3}, Qt::Key_Down, "#000001 #000002 #000003 #000004");
    row("dragged to the end", {0, 2}, 0, "#000002 #000004 #000001 #000003");
}

void CollectionDetailViewTest::selectedRowsMoveTogether()
{
    QFETCH(const QList<int>, selected);
    QFETCH(const int, key);
    QFETCH(const QString, after);
    PaletteFixture screen(numbered(4));
    for (const int position : selected) {
        QTest::mouseClick(&screen.row(position), Qt::LeftButton, Qt::ControlModifier, QPoint(100, 20));
    }
    screen.settle();
    if (key != 0) {
        QTest::keyClick(&screen.row(selected.last()), static_cast<Qt::Key>(key), Qt::AltModifier);
    } else {
        const QPoint from = screen.leftMiddle(selected.first());
        const QPoint to = screen.leftMiddle(3) + QPoint(0, 20);
        screen.press(from);
        screen.drag(from, to);
        screen.release(to);
    }
    screen.settle();
    QCOMPARE(screen.stored(), after);
    QCOMPARE(screen.shown(), after);
    screen.state.undo();
    QCOMPARE(screen.stored(), u"#000001 #000002 #000003 #000004"_s);
}

void CollectionDetailViewTest::arrowsMoveTheFocus_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("to");
    QTest::newRow("down") << 3 << int(Qt::Key_Down) << 4;
    QTest::newRow("up") << 3 << int(Qt::Key_Up) << 2;
    QTest::newRow("home") << 3 << int(Qt::Key_Home) << 0;
    QTest::newRow("end") << 3 << int(Qt::Key_End) << 29;
    QTest::newRow("up from the first") << 0 << int(Qt::Key_Up) << 0;
    QTest::newRow("down from the last") << 29 << int(Qt::Key_Down) << 29;
}

void CollectionDetailViewTest::arrowsMoveTheFocus()
{
    QFETCH(const int, from);
    QFETCH(const int, key);
    QFETCH(const int, to);
    PaletteFixture screen(numbered(30));
    screen.row(from).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&screen.row(from), static_cast<Qt::Key>(key));
    QCOMPARE(QApplication::focusWidget(), &screen.row(to));
    QVERIFY(screen.row(to).showsFocusRing());
    if (to != from) {
        QCOMPARE(screen.row(to).visibleRegion().boundingRect().height(), 54);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(clipboardText(), screen.row(to).color().hex6());
}

void CollectionDetailViewTest::tabVisitsRowsInOrder()
{
    PaletteFixture screen(numbered(3));
    screen.state.moveColors(screen.palette, {2}, 0);
    screen.settle();
    screen.row(0).setFocus(Qt::TabFocusReason);
    for (qsizetype position = 0; position < 3; ++position) {
        QCOMPARE(QApplication::focusWidget(), &screen.row(position));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), &screen.row(position).copyButton());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), &screen.row(position).removeButton());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

void CollectionDetailViewTest::rowMovedByKeyboardStaysVisible()
{
    PaletteFixture screen(numbered(30));
    ColorDetailRow* focused = &screen.row(0);
    focused->setFocus(Qt::TabFocusReason);
    for (int step = 0; step < 29; ++step) {
        QTest::keyClick(focused, Qt::Key_Down, Qt::AltModifier);
    }
    screen.settle();
    QCOMPARE(screen.view->rows().last(), focused);
    QCOMPARE(focused->visibleRegion().boundingRect().height(), 54);
}

void CollectionDetailViewTest::screenReadersGetNamesAndRoles()
{
    PaletteFixture screen({0x1E90FF, 0x111111});
    screen.state.renameColor(screen.row(0).color().id, QStringLiteral("Dodger Blue"));
    const auto* list = QAccessible::queryAccessibleInterface(&screen.list());
    QCOMPARE(list->role(), QAccessible::List);
    const auto* named = QAccessible::queryAccessibleInterface(&screen.row(0));
    QCOMPARE(named->text(QAccessible::Name), QStringLiteral("Dodger Blue, #1E90FF"));
    QCOMPARE(named->role(), QAccessible::Button);
    const auto* nameless = QAccessible::queryAccessibleInterface(&screen.row(1));
    QCOMPARE(nameless->text(QAccessible::Name), QStringLiteral("#111111"));
    const auto* copy = QAccessible::queryAccessibleInterface(&screen.row(0).copyButton());
    QCOMPARE(copy->text(QAccessible::Name), QStringLiteral("Copy as…"));
    const auto* remove = QAccessible::queryAccessibleInterface(&screen.row(0).removeButton());
    QCOMPARE(remove->text(QAccessible::Name), QStringLiteral("Remove"));
    QCOMPARE(remove->role(), QAccessible::Button);
}

void CollectionDetailViewTest::paletteIsRenamed_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("with a double click on the name") << false;
    QTest::newRow("with F2") << true;
}

void CollectionDetailViewTest::paletteIsRenamed()
{
    QFETCH(const bool, byKey);
    PanelFixture panel;
    panel.view->setSelectedCollectionId(panel.state.createCollection(QStringLiteral("Brand")).id);
    panel.settle();
    const auto* name = panel.view->currentScreen().findChild<Label*>();
    QCOMPARE(name->text(), QStringLiteral("Brand"));
    if (byKey) {
        QTest::keyClick(panel.view.get(), Qt::Key_F2);
    } else {
        const QPoint middle = name->mapTo(panel.view.get(), name->rect().center());
        QTest::mouseDClick(panel.view->windowHandle(), Qt::LeftButton, {}, middle);
    }
    auto* field = panel.view->findChild<QLineEdit*>();
    QVERIFY(field != nullptr);
    field->setText(QStringLiteral("Sea"));
    QTest::keyClick(field, Qt::Key_Return);
    panel.settle();
    QCOMPARE(name->text(), QStringLiteral("Sea"));
    QVERIFY(button(*panel.view, QStringLiteral("Back from Sea")));
}

void CollectionDetailViewTest::actionsOfThePaletteAreInAMenu()
{
    PaletteFixture screen({0x111111});
    auto* actions = button(*screen.view, QStringLiteral("Palette Actions"));
    QCOMPARE(actions->toolTip(), QStringLiteral("Palette Actions"));
    // 10 before the export menu.
    QCOMPARE(screen.inWindow(*actions, QPoint(actions->width() + 10, 0)).x(),
             screen.inWindow(screen.exportMenu(), {}).x());
    actions->setFocus(Qt::TabFocusReason);
    QTest::keyClick(actions, Qt::Key_Down);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu != nullptr);
    QCOMPARE(titles(*menu),
             (QStringList{QStringLiteral("Rename…"), QStringLiteral("Duplicate"), QStringLiteral("Sort by"),
                          QStringLiteral("Icon Color"), QStringLiteral("Import…")}));
    choose(*menu, QStringLiteral("Duplicate"));
    QCOMPARE(screen.state.collections().size(), 2);
    QCOMPARE(screen.state.collections()[1].name, QStringLiteral("Brand copy"));
}

void CollectionDetailViewTest::sortedRowsCanBeOrderedByHand()
{
    PaletteFixture screen({0x00FF00, 0x0000FF, 0xFF0000});
    screen.state.sortCollection(screen.palette, ColorOrder::Hue);
    screen.settle();
    screen.row(0).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&screen.row(0), Qt::Key_Down, Qt::AltModifier);
    screen.settle();
    QCOMPARE(screen.shown(), u"#00FF00 #FF0000 #0000FF"_s);
    screen.state.undo();
    screen.settle();
    QCOMPARE(screen.shown(), u"#FF0000 #00FF00 #0000FF"_s);
    screen.state.undo();
    screen.settle();
    QCOMPARE(screen.shown(), u"#00FF00 #0000FF #FF0000"_s);
}

void CollectionDetailViewTest::sortedRowsMoveToTheirPlaces()
{
    PaletteFixture screen({0x00FF00, 0x0000FF, 0xFF0000});
    screen.state.sortCollection(screen.palette, ColorOrder::Hue);
    QCOMPARE(screen.row(0).y(), 108);
    screen.settle();
    QCOMPARE(screen.shown(), QStringLiteral("#FF0000 #00FF00 #0000FF"));
    QCOMPARE(screen.row(0).y(), 0);
}

int main(int argc, char** argv)
{
    return tintwick::test::runWithOwnHome<CollectionDetailViewTest>(argc, argv);
}
#include "CollectionDetailViewTest.moc"
