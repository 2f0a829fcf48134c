#include "HistoryDetailView.h"

#include "ColorSelector.h"
#include "Grid.h"
#include "MenuButton.h"
#include "Overlay.h"
#include "RenameColorOverlay.h"
#include "SelectionBar.h"
#include "Symbol.h"
#include "TextField.h"
#include "Theme.h"
#include "ui/OwnHomeMain.h"
#include "ui/PanelFixture.h"
#include "ui/Probes.h"

#include <QAccessible>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>

using namespace tintwick;
using namespace tintwick::test;
using namespace Qt::StringLiterals;

namespace {

constexpr QRgb panelGround = qRgb(0xF5, 0xF5, 0xF7);
constexpr QRgb surfaceHigh = qRgb(0xE9, 0xE9, 0xEE);
/// Header 50, rule 1, toolbar 50, rule 1, padding 14.
constexpr int firstRow = 116;

/// The panel with the history screen open.
class HistoryFixture final : public PanelFixture
{
public:
    explicit HistoryFixture(unsigned count = 0)
    {
        for (unsigned i = 0; i < count; ++i) {
            capture(0x123456 + 0x050301 * i);
        }
        view->setSelectedCollectionId(PanelView::historySelectionId);
        settle();
    }

    [[nodiscard]] HistoryDetailView& screen() const { return *view->findChild<HistoryDetailView*>(); }
    [[nodiscard]] ColorSwatchView& swatch(qsizetype position) const
    {
        return *screen().swatches().at(position);
    }
    [[nodiscard]] MenuButton& exportButton() const { return *screen().findChild<MenuButton*>(); }
    [[nodiscard]] TextField* field() const { return view->findChild<TextField*>(); }
};

/// The square of the swatch at a position of the grid. A column is 64 wide; a swatch of 48 with 3 on both sides is
/// centred in it.
QRect squareAt(const HistoryFixture& panel, qsizetype position)
{
    return {placeIn(*panel.view, panel.swatch(position)).topLeft() + QPoint(5, 2), QSize(48, 48)};
}

} // namespace

class HistoryDetailViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toolbarShowsTheCount_data();
    void toolbarShowsTheCount();
    void oneColorIsInTheFirstOfFiveColumns();
    void colorsFillRowsOfFiveInOrder();
    void emptyScreenExplainsHowToPick();
    void emptyScreenNamesNoKeysWithoutAShortcut();
    void exportMenuIsDisabledWithoutColors();
    void exportMenuOffersThreeFormatsAndASubmenuOfOthers();
    void exportContainsTheWholeHistory();
    void clearButtonClearsAtOnce_data();
    void clearButtonClearsAtOnce();
    void captureAndDeletionShowAtOnce();
    void deletingFromItsMenuRemovesTheHoveredSwatch();
    void hundredColorsCanBeScrolled();
    void tabGoesFromTheToolbarThroughTheGrid();
    void arrowKeysMoveThroughTheGrid_data();
    void arrowKeysMoveThroughTheGrid();
    void focusedSwatchIsScrolledIntoView();

    void checkerboardShowsThroughTranslucentColors_data();
    void checkerboardShowsThroughTranslucentColors();
    void labelIsTheCode();
    void hoverChangesTheLookAndLeavingRestoresIt();
    void hoverAnimationPassesThroughTheMiddle();
    void clicksAndKeysCopyInTheDefaultFormat();
    void menuOffersExistingCollections();
    void menuCopiesInAnyFormat_data();
    void menuCopiesInAnyFormat();
    void menuAddsToACollection();
    void screenReadersAndToolTipNameTheColor();

    void clicksAndKeysSelect_data();
    void clicksAndKeysSelect();
    void aPlainClickCopiesAndClears();
    void barActsOnTheSelectedColors();
    void barAddsToAPaletteAndToANewOne();
    void selectedSwatchIsMarked();
    void screenReadersAreToldWhatIsSelected();
    void escapeClosesAnOverlayBeforeItClearsTheSelection();
    void aDragOfASelectedSwatchCarriesAll();
    void renamingByKeyboard();
    void layoutOfTheOverlayIsExact();
    void overlayStartsWithTheNameSelected_data();
    void overlayStartsWithTheNameSelected();
    void emptyNameIsSaved();
    void nameIsSavedAsTyped();
    void colorMayBeDeletedWhileItsMenuOrOverlayIsOpen();
    void openMenuEndsTheHoverState();
    void cancellingChangesNothing_data();
    void cancellingChangesNothing();
};

void HistoryDetailViewTest::toolbarShowsTheCount_data()
{
    QTest::addColumn<unsigned>("colors");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0U << u"0 colors"_s;
    QTest::newRow("one") << 1U << u"1 color"_s;
    QTest::newRow("twelve") << 12U << u"12 colors"_s;
    QTest::newRow("the maximum") << 101U << u"100 colors"_s;
}

void HistoryDetailViewTest::toolbarShowsTheCount()
{
    QFETCH(const unsigned, colors);
    QFETCH(const QString, text);
    const HistoryFixture panel(colors);
    QCOMPARE(visibleTexts(panel.screen()).first(), text);
}

void HistoryDetailViewTest::oneColorIsInTheFirstOfFiveColumns()
{
    HistoryFixture panel;
    panel.capture(0xF54D4D);
    const QImage picture = panel.picture();
    QCOMPARE(squareAt(panel, 0), QRect(22, firstRow, 48, 48));
    const QRgb red = qRgb(0xF5, 0x4D, 0x4D);
    const int middle = firstRow + 24;
    QVERIFY(!isNear(picture.pixel(21, middle), red, 30));
    // The edge is a quarter darker.
    const QRgb edge = qRgb(0xBA, 0x3B, 0x3B);
    QVERIFY(isNear(picture.pixel(22, middle), edge, 6));
    QCOMPARE(picture.pixel(24, middle), red);
    QCOMPARE(picture.pixel(67, middle), red);
    QVERIFY(isNear(picture.pixel(69, middle), edge, 6));
    QVERIFY(!isNear(picture.pixel(70, middle), red, 30));
    QVERIFY(!isNear(picture.pixel(46, firstRow - 1), red, 30));
    QVERIFY(isNear(picture.pixel(46, firstRow), edge, 6));
    QVERIFY(isNear(picture.pixel(46, firstRow + 47), edge, 6));
    QVERIFY(!isNear(picture.pixel(46, firstRow + 48), red, 30));
    // The corners are rounded.
    QVERIFY(!isNear(picture.pixel(22, firstRow), red, 60));
}

