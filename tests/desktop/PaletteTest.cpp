#include "desktop/TintwickProcess.h"
#include "support/Pattern.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>
#include <QUuid>

#include <X11/keysym.h>

#include <optional>

using namespace tintwick;

namespace {

using namespace Qt::StringLiterals;

using Button = PrivateDesktop::Button;
using Compositor = PrivateDesktop::Compositor;

const QStringList ids{u"3F2504E0-4F89-41D3-9A0C-0305E82C3301"_s, u"3F2504E0-4F89-41D3-9A0C-0305E82C3302"_s,
                      u"3F2504E0-4F89-41D3-9A0C-0305E82C3303"_s};

// In pixels from the top left corner of the panel: the only card of the dashboard, below one row of colours, and the
// left side of the first row's square on the screen of a palette.
constexpr QPoint card(190, 355);
constexpr QPoint firstRow(30, 132);
constexpr QPoint actionsButton(260, 77);
constexpr QPoint firstRemoveButton(356, 132);
constexpr QPoint plus(220, 77);
constexpr int rowHeight = 54;

/// A red, a green and a blue colour in one palette. The history has them last, after as many white ones.
void keepAPalette(const PrivateDesktop& desktop, int whiteColors = 0)
{
    const auto color = [](const QString& id, const char* components) {
        return R"({"id": ")" + id.toUtf8() + R"(", )" + components +
               R"(, "alpha": 1, "capturedAt": "2026-01-02T03:04:05Z"})";
    };
    QByteArray white;
    for (int i = 0; i < whiteColors; ++i) {
        white +=
            color(QUuid::createUuid().toString(QUuid::WithoutBraces), R"("red": 1, "green": 1, "blue": 1)") +
            ", ";
    }
    keepData(
        desktop,
        R"({"history": [)" + white + color(ids[0], R"("red": 1, "green": 0, "blue": 0)") + ", " +
            color(ids[1], R"("red": 0, "green": 1, "blue": 0)") + ", " +
            color(ids[2], R"("red": 0, "green": 0, "blue": 1)") +
            R"(], "collections": [{"id": "7D444840-9DC0-11D1-B245-5FFDCE74FAD2", "name": "Brand", "colorIds": [")" +
            ids.join(uR"(", ")"_s).toUtf8() +
            R"("], "createdAt": "2026-01-02T03:04:05Z", "icon": "paintpalette.fill"}], "defaultFormat": "HEX"})");
}

QStringList storedIds(const TintwickProcess& program)
{
    const QJsonArray collections = program.data().value("collections"_L1).toArray();
    QStringList result;
    for (const QJsonValue id : collections.first().toObject().value("colorIds"_L1).toArray()) {
        result.append(id.toString());
    }
    return result;
}

} // namespace

/// The screen of a palette, with a real pointer and real keys.
class PaletteTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plusPicksManyColorsIntoThePalette();
    void aRowIsDraggedToAnotherPlace_data();
    void aRowIsDraggedToAnotherPlace();
    void escapeEndsTheDragAndDoesNotHideThePanel();
    void aRemovedRowLeavesItsPlaceEmptyUntilThePointerMoves();
    void aRemovedColorComesBack();
    void aPaletteIsRenamedAndSorted();
    void aPaletteKeepsTheColorThatAPickPushesOutOfTheHistory();

private:
    /// Opens the palette by clicks and waits for its rows.
    static bool openPalette(PrivateDesktop& desktop, TintwickProcess& program);
    /// The middle of the title "Undo" below the rows; none while it is not shown.
    static std::optional<QPoint> undoTitle(PrivateDesktop& desktop, TintwickProcess& program);
    static QRgb rowColor(PrivateDesktop& desktop, TintwickProcess& program, int position);
    static void dragFirstRowToTheEnd(PrivateDesktop& desktop, TintwickProcess& program);
};

bool PaletteTest::openPalette(PrivateDesktop& desktop, TintwickProcess& program)
{
    if (!program.waitForTrayIcon()) {
        return false;
    }
    desktop.clickAt(program.trayIcon().center());
    if (!program.waitForPanel()) {
        return false;
    }
    desktop.clickAt(program.panel().topLeft() + card);
    return waitUntil([&] { return rowColor(desktop, program, 2) == qRgb(0, 0, 255); });
}

std::optional<QPoint> PaletteTest::undoTitle(PrivateDesktop& desktop, TintwickProcess& program)
{
    // The only text there in the accent colour.
    const QRect panel = program.panel();
    const QRect bottom(panel.left() + 20, panel.bottom() - 45, panel.width() - 40, 35);
    const QImage picture = desktop.screenshot().copy(bottom);
    QRect title;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (qBlue(pixel) - qRed(pixel) > 100) {
                title |= QRect(x, y, 1, 1);
            }
        }
    }
    return title.isEmpty() ? std::nullopt : std::optional(bottom.topLeft() + title.center());
}

