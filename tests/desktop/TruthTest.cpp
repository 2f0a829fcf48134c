#include "desktop/TintwickProcess.h"
#include "support/Pattern.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QRandomGenerator>
#include <QTest>

#include <X11/keysym.h>

#include <vector>

using namespace tintwick;

using Compositor = PrivateDesktop::Compositor;

/// The pixel under the pointer, the loupe's centre cell and the text on the clipboard agree.
class TruthTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theCenterCellShowsThePixelUnderThePointer_data();
    void theCenterCellShowsThePixelUnderThePointer();
    void aClickCopiesThePixelUnderThePointer_data();
    void aClickCopiesThePixelUnderThePointer();
    void everyCellShowsItsPixel_data();
    void everyCellShowsItsPixel();
    void cellsBeyondTheScreenAreDarkGray();
    void overlappingWindowsAreSampledAsShown_data();
    void overlappingWindowsAreSampledAsShown();
    void aFarMoveRightAfterTheStartIsSampledAsShown_data();
    void aFarMoveRightAfterTheStartIsSampledAsShown();
};

namespace {

// Positions with the most special cases: corners, and points along each edge beside the tray.
std::vector<QPoint> cornersAndEdges(const QRect& screen)
{
    const int right = screen.right();
    const int bottom = screen.bottom();
    return {
        {0, 0},         {right, 0},          {0, bottom},         {right, bottom}, {right / 4, 0},
        {1, 1},         {right / 4, bottom}, {right / 2, bottom}, {0, bottom / 3}, {right, bottom / 3},
        {right - 1, 1}, {0, bottom / 2},     {right, bottom / 2}, {1, bottom - 1}, {right - 1, bottom - 1}};
}

std::vector<QPoint> randomPositions(const QRect& area, int count, quint32 seed)
{
    QRandomGenerator random(seed);
    std::vector<QPoint> positions;
    while (static_cast<int>(positions.size()) < count) {
        positions.emplace_back(random.bounded(area.left(), area.right() + 1),
                               random.bounded(area.top(), area.bottom() + 1));
    }
    return positions;
}

// The tray lies along the top edge.
QRect areaBelowTray(const QRect& screen)
{
    return screen.adjusted(0, 40, 0, 0);
}

QByteArray difference(QPoint position, QRgb shown, QRgb expected)
{
    return QStringLiteral("at %1, %2: %3 instead of %4")
        .arg(position.x())
        .arg(position.y())
        .arg(QString::fromLatin1(hexText(shown)), QString::fromLatin1(hexText(expected)))
        .toUtf8();
}

QByteArray difference(QPoint position, TintwickProcess& program, QRgb expected)
{
    return program.loupe()
               ? difference(position, program.centerCell(), expected)
               : QByteArray(program.process().isRunning() ? "the loupe is gone" : "the program is gone");
}

void addDesktops()
{
    QTest::addColumn<bool>("windowManager");
    QTest::addColumn<Compositor>("compositor");
    QTest::addColumn<double>("scale");

    QTest::newRow("bare server") << false << Compositor::None << 1.0;
    QTest::newRow("window manager") << true << Compositor::None << 1.0;
    QTest::newRow("compositor") << true << Compositor::Plain << 1.0;
    QTest::newRow("compositor with shadows") << true << Compositor::WithShadows << 1.0;
    QTest::newRow("scale 1.5") << true << Compositor::None << 1.5;
    QTest::newRow("scale 1.5 and compositor") << true << Compositor::Plain << 1.5;
    QTest::newRow("scale 2") << true << Compositor::None << 2.0;
    QTest::newRow("scale 2 and compositor") << true << Compositor::Plain << 2.0;
}

PrivateDesktop::Options desktopOfRow()
{
    QFETCH(const bool, windowManager);
    QFETCH(const Compositor, compositor);
    return {.windowManager = windowManager, .compositor = compositor};
}

QProcessEnvironment scaled(double scale)
{
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(scale));
    return environment;
}

} // namespace

void TruthTest::theCenterCellShowsThePixelUnderThePointer_data()
{
    addDesktops();
}