void HistoryDetailViewTest::colorsFillRowsOfFiveInOrder()
{
    const HistoryFixture panel(7);
    const int rowHeight = panel.swatch(0).height() - 4 + 10;
    for (int i = 0; i < 7; ++i) {
        QCOMPARE(panel.swatch(i).color(), panel.state.history().at(i));
        QCOMPARE(squareAt(panel, i).topLeft(), QPoint(22 + 72 * (i % 5), firstRow + rowHeight * (i / 5)));
        QCOMPARE(panel.swatch(i).width() - 4, 54);
    }
}

void HistoryDetailViewTest::emptyScreenNamesNoKeysWithoutAShortcut()
{
    HistoryFixture panel;
    panel.view->setPickKeys({}, {});
    panel.settle();
    QVERIFY(visibleTexts(panel.screen()).contains(u"No colors yet"_s));
}

void HistoryDetailViewTest::emptyScreenExplainsHowToPick()
{
    HistoryFixture panel;
    panel.view->setPickKeys(u"⌥⇧C"_s, u"Alt+Shift+C"_s);
    panel.settle();
    QVERIFY(visibleTexts(panel.screen()).contains(u"No colors yet\nPress ⌥⇧C to snip a color"_s));
    const QString spoken = u"No colors yet\nPress Alt+Shift+C to snip a color"_s;
    const QList<Label*> labels = panel.screen().findChildren<Label*>();
    const auto found =
        std::ranges::find_if(labels, [&](const Label* label) { return label->accessibleName() == spoken; });
    QVERIFY(found != labels.end());
    QVERIFY(!panel.screen().findChild<Grid*>()->isVisible());
    const Label* text = *found;
    const QRect place = placeIn(*panel.view, *text);
    QVERIFY(std::abs(place.center().x() - 190) <= 1);
    // Symbol, gap of 8 and text are centred between the rule and the bottom.
    QVERIFY(std::abs((place.top() - 8 - symbolSide(28) + place.bottom()) / 2 - (102 + 580) / 2.0) <= 1);

    panel.capture(0x3B82F6);
    panel.settle();
    QVERIFY(!text->isVisible());
    QVERIFY(panel.swatch(0).isVisible());
}

void HistoryDetailViewTest::exportMenuIsDisabledWithoutColors()
{
    HistoryFixture panel;
    const QRect place = placeIn(*panel.view, panel.exportButton());
    QVERIFY(!panel.exportButton().isEnabled());
    QCOMPARE(panel.picture().pixel(place.left() + 4, place.center().y()), surfaceHigh);
    QTest::mouseClick(&panel.exportButton(), Qt::LeftButton);
    QVERIFY(!panel.exportButton().menu());

    panel.capture(0x3B82F6);
    QVERIFY(panel.exportButton().isEnabled());
    // 10 % of the accent (97, 102, 224) on the background.
    QVERIFY(isNear(panel.picture().pixel(place.left() + 4, place.center().y()), qRgb(230, 231, 245)));
}

void HistoryDetailViewTest::exportMenuOffersThreeFormatsAndASubmenuOfOthers()
{
    const HistoryFixture panel(1);
    QTest::keyClick(&panel.exportButton(), Qt::Key_Down);
    QVERIFY(panel.exportButton().menu());
    QCOMPARE(titles(*panel.exportButton().menu()),
             (QStringList{u"CSS Variables"_s, u"JSON"_s, u"PNG Swatch"_s, u"Other Formats"_s}));
    QStringList symbols;
    for (const QAction* action : panel.exportButton().menu()->actions()) {
        symbols.append(action->icon().name());
    }
    QCOMPARE(symbols, (QStringList{u"document"_s, u"braces"_s, u"image"_s, QString()}));
    QCOMPARE(titles(*panel.exportButton().menu()->actions().last()->menu()),
             (QStringList{u"CSS (unique names)"_s, u"SCSS"_s, u"Tailwind v4 @theme"_s, u"Design Tokens"_s,
                          u"GIMP Palette"_s, u"Adobe Swatch Exchange"_s, u"SVG"_s, u"PNG with Codes"_s}));
    QTest::keyClick(panel.exportButton().menu(), Qt::Key_Escape);
    const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&panel.exportButton());
    QCOMPARE(interface->role(), QAccessible::ButtonMenu);
    QCOMPARE(interface->text(QAccessible::Name), u"Export"_s);
}