QRgb PaletteTest::rowColor(PrivateDesktop& desktop, TintwickProcess& program, int position)
{
    return desktop.pixel(program.panel().topLeft() + firstRow + QPoint(0, position * rowHeight));
}

void PaletteTest::dragFirstRowToTheEnd(PrivateDesktop& desktop, TintwickProcess& program)
{
    const QPoint from = program.panel().topLeft() + firstRow;
    desktop.movePointer(from);
    desktop.press(Button::Left);
    for (int step = 1; step <= 12; ++step) {
        desktop.movePointer(from + QPoint(0, 2 * rowHeight * step / 12));
    }
}

void PaletteTest::aRowIsDraggedToAnotherPlace_data()
{
    QTest::addColumn<Compositor>("compositor");
    QTest::newRow("without a compositor") << Compositor::None;
    QTest::newRow("with a compositor") << Compositor::Plain;
}

void PaletteTest::aRowIsDraggedToAnotherPlace()
{
    QFETCH(const Compositor, compositor);
    PrivateDesktop desktop({.compositor = compositor});
    keepAPalette(desktop);
    TintwickProcess program(desktop);
    QVERIFY(openPalette(desktop, program));

    dragFirstRowToTheEnd(desktop, program);
    // The other rows make room before the row is dropped.
    QVERIFY(waitUntil([&] {
        return rowColor(desktop, program, 0) == qRgb(0, 255, 0) &&
               rowColor(desktop, program, 1) == qRgb(0, 0, 255) &&
               rowColor(desktop, program, 2) == qRgb(255, 0, 0);
    }));
    QCOMPARE(storedIds(program), ids);
    desktop.release(Button::Left);
    QVERIFY(waitUntil([&] { return storedIds(program) == QStringList({ids[1], ids[2], ids[0]}); }));
    QCOMPARE(rowColor(desktop, program, 2), qRgb(255, 0, 0));

    // A click still copies.
    desktop.click();
    QVERIFY(program.waitForClipboard("#FF0000"));
    QVERIFY(!program.panel().isEmpty());
}

void PaletteTest::escapeEndsTheDragAndDoesNotHideThePanel()
{
    PrivateDesktop desktop({});
    keepAPalette(desktop);
    TintwickProcess program(desktop);
    QVERIFY(openPalette(desktop, program));

    dragFirstRowToTheEnd(desktop, program);
    QVERIFY(waitUntil([&] { return rowColor(desktop, program, 0) == qRgb(0, 255, 0); }));
    desktop.typeKey(XK_Escape);
    QVERIFY(waitUntil([&] { return rowColor(desktop, program, 0) == qRgb(255, 0, 0); }));
    desktop.release(Button::Left);
    QVERIFY(!program.panel().isEmpty());
    QCOMPARE(storedIds(program), ids);

    // Without a drag, Escape hides the panel.
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPanelToHide());
    QCOMPARE(storedIds(program), ids);
}

void PaletteTest::aRemovedRowLeavesItsPlaceEmptyUntilThePointerMoves()
{
    PrivateDesktop desktop({});
    keepAPalette(desktop);
    TintwickProcess program(desktop);
    QVERIFY(openPalette(desktop, program));

    const QPoint remove = program.panel().topLeft() + firstRemoveButton;
    desktop.clickAt(remove);
    QVERIFY(waitUntil([&] { return storedIds(program) == QStringList({ids[1], ids[2]}); }));
    static_cast<void>(desktop.settledScreenshot());
    // The others stay, and a second click hits none of them.
    QCOMPARE(rowColor(desktop, program, 1), qRgb(0, 255, 0));
    QCOMPARE(rowColor(desktop, program, 2), qRgb(0, 0, 255));
    desktop.click();
    static_cast<void>(desktop.settledScreenshot());
    QCOMPARE(storedIds(program), QStringList({ids[1], ids[2]}));
    QCOMPARE(rowColor(desktop, program, 1), qRgb(0, 255, 0));

    desktop.movePointer(remove + QPoint(-30, 0));
    QVERIFY(waitUntil([&] { return rowColor(desktop, program, 0) == qRgb(0, 255, 0); }));
    QCOMPARE(rowColor(desktop, program, 1), qRgb(0, 0, 255));
}