void TruthTest::theCenterCellShowsThePixelUnderThePointer()
{
    QFETCH(const double, scale);
    PrivateDesktop desktop(desktopOfRow());
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop, scaled(scale));
    QVERIFY(program.startPicking());

    constexpr int randomCount = 200;
    constexpr quint32 seed = 20240229;
    std::vector<QPoint> positions = cornersAndEdges(desktop.screen());
    const auto random = randomPositions(areaBelowTray(desktop.screen()), randomCount, seed);
    positions.insert(positions.end(), random.begin(), random.end());
    for (const QPoint position : positions) {
        desktop.movePointer(position);
        const QRgb expected = patternPixel(position.x(), position.y());
        QVERIFY2(program.waitForCenterCell(expected), difference(position, program, expected).constData());
        QVERIFY(program.waitForLoupeAt(loupePlace(position, desktop.screen(), scale)));
    }
}

void TruthTest::aClickCopiesThePixelUnderThePointer_data()
{
    addDesktops();
}

void TruthTest::aClickCopiesThePixelUnderThePointer()
{
    QFETCH(const double, scale);
    PrivateDesktop desktop(desktopOfRow());
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop, scaled(scale));

    constexpr int randomCount = 20;
    constexpr quint32 seed = 7;
    std::vector<QPoint> positions = cornersAndEdges(desktop.screen());
    positions.resize(4);
    const auto random = randomPositions(areaBelowTray(desktop.screen()), randomCount, seed);
    positions.insert(positions.end(), random.begin(), random.end());
    for (const QPoint position : positions) {
        QVERIFY(program.startPicking());
        desktop.movePointer(position);
        const QRgb expected = patternPixel(position.x(), position.y());
        QVERIFY2(program.waitForCenterCell(expected), difference(position, program, expected).constData());
        desktop.click();
        QVERIFY(program.waitForPickToEnd());
        QVERIFY2(program.waitForClipboard(hexText(expected)), desktop.clipboard().constData());
    }
}

void TruthTest::everyCellShowsItsPixel_data()
{
    addDesktops();
}

void TruthTest::everyCellShowsItsPixel()
{
    QFETCH(const double, scale);
    PrivateDesktop desktop(desktopOfRow());
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop, scaled(scale));
    QVERIFY(program.startPicking());
    const QPoint pointer(700, 430);
    desktop.movePointer(pointer);
    QVERIFY(program.waitForCenterCell(patternPixel(pointer.x(), pointer.y())));
    // The corners are rounded.
    constexpr int radius = 7;
    for (int row = -radius + 1; row < radius; ++row) {
        for (int column = -radius + 1; column < radius; ++column) {
            const QPoint position = pointer + QPoint(column, row);
            const QRgb expected = patternPixel(position.x(), position.y());
            QRgb shown = 0;
            QVERIFY2(
                waitUntil([&] { return (shown = program.cell(column, row, radius, scale)) == expected; }),
                difference(position, shown, expected).constData());
        }
    }
}

void TruthTest::cellsBeyondTheScreenAreDarkGray()
{
    PrivateDesktop desktop({});
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer({0, 500});
    QVERIFY(program.waitForCenterCell(patternPixel(0, 500)));
    QCOMPARE(program.cell(-1, 0, 7), qRgb(0x55, 0x55, 0x55));
    QCOMPARE(program.cell(-6, 3, 7), qRgb(0x55, 0x55, 0x55));
    QCOMPARE(program.cell(1, 0, 7), patternPixel(1, 500));
}

void TruthTest::overlappingWindowsAreSampledAsShown_data()
{
    QTest::addColumn<bool>("windowManager");
    QTest::addColumn<Compositor>("compositor");

    QTest::newRow("bare server") << false << Compositor::None;
    QTest::newRow("window manager") << true << Compositor::None;
    QTest::newRow("compositor") << true << Compositor::Plain;
    QTest::newRow("compositor with shadows") << true << Compositor::WithShadows;
}