void HistoryDetailViewTest::exportContainsTheWholeHistory()
{
    HistoryFixture panel;
    panel.capture(0x111111);
    panel.capture(0x1E90FF);
    QTest::keyClick(&panel.exportButton(), Qt::Key_Down);
    choose(*panel.exportButton().menu(), u"CSS Variables"_s);
    const auto dialog = [] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<QFileDialog*>(window); found && found->isVisible()) {
                return found;
            }
        }
        return static_cast<QFileDialog*>(nullptr);
    };
    QTRY_VERIFY(dialog());
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"history.css"_s);
    dialog()->setDirectory(folder.path());
    dialog()->findChild<QLineEdit*>()->setText(path);
    static_cast<QDialog*>(dialog())->accept();
    QTRY_VERIFY(QFile::exists(path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    QVERIFY(text.contains("History"));
    QVERIFY(text.contains("#1E90FF"));
    QVERIFY(text.contains("#111111"));
}

void HistoryDetailViewTest::clearButtonClearsAtOnce_data()
{
    QTest::addColumn<unsigned>("colors");
    QTest::newRow("a history") << 3U;
    QTest::newRow("an empty history") << 0U;
}

void HistoryDetailViewTest::clearButtonClearsAtOnce()
{
    QFETCH(const unsigned, colors);
    HistoryFixture panel(colors);
    const QUuid collection = panel.state.createCollection(u"Brand"_s).id;
    panel.state.addColor(QUuid::createUuid(), collection);
    QAbstractButton* clear = button(panel.screen(), u"Clear all history"_s);
    QVERIFY(clear);
    QCOMPARE(clear->toolTip(), u"Clear all history"_s);
    QCOMPARE(placeIn(*panel.view, *clear), QRect(380 - 16 - 30, 51 + 10, 30, 30));
    QTest::mouseClick(clear, Qt::LeftButton);
    QVERIFY(panel.state.history().isEmpty());
    QVERIFY(panel.state.collections().first().colorIds.isEmpty());
    panel.settle();
    QVERIFY(panel.screen().swatches().isEmpty());
    QCOMPARE(visibleTexts(panel.screen()).first(), u"0 colors"_s);
}

void HistoryDetailViewTest::captureAndDeletionShowAtOnce()
{
    HistoryFixture panel(2);
    ColorSwatchView* before = &panel.swatch(0);
    const CapturedColor added = panel.capture(0xABCDEF);
    panel.settle();
    QCOMPARE(visibleTexts(panel.screen()).first(), u"3 colors"_s);
    QCOMPARE(panel.swatch(0).color(), added);
    QCOMPARE(&panel.swatch(1), before);
    panel.state.deleteColor(added.id);
    panel.settle();
    QCOMPARE(visibleTexts(panel.screen()).first(), u"2 colors"_s);
    QCOMPARE(&panel.swatch(0), before);
    QCOMPARE(squareAt(panel, 0).topLeft(), QPoint(22, firstRow));
}

void HistoryDetailViewTest::deletingFromItsMenuRemovesTheHoveredSwatch()
{
    HistoryFixture panel(3);
    const QPointer<ColorSwatchView> swatch = &panel.swatch(1);
    const QUuid id = swatch->color().id;
    hover(*swatch, QEvent::HoverEnter);
    QMenu* menu = contextMenu(*swatch);
    // During its hover animation.
    Ticker::shared().advance(0.05);
    choose(*menu, u"Delete"_s);
    panel.settle();
    QVERIFY(!swatch);
    QCOMPARE(panel.screen().swatches().size(), 2);
    for (const CapturedColor& color : panel.state.history()) {
        QVERIFY(color.id != id);
    }
    QVERIFY(!Ticker::shared().hasMotion());
}

void HistoryDetailViewTest::hundredColorsCanBeScrolled()
{
    const HistoryFixture panel(100);
    QCOMPARE(panel.screen().swatches().size(), 100);
    auto* scroll = panel.screen().findChild<QScrollArea*>();
    const int rowHeight = panel.swatch(0).height() - 4 + 10;
    QCOMPARE(scroll->widget()->height(), 20 * rowHeight - 10 + 28);
    scroll->verticalScrollBar()->setValue(scroll->verticalScrollBar()->maximum());
    panel.settle();
    QCOMPARE(placeIn(*panel.view, panel.swatch(99)).bottom() - 2, 580 - 1 - 14);
}

void HistoryDetailViewTest::tabGoesFromTheToolbarThroughTheGrid()
{
    HistoryFixture panel(2);
    panel.capture(0xABCDEF);
    panel.settle();
    const QList<QWidget*> expected{&panel.exportButton(), button(panel.screen(), u"Clear all history"_s),
                                   &panel.swatch(0), &panel.swatch(1), &panel.swatch(2)};
    expected.first()->setFocus(Qt::TabFocusReason);
    for (qsizetype i = 1; i < expected.size(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), expected[i]);
    }
}

void HistoryDetailViewTest::arrowKeysMoveThroughTheGrid_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("to");
    QTest::newRow("right") << 0 << Qt::Key_Right << 1;
    QTest::newRow("right to the next row") << 4 << Qt::Key_Right << 5;
    QTest::newRow("left to the row before") << 5 << Qt::Key_Left << 4;
    QTest::newRow("down") << 1 << Qt::Key_Down << 6;
    QTest::newRow("up") << 6 << Qt::Key_Up << 1;
    QTest::newRow("left of the first") << 0 << Qt::Key_Left << 0;
    QTest::newRow("above the first row") << 3 << Qt::Key_Up << 3;
    QTest::newRow("right of the last") << 6 << Qt::Key_Right << 6;
    QTest::newRow("below the last row") << 4 << Qt::Key_Down << 4;
}

void HistoryDetailViewTest::arrowKeysMoveThroughTheGrid()
{
    QFETCH(const int, from);
    QFETCH(const Qt::Key, key);
    QFETCH(const int, to);
    const HistoryFixture panel(7);
    panel.swatch(from).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&panel.swatch(from), key);
    QCOMPARE(QApplication::focusWidget(), &panel.swatch(to));
    QVERIFY(panel.swatch(to).showsFocusRing());
}

void HistoryDetailViewTest::focusedSwatchIsScrolledIntoView()
{
    const HistoryFixture panel(100);
    panel.swatch(2).setFocus(Qt::TabFocusReason);
    const QRect seen(0, 102, 380, 478);
    for (int row = 1; row < 20; ++row) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QCOMPARE(QApplication::focusWidget(), &panel.swatch(2 + 5 * row));
        QVERIFY(seen.contains(placeIn(*panel.view, panel.swatch(2 + 5 * row))));
    }
    for (int row = 18; row >= 0; --row) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
        QVERIFY(seen.contains(placeIn(*panel.view, panel.swatch(2 + 5 * row))));
    }
}