void PaletteTest::aRemovedColorComesBack()
{
    PrivateDesktop desktop({});
    keepAPalette(desktop);
    TintwickProcess program(desktop);
    QVERIFY(openPalette(desktop, program));
    const QStringList without{ids[1], ids[2]};
    const auto isStored = [&](const QStringList& expected) {
        return waitUntil([&] { return storedIds(program) == expected; });
    };

    desktop.clickAt(program.panel().topLeft() + firstRemoveButton);
    QVERIFY(isStored(without));
    QVERIFY(waitUntil([&] { return undoTitle(desktop, program).has_value(); }));
    static_cast<void>(desktop.settledScreenshot());
    desktop.clickAt(*undoTitle(desktop, program));
    QVERIFY(isStored(ids));
    QVERIFY(waitUntil([&] { return rowColor(desktop, program, 0) == qRgb(255, 0, 0); }));
    QVERIFY(waitUntil([&] { return !undoTitle(desktop, program); }));

    desktop.typeKey(XK_z, {XK_Control_L, XK_Shift_L});
    QVERIFY(isStored(without));
    desktop.typeKey(XK_z, {XK_Control_L});
    QVERIFY(isStored(ids));
    desktop.typeKey(XK_z, {XK_Control_L, XK_Shift_L});
    QVERIFY(isStored(without));
    QVERIFY(waitUntil([&] { return undoTitle(desktop, program).has_value(); }));
    // By itself, after six seconds.
    desktop.movePointer(program.panel().topLeft() + card);
    QVERIFY(waitUntil([&] { return !undoTitle(desktop, program); }));
    desktop.typeKey(XK_z, {XK_Control_L});
    QVERIFY(isStored(ids));
}

void PaletteTest::aPaletteIsRenamedAndSorted()
{
    PrivateDesktop desktop({});
    keepAPalette(desktop);
    TintwickProcess program(desktop);
    QVERIFY(openPalette(desktop, program));
    const auto storedName = [&] {
        return program.data()
            .value("collections"_L1)
            .toArray()
            .first()
            .toObject()
            .value("name"_L1)
            .toString();
    };
    QVERIFY(program.waitForPanelToHaveFocus());

    desktop.typeKey(XK_F2);
    static_cast<void>(desktop.settledScreenshot());
    desktop.typeKey(XK_s);
    desktop.typeKey(XK_Return);
    QVERIFY(waitUntil([&] { return storedName() == u"s"_s; }));

    // The sheet is gone, so that the keys are those of the panel.
    static_cast<void>(desktop.settledScreenshot());
    desktop.typeKey(XK_z, {XK_Control_L});
    QVERIFY(waitUntil([&] { return storedName() == u"Brand"_s; }));

    // The menu of the palette: the third entry is "Sort by", its second "Lightness".
    desktop.clickAt(program.panel().topLeft() + actionsButton);
    for (const xcb_keysym_t key : {XK_Up, XK_Up, XK_Up, XK_Right, XK_Down, XK_Return}) {
        static_cast<void>(desktop.settledScreenshot());
        desktop.typeKey(key);
    }
    QVERIFY(waitUntil([&] { return storedIds(program) == QStringList({ids[2], ids[0], ids[1]}); }));
    QVERIFY(waitUntil([&] { return rowColor(desktop, program, 0) == qRgb(0, 0, 255); }));
}

void PaletteTest::aPaletteKeepsTheColorThatAPickPushesOutOfTheHistory()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    keepAPalette(desktop, 97);
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    QVERIFY(program.startPicking());
    desktop.movePointer(desktop.screen().center());
    desktop.click();
    QVERIFY(program.waitForPickToEnd());
    const auto stored = [&](const QString& key) { return program.data().value(key).toArray(); };
    QVERIFY(waitUntil([&] { return stored(u"keptColors"_s).size() == 1; }));
    QCOMPARE(stored(u"history"_s).size(), 100);
    QCOMPARE(stored(u"keptColors"_s).first().toObject().value("id"_L1).toString(), ids[2]);
    QCOMPARE(stored(u"history"_s).last().toObject().value("id"_L1).toString(), ids[1]);

    QVERIFY(openPalette(desktop, program));
    QCOMPARE(rowColor(desktop, program, 0), qRgb(255, 0, 0));
    desktop.clickAt(program.panel().topLeft() + firstRow + QPoint(0, 2 * rowHeight));
    QVERIFY(program.waitForClipboard("#0000FF"));
}

void PaletteTest::plusPicksManyColorsIntoThePalette()
{
    PrivateDesktop desktop({});
    keepAPalette(desktop);
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    desktop.clickAt(program.trayIcon().center());
    QVERIFY(program.waitForPanel());
    const QPoint panel = program.panel().topLeft();
    desktop.clickAt(panel + card);
    static_cast<void>(desktop.settledScreenshot());
    desktop.clickAt(panel + plus);
    QVERIFY(program.waitForLoupe());
    QVERIFY(program.panel().isEmpty());
    for (const QPoint place : {QPoint(300, 300), QPoint(422, 333)}) {
        const qsizetype before = storedIds(program).size();
        desktop.movePointer(place);
        QVERIFY(program.waitForCenterCell(patternPixel(place.x(), place.y())));
        desktop.click();
        QVERIFY(waitUntil([&] { return storedIds(program).size() == before + 1; }));
        QVERIFY(program.loupe());
    }
    desktop.typeKey(XK_Escape);
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(program.waitForPanel());
    const QJsonArray history = program.history();
    QCOMPARE(storedIds(program),
             ids + QStringList({history.at(1)["id"_L1].toString(), history.at(0)["id"_L1].toString()}));
}

QTEST_GUILESS_MAIN(PaletteTest)
#include "PaletteTest.moc"