void TruthTest::overlappingWindowsAreSampledAsShown()
{
    PrivateDesktop desktop(desktopOfRow());
    const auto picture = desktop.showPicture();
    DesktopConnection other(desktop.display());
    TestWindow shaped(other, {.geometry = {300, 200, 300, 300}});
    shaped.setColor(QColor(10, 120, 60));
    shaped.setShape({{0, 0, 150, 150}, {150, 150, 150, 150}});
    shaped.show();
    TestWindow glass(other, {.geometry = {400, 250, 350, 300}, .visual = TestWindow::Visual::Translucent});
    glass.setColor(QColor(240, 40, 90, 128));
    glass.show();
    TestWindow moreGlass(other,
                         {.geometry = {500, 300, 150, 350}, .visual = TestWindow::Visual::Translucent});
    moreGlass.setColor(QColor(0, 200, 255, 64));
    moreGlass.show();
    TestWindow framed(other,
                      {.geometry = {700, 400, 120, 100}, .management = TestWindow::Management::Managed});
    framed.setColor(QColor(200, 200, 20));
    framed.show();

    // A busy compositor is late; until then the server shows the window's own content.
    QFETCH(const Compositor, compositor);
    const QPoint inMoreGlass(575, 600);
    constexpr QRgb notBlended = qRgb(0, 50, 64);
    QVERIFY(waitUntil(
        [&] { return (desktop.pixel(inMoreGlass) == notBlended) == (compositor == Compositor::None); }));

    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    const QImage before = desktop.settledScreenshot();
    // Not from the menu: where it was, the shadows of a compositor are not sampled.
    desktop.typeKey(XK_c, {XK_Alt_L, XK_Shift_L});
    QVERIFY(program.waitForLoupe());
    for (const QPoint position : randomPositions({250, 150, 650, 550}, 60, 11)) {
        desktop.movePointer(position);
        const QRgb expected = before.pixel(position);
        QVERIFY2(program.waitForLoupeAt(loupePlace(position, desktop.screen())), "the loupe did not follow");
        QVERIFY2(program.waitForCenterCell(expected), difference(position, program, expected).constData());
        // Nothing changes below, so the picture stays the same once the loupe does not move.
        static_cast<void>(desktop.settledScreenshot(loupePlace(position, desktop.screen())));
        QVERIFY2(program.centerCell() == expected, difference(position, program, expected).constData());
    }
}

void TruthTest::aFarMoveRightAfterTheStartIsSampledAsShown_data()
{
    overlappingWindowsAreSampledAsShown_data();
}

void TruthTest::aFarMoveRightAfterTheStartIsSampledAsShown()
{
    QFETCH(const bool, windowManager);
    QFETCH(const Compositor, compositor);
    // So large that the screen is still being copied when the pointer moves.
    PrivateDesktop desktop({.size = {3840, 2160}, .windowManager = windowManager, .compositor = compositor});
    const auto picture = desktop.showPicture();
    DesktopConnection other(desktop.display());
    // A compositor's shadow is around it, which is in no window's content.
    TestWindow window(other, {.geometry = {3000, 1700, 200, 200}});
    window.setColor(QColor(10, 120, 60));
    window.show();
    TintwickProcess program(desktop);
    QVERIFY(program.waitForTrayIcon());
    const QImage before = desktop.settledScreenshot();

    const QPoint start(300, 300);
    const QPoint inTheShadow(2990, 1800);
    // From each place to a pixel that the loupe covers there
    const QPoint step(40, 30);
    const auto shows = [&](QPoint position) { return program.waitForCenterCell(before.pixel(position)); };
    for (int pick = 0; pick < 8; ++pick) {
        desktop.movePointer(start);
        QVERIFY(waitUntil([&] { return other.inputIsFree(); }));
        desktop.typeKey(XK_c, {XK_Alt_L, XK_Shift_L});
        QVERIFY(program.waitForLoupe());
        for (const QPoint place : {start, inTheShadow}) {
            desktop.movePointer(place);
            QVERIFY(program.waitForLoupeAt(loupePlace(place, desktop.screen())));
            desktop.movePointer(place + step);
            QVERIFY2(shows(place + step),
                     difference(place + step, program, before.pixel(place + step)).constData());
        }
        for (const QPoint position : {QPoint(3000, 1690), QPoint(200, 2000), QPoint(3206, 1850)}) {
            desktop.movePointer(position);
            QVERIFY2(shows(position), difference(position, program, before.pixel(position)).constData());
        }
        desktop.typeKey(XK_Escape);
        QVERIFY(program.waitForPickToEnd());
    }
}

QTEST_GUILESS_MAIN(TruthTest)
#include "TruthTest.moc"