void HistoryDetailViewTest::checkerboardShowsThroughTranslucentColors_data()
{
    QTest::addColumn<unsigned>("rgb");
    QTest::addColumn<double>("alpha");
    QTest::addColumn<QRgb>("onWhite");
    QTest::addColumn<QRgb>("onGrey");
    QTest::newRow("opaque") << 0x336699U << 1.0 << qRgb(0x33, 0x66, 0x99) << qRgb(0x33, 0x66, 0x99);
    // 3 of 255 steps of the checkerboard remain; its grey is 0.75 of white.
    QTest::newRow("almost opaque") << 0x000000U << 0.99 << qRgb(3, 3, 3) << qRgb(2, 2, 2);
    QTest::newRow("half") << 0x000000U << 0.5 << qRgb(127, 127, 127) << qRgb(95, 95, 95);
    QTest::newRow("transparent") << 0x000000U << 0.0 << qRgb(255, 255, 255) << qRgb(191, 191, 191);
}

void HistoryDetailViewTest::checkerboardShowsThroughTranslucentColors()
{
    QFETCH(const unsigned, rgb);
    QFETCH(const double, alpha);
    QFETCH(const QRgb, onWhite);
    QFETCH(const QRgb, onGrey);
    HistoryFixture panel;
    panel.capture(rgb, alpha);
    const QImage picture = panel.picture();
    const QPoint corner = squareAt(panel, 0).topLeft();
    // Checks the first and last pixel of each cell; the parity of row + column gives its tone.
    for (int row = 2; row < 10; ++row) {
        for (int column = 2; column < 10; ++column) {
            const QRgb expected = (row + column) % 2 == 0 ? onWhite : onGrey;
            for (const QPoint& inCell : {QPoint(0, 0), QPoint(3, 3)}) {
                const QRgb seen = picture.pixel(corner + QPoint(4 * column, 4 * row) + inCell);
                QVERIFY2(isNear(seen, expected, alpha > 0 && alpha < 0.9 ? 1 : 0),
                         qPrintable(u"%1 at %2, %3"_s.arg(seen, 0, 16).arg(column).arg(row)));
            }
        }
    }
}

void HistoryDetailViewTest::labelIsTheCode()
{
    HistoryFixture panel;
    panel.capture(0x3B82F6);
    const QImage picture = panel.picture();
    const QRect square = squareAt(panel, 0);
    // The label is as wide as the swatch and has the secondary text colour.
    const QFontMetrics metrics(theme::monospacedFont(9, QFont::Medium));
    const int width = metrics.horizontalAdvance(u"3B82F6"_s);
    int left = 380;
    int right = 0;
    for (int y = square.bottom() + 8; y < square.bottom() + 4 + metrics.height(); ++y) {
        for (int x = 0; x < 100; ++x) {
            if (qGray(picture.pixel(x, y)) < 150) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
        }
    }
    QVERIFY(right > left);
    QVERIFY(right - left <= width);
    QVERIFY(right - left >= width - 4);
    QVERIFY(std::abs(left + right - (square.left() + square.right())) <= 2);
}

void HistoryDetailViewTest::hoverChangesTheLookAndLeavingRestoresIt()
{
    HistoryFixture panel(7);
    panel.capture(0x1ABF80);
    const QImage before = panel.picture();
    const QRect square = squareAt(panel, 0);
    const int middle = square.center().x();
    const auto labelInk = [&](const QImage& picture) {
        int darkest = 255;
        for (int y = square.bottom() + 6; y < square.bottom() + 16; ++y) {
            for (int x = square.left(); x < square.right(); ++x) {
                darkest = std::min(darkest, qGray(picture.pixel(x, y)));
            }
        }
        return darkest;
    };
    hover(panel.swatch(0), QEvent::HoverEnter);
    const QImage hovered = panel.picture();

    QCOMPARE(before.pixel(middle, square.top() + 10), qRgb(0x1A, 0xBF, 0x80));
    // The veil darkens by a quarter.
    QVERIFY(isNear(hovered.pixel(middle, square.top() + 10), qRgb(0x14, 0x8F, 0x60)));
    // Scaled by 1.06, the square of 48 extends 1.44 further. Its border is white at 0.7, 1.5 wide.
    QVERIFY(isNear(before.pixel(middle, square.top() - 1), panelGround, 30));
    QVERIFY(isNear(hovered.pixel(middle, square.top() - 1), qRgb(0xB8, 0xDD, 0xCF), 6));
    QVERIFY(isNear(hovered.pixel(middle, square.top() + 2), qRgb(0x14, 0x8F, 0x60)));
    // The shadow is larger and stronger.
    QVERIFY(qRed(hovered.pixel(middle, square.bottom() + 5)) <
            qRed(before.pixel(middle, square.bottom() + 5)) - 30);
    QVERIFY(before.pixel(square.left() - 6, square.center().y()) == panelGround);
    QVERIFY(hovered.pixel(square.left() - 6, square.center().y()) != panelGround);
    // The symbol is white; the label has the primary text colour.
    const QRect around(square.center() - QPoint(8, 8), QSize(16, 16));
    bool hasWhite = false;
    for (int y = around.top(); y <= around.bottom(); ++y) {
        for (int x = around.left(); x <= around.right(); ++x) {
            hasWhite |= isNear(hovered.pixel(x, y), qRgb(255, 255, 255));
        }
    }
    QVERIFY(hasWhite);
    QVERIFY(labelInk(hovered) < labelInk(before) - 20);

    hover(panel.swatch(0), QEvent::HoverLeave);
    QCOMPARE(panel.picture(), before);
    QVERIFY(!Ticker::shared().hasMotion());
}

void HistoryDetailViewTest::hoverAnimationPassesThroughTheMiddle()
{
    HistoryFixture panel;
    panel.capture(0x808080);
    panel.settle();
    const QPoint place = squareAt(panel, 0).topLeft() + QPoint(10, 10);
    hover(panel.swatch(0), QEvent::HoverEnter);
    QCOMPARE(qRed(panel.view->grab().toImage().pixel(place)), 0x80);
    Ticker::shared().advance(0.03);
    const int onTheWay = qRed(panel.view->grab().toImage().pixel(place));
    QVERIFY(onTheWay < 0x80);
    QVERIFY(onTheWay > 0x60);
    Ticker::shared().advance(1);
    QCOMPARE(qRed(panel.view->grab().toImage().pixel(place)), 0x60);
}

void HistoryDetailViewTest::clicksAndKeysCopyInTheDefaultFormat()
{
    HistoryFixture panel;
    panel.capture(0x3B82F6);
    panel.capture(0x111111);
    panel.state.setDefaultFormat(ColorFormat::Rgb);
    panel.letFeedbackEnd();
    panel.settle();
    QTest::mouseClick(&panel.swatch(1), Qt::LeftButton);
    QCOMPARE(QApplication::clipboard()->text(), u"rgb(59, 130, 246)"_s);
    QVERIFY(panel.state.showCopiedFeedback());
    QTest::keyClick(&panel.swatch(0), Qt::Key_Return);
    QCOMPARE(QApplication::clipboard()->text(), u"rgb(17, 17, 17)"_s);
    QTest::keyClick(&panel.swatch(1), Qt::Key_Space);
    QCOMPARE(QApplication::clipboard()->text(), u"rgb(59, 130, 246)"_s);
}

void HistoryDetailViewTest::menuOffersExistingCollections()
{
    HistoryFixture panel(1);
    QMenu* menu = contextMenu(panel.swatch(0));
    QVERIFY(menu);
    QCOMPARE(titles(*menu), (QStringList{u"Copy as…"_s, u"-"_s, u"Rename…"_s, u"-"_s, u"Edit…"_s,
                                         u"Contrast With…"_s, u"Show Similar"_s, u"-"_s, u"Delete"_s}));
    QCOMPARE(titles(*menu->actions().first()->menu()), formatTitles());
    menu->close();

    panel.state.createCollection(u"Brand"_s);
    menu = contextMenu(panel.swatch(0));
    QCOMPARE(titles(*menu),
             (QStringList{u"Copy as…"_s, u"-"_s, u"Add to Collection"_s, u"Rename…"_s, u"-"_s, u"Edit…"_s,
                          u"Contrast With…"_s, u"Show Similar"_s, u"-"_s, u"Delete"_s}));
    QCOMPARE(titles(*menu->actions().at(2)->menu()), QStringList{u"Brand"_s});
    menu->close();
}

void HistoryDetailViewTest::menuCopiesInAnyFormat_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("hex") << u"HEX"_s << u"#1E90FF"_s;
    QTest::newRow("opaque hex") << u"HEX+A"_s << u"#1E90FF"_s;
    QTest::newRow("rgba") << u"RGBA"_s << u"rgba(30, 144, 255, 1.00)"_s;
    QTest::newRow("variable") << u"CSS Var"_s << u"--dodger-blue: #1E90FF;"_s;
    QTest::newRow("name") << u"Name"_s << u"Dodger Blue"_s;
}

void HistoryDetailViewTest::menuCopiesInAnyFormat()
{
    QFETCH(const QString, format);
    QFETCH(const QString, text);
    HistoryFixture panel;
    panel.capture(0x1E90FF);
    panel.letFeedbackEnd();
    panel.settle();
    choose(*contextMenu(panel.swatch(0)), format);
    QCOMPARE(QApplication::clipboard()->text(), text);
    QCOMPARE(panel.state.lastCopiedString(), text);
    QVERIFY(panel.state.showCopiedFeedback());
}

void HistoryDetailViewTest::menuAddsToACollection()
{
    HistoryFixture panel(2);
    panel.state.createCollection(u"Brand"_s);
    panel.state.createCollection(u"Website"_s);
    choose(*contextMenu(panel.swatch(1)), u"Website"_s);
    QVERIFY(panel.state.collections().at(0).colorIds.isEmpty());
    QCOMPARE(panel.state.collections().at(1).colorIds, QList<QUuid>{panel.swatch(1).color().id});
}

void HistoryDetailViewTest::screenReadersAndToolTipNameTheColor()
{
    HistoryFixture panel;
    const QUuid id = panel.capture(0x1E90FF).id;
    panel.settle();
    const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&panel.swatch(0));
    QCOMPARE(interface->role(), QAccessible::Button);
    QCOMPARE(interface->text(QAccessible::Name), u"Dodger Blue, #1E90FF"_s);
    QCOMPARE(panel.swatch(0).toolTip(), u"Dodger Blue, #1E90FF"_s);
    panel.state.renameColor(id, u"Harbour"_s);
    QCOMPARE(interface->text(QAccessible::Name), u"Harbour, #1E90FF"_s);
    panel.state.renameColor(id, {});
    QCOMPARE(panel.swatch(0).toolTip(), u"#1E90FF"_s);
}

/// The positions of the selected swatches: "0 2".
QString selected(const HistoryFixture& panel)
{
    QStringList positions;
    for (int i = 0; i < panel.screen().swatches().size(); ++i) {
        if (panel.swatch(i).isSelected()) {
            positions.append(QString::number(i));
        }
    }
    return positions.join(u' ');
}

void ctrlClick(const HistoryFixture& panel, qsizetype position)
{
    QTest::mouseClick(&panel.swatch(position), Qt::LeftButton, Qt::ControlModifier);
}

void HistoryDetailViewTest::clicksAndKeysSelect_data()
{
    using Steps = std::function<void(HistoryFixture&)>;
    QTest::addColumn<Steps>("steps");
    QTest::addColumn<QString>("positions");
    const auto row = [](const char* name, const Steps& steps, const QString& positions) {
        QTest::newRow(name) << steps << positions;
    };
    const auto click = [](HistoryFixture& panel, qsizetype position, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(&panel.swatch(position), Qt::LeftButton, modifiers);
    };
    const auto key = [](HistoryFixture& panel, Qt::Key pressed, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(panel.view->focusWidget(), pressed, modifiers);
    };
    row(
        "nothing", [](HistoryFixture&) {}, u""_s);
    row(
        "Ctrl and clicks",
        [=](HistoryFixture& panel) {
            click(panel, 3, Qt::ControlModifier);
            click(panel, 1, Qt::ControlModifier);
        },
        u"1 3"_s);
    row(
        "Ctrl and a click on a selected one",
        [=](HistoryFixture& panel) {
            click(panel, 3, Qt::ControlModifier);
            click(panel, 3, Qt::ControlModifier);
        },
        u""_s);
    row(
        "Shift after a plain click",
        [=](HistoryFixture& panel) {
            click(panel, 1, {});
            click(panel, 4, Qt::ShiftModifier);
        },
        u"1 2 3 4"_s);
    row(
        "Ctrl+A without a focused swatch",
        [=](HistoryFixture& panel) { key(panel, Qt::Key_A, Qt::ControlModifier); }, u"0 1 2 3 4 5 6"_s);
    row(
        "Shift and arrows",
        [=](HistoryFixture& panel) {
            panel.swatch(0).setFocus(Qt::TabFocusReason);
            key(panel, Qt::Key_Right, Qt::ShiftModifier);
            key(panel, Qt::Key_Down, Qt::ShiftModifier);
            key(panel, Qt::Key_Left, Qt::ShiftModifier);
        },
        u"0 1 2 3 4 5"_s);
    row(
        "Shift and an arrow after Ctrl and a click",
        [=](HistoryFixture& panel) {
            click(panel, 2, Qt::ControlModifier);
            key(panel, Qt::Key_Right, Qt::ShiftModifier);
        },
        u"2 3"_s);
    row(
        "an arrow alone",
        [=](HistoryFixture& panel) {
            click(panel, 2, Qt::ControlModifier);
            key(panel, Qt::Key_Right);
        },
        u"2"_s);
    row(
        "Ctrl and Space",
        [=](HistoryFixture& panel) {
            panel.swatch(5).setFocus(Qt::TabFocusReason);
            key(panel, Qt::Key_Space, Qt::ControlModifier);
        },
        u"5"_s);
    row(
        "Escape",
        [=](HistoryFixture& panel) {
            click(panel, 2, Qt::ControlModifier);
            key(panel, Qt::Key_Escape);
        },
        u""_s);
    row(
        "a color is removed",
        [=](HistoryFixture& panel) {
            click(panel, 2, Qt::ControlModifier);
            click(panel, 4, Qt::ControlModifier);
            panel.state.deleteColor(panel.swatch(2).color().id);
        },
        u"3"_s);
    row(
        "a color is picked",
        [=](HistoryFixture& panel) {
            click(panel, 2, Qt::ControlModifier);
            panel.capture(0x1E90FF);
        },
        u"3"_s);
}

void HistoryDetailViewTest::clicksAndKeysSelect()
{
    QFETCH(const std::function<void(HistoryFixture&)>, steps);
    QFETCH(const QString, positions);
    HistoryFixture panel(7);
    const auto* bar = panel.screen().findChild<SelectionBar*>();
    QVERIFY(!bar->isVisible());
    steps(panel);
    panel.settle();
    QCOMPARE(selected(panel), positions);
    QCOMPARE(bar->isVisible(), !positions.isEmpty());
    if (bar->isVisible()) {
        const qsizetype count = positions.split(u' ').size();
        QCOMPARE(visibleTexts(*bar).first(), u"%1 selected"_s.arg(count));
        QCOMPARE(bar->accessibleName(), u"%1 selected"_s.arg(count));
    }
}

void HistoryDetailViewTest::aPlainClickCopiesAndClears()
{
    const HistoryFixture panel(7);
    QGuiApplication::clipboard()->setText(u"before"_s);
    ctrlClick(panel, 0);
    ctrlClick(panel, 1);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"before"_s);
    QTest::mouseClick(&panel.swatch(2), Qt::LeftButton);
    QCOMPARE(QGuiApplication::clipboard()->text(), panel.swatch(2).color().hex6());
    QCOMPARE(selected(panel), QString());
}

void HistoryDetailViewTest::barActsOnTheSelectedColors()
{
    HistoryFixture panel(7);
    ctrlClick(panel, 4);
    ctrlClick(panel, 1);
    const QString both = panel.swatch(1).color().hex6() + u'\n' + panel.swatch(4).color().hex6();
    panel.settle();
    const auto* bar = panel.screen().findChild<SelectionBar*>();
    QTest::mouseClick(button(*bar, u"Copy"_s), Qt::LeftButton);
    QCOMPARE(QGuiApplication::clipboard()->text(), both);
    QVERIFY(panel.state.showCopiedFeedback());
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(panel.view->focusWidget(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), both);
    QCOMPARE(selected(panel), u"1 4"_s);

    QTest::mouseClick(button(*bar, u"Clear Selection"_s), Qt::LeftButton);
    QCOMPARE(selected(panel), QString());
    // Ctrl+C copies nothing now.
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(panel.view->focusWidget(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QString());

    for (const bool byKey : {false, true}) {
        ctrlClick(panel, 0);
        ctrlClick(panel, 6);
        panel.settle();
        if (byKey) {
            QTest::keyClick(panel.view->focusWidget(), Qt::Key_Delete);
        } else {
            QTest::mouseClick(button(*bar, u"Remove"_s), Qt::LeftButton);
        }
        panel.settle();
        QCOMPARE(panel.state.history().size(), 5);
        QVERIFY(!bar->isVisible());
        panel.state.undo();
        panel.settle();
        QCOMPARE(panel.state.history().size(), 7);
    }
}

void HistoryDetailViewTest::barAddsToAPaletteAndToANewOne()
{
    HistoryFixture panel(7);
    const QUuid brand = panel.state.createCollection(u"Brand"_s).id;
    ctrlClick(panel, 4);
    ctrlClick(panel, 1);
    panel.settle();
    const QList<QUuid> both{panel.swatch(1).color().id, panel.swatch(4).color().id};
    auto* add = qobject_cast<MenuButton*>(button(*panel.screen().findChild<SelectionBar*>(), u"Add to…"_s));
    QVERIFY(add);
    QTest::keyClick(add, Qt::Key_Down);
    QCOMPARE(titles(*add->menu()), (QStringList{u"Brand"_s, u"-"_s, u"New Palette…"_s}));
    choose(*add->menu(), u"Brand"_s);
    QCOMPARE(panel.state.collection(brand)->colorIds, both);

    QTest::keyClick(add, Qt::Key_Down);
    choose(*add->menu(), u"New Palette…"_s);
    panel.settle();
    QVERIFY(!button(*panel.view, u"Create"_s)->isEnabled());
    QTest::keyClicks(panel.field(), u"Sea"_s);
    QTest::keyClick(panel.field(), Qt::Key_Return);
    QCOMPARE(panel.state.collections().last().name, u"Sea"_s);
    QCOMPARE(panel.state.collections().last().colorIds, both);
    panel.state.undo();
    QCOMPARE(panel.state.collections().size(), 1);
}

void HistoryDetailViewTest::selectedSwatchIsMarked()
{
    HistoryFixture panel;
    panel.capture(0xF54D4D);
    ctrlClick(panel, 0);
    hover(panel.swatch(0), QEvent::HoverLeave);
    const QImage picture = panel.picture();
    const QRect square = squareAt(panel, 0);
    const QRgb accent = qRgb(97, 102, 224);
    const int middle = square.top() + 24;
    QVERIFY(isNear(picture.pixel(square.left() + 1, middle), accent, 6));
    QVERIFY(isNear(picture.pixel(square.left() + 3, middle), qRgb(255, 255, 255), 6));
    QCOMPARE(picture.pixel(square.left() + 10, middle), qRgb(0xF5, 0x4D, 0x4D));
    // The badge at the bottom right.
    QVERIFY(isNear(picture.pixel(square.right() - 12, square.bottom() - 7), accent, 6));

    QTest::keyClick(panel.view->focusWidget(), Qt::Key_Escape);
    QVERIFY(!isNear(panel.picture().pixel(square.left() + 1, middle), accent, 30));
}

void HistoryDetailViewTest::screenReadersAreToldWhatIsSelected()
{
    const HistoryFixture panel(2);
    auto* swatch = QAccessible::queryAccessibleInterface(&panel.swatch(1));
    QVERIFY(swatch->state().selectable);
    QVERIFY(!swatch->state().selected);
    ctrlClick(panel, 1);
    QVERIFY(swatch->state().selected);
    QVERIFY(!QAccessible::queryAccessibleInterface(&panel.swatch(0))->state().selected);
    swatch->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QVERIFY(!swatch->state().selected);
    swatch->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(QGuiApplication::clipboard()->text(), panel.swatch(1).color().hex6());
}

void HistoryDetailViewTest::escapeClosesAnOverlayBeforeItClearsTheSelection()
{
    const HistoryFixture panel(2);
    ctrlClick(panel, 1);
    choose(*contextMenu(panel.swatch(0)), u"Rename…"_s);
    QVERIFY(panel.field());
    QTest::keyClick(panel.field(), Qt::Key_Escape);
    QVERIFY(!Overlay::of(*panel.view));
    QCOMPARE(selected(panel), u"1"_s);
    QTest::keyClick(panel.view->focusWidget(), Qt::Key_Escape);
    QCOMPARE(selected(panel), QString());
}

void HistoryDetailViewTest::aDragOfASelectedSwatchCarriesAll()
{
    const HistoryFixture panel(4);
    ctrlClick(panel, 3);
    ctrlClick(panel, 1);
    ColorSelector& selector = *panel.swatch(0).selector();
    QCOMPARE(selector.idsWith(panel.swatch(3).color().id),
             (QList{panel.swatch(1).color().id, panel.swatch(3).color().id}));
    QCOMPARE(selector.idsWith(panel.swatch(0).color().id), QList{panel.swatch(0).color().id});
}

void HistoryDetailViewTest::renamingByKeyboard()
{
    HistoryFixture panel;
    panel.capture(0x1E90FF);
    panel.settle();
    panel.swatch(0).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&panel.swatch(0), Qt::Key_F10, Qt::ShiftModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Down);
    QCOMPARE(menu->activeAction()->text(), u"Rename…"_s);
    QTest::keyClick(menu, Qt::Key_Return);
    panel.settle();
    QVERIFY(Overlay::of(*panel.view));
    // The offscreen platform deactivates the window for a menu; a desktop does not.
    panel.view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(panel.view.get()));
    QCOMPARE(QApplication::focusWidget(), panel.field());
    QTest::keyClicks(panel.field(), u"Harbour"_s);
    QTest::keyClick(panel.field(), Qt::Key_Return);
    QVERIFY(!Overlay::of(*panel.view));
    QCOMPARE(panel.state.history().first().customName, u"Harbour"_s);
    QCOMPARE(QApplication::focusWidget(), &panel.swatch(0));
}

void HistoryDetailViewTest::layoutOfTheOverlayIsExact()
{
    HistoryFixture panel;
    openRenameColorOverlay(*panel.view, panel.state, panel.capture(0xF54D4D));
    const QImage picture = panel.picture();
    // 300 wide, centred in 380; the padding is 20.
    const QRect field = placeIn(*panel.view, *panel.field());
    QCOMPARE(field.left(), 60);
    QCOMPARE(field.width(), 260);
    const int top = field.top() - 16 - 40;
    const QRgb red = qRgb(0xF5, 0x4D, 0x4D);
    QCOMPARE(picture.pixel(62, top + 20), red);
    QCOMPARE(picture.pixel(97, top + 20), red);
    const QRgb edge = qRgb(0xBA, 0x3B, 0x3B);
    QVERIFY(isNear(picture.pixel(80, top), edge, 6));
    QVERIFY(isNear(picture.pixel(80, top + 39), edge, 6));
    QVERIFY(!isNear(picture.pixel(102, top + 20), red, 30));
    QVERIFY(!isNear(picture.pixel(80, top - 2), red, 30));
    QStringList texts = visibleTexts(*Overlay::of(*panel.view));
    QCOMPARE(texts, (QStringList{u"Rename Color"_s, u"#F54D4D"_s}));
    QCOMPARE(panel.field()->placeholderText(), u"Color name"_s);
    QCOMPARE(placeIn(*panel.view, *button(*panel.view, u"Cancel"_s)).left(), 60);
    QCOMPARE(placeIn(*panel.view, *button(*panel.view, u"Save"_s)).right(), 319);
    QCOMPARE(placeIn(*panel.view, *button(*panel.view, u"Save"_s)).top(), field.bottom() + 1 + 16);
    const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(Overlay::of(*panel.view));
    QCOMPARE(interface->text(QAccessible::Name), u"Rename Color"_s);
}

void HistoryDetailViewTest::overlayStartsWithTheNameSelected_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a name") << u"Harbour at dusk"_s;
    QTest::newRow("a long name") << QString(200, u'x');
    QTest::newRow("no name") << QString();
}

void HistoryDetailViewTest::overlayStartsWithTheNameSelected()
{
    QFETCH(const QString, name);
    HistoryFixture panel(1);
    panel.state.renameColor(panel.swatch(0).color().id, name);
    choose(*contextMenu(panel.swatch(0)), u"Rename…"_s);
    QCOMPARE(panel.field()->text(), name);
    QCOMPARE(panel.field()->selectedText(), name);
    QVERIFY(panel.field()->hasFocus());
    QVERIFY(button(*panel.view, u"Save"_s)->isEnabled());
    QCOMPARE(panel.field()->width(), 260);
}

void HistoryDetailViewTest::emptyNameIsSaved()
{
    HistoryFixture panel;
    panel.capture(0x1E90FF);
    panel.settle();
    choose(*contextMenu(panel.swatch(0)), u"Rename…"_s);
    panel.field()->clear();
    QTest::mouseClick(button(*panel.view, u"Save"_s), Qt::LeftButton);
    QVERIFY(!panel.state.history().first().customName);
    QVERIFY(!Overlay::of(*panel.view));
}

void HistoryDetailViewTest::nameIsSavedAsTyped()
{
    HistoryFixture panel(1);
    choose(*contextMenu(panel.swatch(0)), u"Rename…"_s);
    QTest::keyClicks(panel.field(), u"  two  blanks "_s);
    QTest::keyClick(panel.field(), Qt::Key_Return);
    QCOMPARE(panel.state.history().first().customName, u"  two  blanks "_s);
    panel.settle();

    choose(*contextMenu(panel.swatch(0)), u"Rename…"_s);
    QTest::keyClick(panel.field(), Qt::Key_Delete);
    QTest::keyClick(panel.field(), Qt::Key_Return);
    QVERIFY(!panel.state.history().first().customName);
}

void HistoryDetailViewTest::colorMayBeDeletedWhileItsMenuOrOverlayIsOpen()
{
    HistoryFixture panel(3);
    const QPointer<QMenu> menu = contextMenu(panel.swatch(1));
    QVERIFY(menu);
    panel.state.deleteColor(panel.swatch(1).color().id);
    panel.settle();
    QVERIFY(!menu);
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(panel.screen().swatches().size(), 2);

    choose(*contextMenu(panel.swatch(1)), u"Rename…"_s);
    panel.settle();
    QVERIFY(panel.field());
    panel.state.deleteColor(panel.swatch(1).color().id);
    panel.settle();
    const CapturedColor left = panel.swatch(0).color();
    QTest::keyClicks(panel.field(), u"Sea"_s);
    QTest::keyClick(panel.field(), Qt::Key_Return);
    panel.settle();
    QVERIFY(!Overlay::of(*panel.view));
    QCOMPARE(panel.state.history(), QList{left});
    // The panel has the focus instead of the deleted swatch.
    QCOMPARE(panel.view->focusWidget(), panel.view.get());
}

void HistoryDetailViewTest::openMenuEndsTheHoverState()
{
    const HistoryFixture panel(1);
    hover(panel.swatch(0), QEvent::HoverEnter);
    QMenu* menu = contextMenu(panel.swatch(0));
    QVERIFY(panel.swatch(0).isHovered());
    // No leave event: the pointer is over the menu.
    menu->close();
    QVERIFY(!panel.swatch(0).isHovered());
    hover(panel.swatch(0), QEvent::HoverMove);
    QVERIFY(panel.swatch(0).isHovered());
}

void HistoryDetailViewTest::cancellingChangesNothing_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("Escape") << true;
    QTest::newRow("the button") << false;
}

void HistoryDetailViewTest::cancellingChangesNothing()
{
    QFETCH(const bool, byKey);
    HistoryFixture panel;
    panel.capture(0x1E90FF);
    panel.settle();
    choose(*contextMenu(panel.swatch(0)), u"Rename…"_s);
    QTest::keyClicks(panel.field(), u"Harbour"_s);
    const QSignalSpy renamed(&panel.state, &AppState::historyChanged);
    if (byKey) {
        QTest::keyClick(panel.field(), Qt::Key_Escape);
    } else {
        QTest::mouseClick(button(*panel.view, u"Cancel"_s), Qt::LeftButton);
    }
    QVERIFY(!Overlay::of(*panel.view));
    QCOMPARE(renamed.size(), 0);
    QCOMPARE(panel.state.history().first().customName, u"Dodger Blue"_s);
}

int main(int argc, char** argv)
{
    return tintwick::test::runWithOwnHome<HistoryDetailViewTest>(argc, argv);
}
#include "HistoryDetailViewTest.moc"
