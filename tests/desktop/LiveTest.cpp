#include "desktop/TintwickProcess.h"
#include "support/FloodingClient.h"
#include "support/Pattern.h"
#include "support/TestWindow.h"

#include <QTest>

using namespace tintwick;

using Compositor = PrivateDesktop::Compositor;

/// The loupe shows changes below it while the pointer rests.
class LiveTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aChangedWindowIsSampledInItsCurrentState_data();
    void aChangedWindowIsSampledInItsCurrentState();
    void windowsThatMoveOpenAndCloseAreFollowed_data();
    void windowsThatMoveOpenAndCloseAreFollowed();
    void aTranslucentWindowThatOpensIsBlended();
    void aClickPicksTheCurrentColor_data();
    void aClickPicksTheCurrentColor();
    void theLoupeNeverSamplesItself_data();
    void theLoupeNeverSamplesItself();
    void aMenuThatHasClosedIsNotSampled_data();
    void aMenuThatHasClosedIsNotSampled();
    void aProgramThatDrawsWithoutPauseDoesNotDelayTheLoupe_data();
    void aProgramThatDrawsWithoutPauseDoesNotDelayTheLoupe();
};

namespace {

const QPoint middle(640, 400);

void addCompositors()
{
    QTest::addColumn<Compositor>("compositor");
    QTest::newRow("no compositor") << Compositor::None;
    QTest::newRow("compositor") << Compositor::Plain;
    QTest::newRow("compositor with shadows") << Compositor::WithShadows;
}

PrivateDesktop::Options desktopOfRow()
{
    QFETCH(const Compositor, compositor);
    return {.compositor = compositor};
}

} // namespace

void LiveTest::aChangedWindowIsSampledInItsCurrentState_data()
{
    addCompositors();
}

void LiveTest::aChangedWindowIsSampledInItsCurrentState()
{
    PrivateDesktop desktop(desktopOfRow());
    const auto picture = desktop.showPicture();
    DesktopConnection other(desktop.display());
    TestWindow patch(other, {.geometry = {600, 380, 80, 60}});
    patch.setColor(QColor(1, 2, 3));
    patch.show();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    QVERIFY(program.waitForCenterCell(qRgb(1, 2, 3)));
    for (int shade = 4; shade < 24; ++shade) {
        patch.setColor(QColor(shade, 2 * shade, 3 * shade));
        QVERIFY(program.waitForCenterCell(qRgb(shade, 2 * shade, 3 * shade)));
    }
}

void LiveTest::windowsThatMoveOpenAndCloseAreFollowed_data()
{
    addCompositors();
}

void LiveTest::windowsThatMoveOpenAndCloseAreFollowed()
{
    PrivateDesktop desktop(desktopOfRow());
    const auto picture = desktop.showPicture();
    DesktopConnection other(desktop.display());
    const QRgb bare = patternPixel(middle.x(), middle.y());
    TestWindow red(other, {.geometry = {100, 600, 80, 60}});
    red.setColor(Qt::red);
    red.show();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    QVERIFY(program.waitForCenterCell(bare));

    red.move({600, 380});
    QVERIFY(program.waitForCenterCell(qRgb(255, 0, 0)));
    {
        TestWindow green(other, {.geometry = {620, 390, 80, 60}});
        green.setColor(Qt::green);
        green.show();
        QVERIFY(program.waitForCenterCell(qRgb(0, 255, 0)));
        red.raise();
        QVERIFY(program.waitForCenterCell(qRgb(255, 0, 0)));
        green.raise();
        QVERIFY(program.waitForCenterCell(qRgb(0, 255, 0)));
        green.setShape({{0, 0, 10, 60}});
        QVERIFY(program.waitForCenterCell(qRgb(255, 0, 0)));
        green.setShape({{0, 0, 80, 60}});
        QVERIFY(program.waitForCenterCell(qRgb(0, 255, 0)));
        green.resize({10, 10});
        QVERIFY(program.waitForCenterCell(qRgb(255, 0, 0)));
        green.resize({100, 100});
        QVERIFY(program.waitForCenterCell(qRgb(0, 255, 0)));
    }
    QVERIFY(program.waitForCenterCell(qRgb(255, 0, 0)));
    red.hide();
    QVERIFY(program.waitForCenterCell(bare));
    red.show();
    QVERIFY(program.waitForCenterCell(qRgb(255, 0, 0)));
    red.move({100, 600});
    QVERIFY(program.waitForCenterCell(bare));
}

void LiveTest::aTranslucentWindowThatOpensIsBlended()
{
    PrivateDesktop desktop({.compositor = Compositor::Plain});
    const auto picture = desktop.showPicture();
    DesktopConnection other(desktop.display());
    TestWindow ground(other, {.geometry = {500, 300, 300, 200}});
    ground.setColor(QColor(200, 100, 0));
    ground.show();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    QVERIFY(program.waitForCenterCell(qRgb(200, 100, 0)));
    TestWindow glass(other, {.geometry = {600, 380, 80, 60}, .visual = TestWindow::Visual::Translucent});
    glass.setColor(QColor(0, 0, 255, 51));
    glass.show();
    // A fifth of the blue over four fifths of the orange.
    QVERIFY(program.waitForCenterCell(qRgb(160, 80, 51)));
    ground.setColor(QColor(100, 50, 0));
    QVERIFY(program.waitForCenterCell(qRgb(80, 40, 51)));
}

void LiveTest::aClickPicksTheCurrentColor_data()
{
    addCompositors();
}

void LiveTest::aClickPicksTheCurrentColor()
{
    PrivateDesktop desktop(desktopOfRow());
    const auto picture = desktop.showPicture();
    DesktopConnection other(desktop.display());
    TestWindow patch(other, {.geometry = {600, 380, 80, 60}});
    patch.setColor(QColor(1, 2, 3));
    patch.show();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    desktop.movePointer(middle);
    QVERIFY(program.waitForCenterCell(qRgb(1, 2, 3)));
    patch.setColor(QColor(0xab, 0xcd, 0xef));
    desktop.click();
    QVERIFY(program.waitForPickToEnd());
    QVERIFY2(program.waitForClipboard("#ABCDEF"), desktop.clipboard().constData());
}

void LiveTest::theLoupeNeverSamplesItself_data()
{
    addCompositors();
}

void LiveTest::theLoupeNeverSamplesItself()
{
    PrivateDesktop desktop(desktopOfRow());
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.startPicking());
    // In the corner the loupe does not move, while the pointer moves over its grid, ring and label.
    const QPoint corner(2, desktop.screen().bottom() - 2);
    desktop.movePointer(corner);
    const QRect place = loupePlace(corner, desktop.screen());
    QVERIFY(program.waitForLoupeAt(place));
    for (int step = 0; step < 60; ++step) {
        const QPoint position(place.left() + step, place.bottom() - 2 * step / 3);
        desktop.movePointer(position);
        QVERIFY(program.waitForCenterCell(patternPixel(position.x(), position.y())));
        QVERIFY(program.waitForLoupeAt(place));
    }
}

void LiveTest::aMenuThatHasClosedIsNotSampled_data()
{
    addCompositors();
}

void LiveTest::aMenuThatHasClosedIsNotSampled()
{
    PrivateDesktop desktop(desktopOfRow());
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    QVERIFY(program.openMenu());
    const QRect menu = program.menuPlace();
    program.choosePick();
    QVERIFY(program.waitForLoupe());
    // Not over the icon, whose window and shadow are above the picture.
    for (int y = menu.bottom() - 2; y > menu.center().y(); y -= 3) {
        for (int x = menu.left() + 1; x < menu.right(); x += 11) {
            desktop.movePointer({x, y});
            QVERIFY(program.waitForCenterCell(patternPixel(x, y)));
        }
    }
}

void LiveTest::aProgramThatDrawsWithoutPauseDoesNotDelayTheLoupe_data()
{
    addCompositors();
}

void LiveTest::aProgramThatDrawsWithoutPauseDoesNotDelayTheLoupe()
{
    PrivateDesktop desktop(desktopOfRow());
    const auto picture = desktop.showPicture();
    TintwickProcess program(desktop);
    // A compositor that does not paint may not show the menu either, so it opens first.
    QVERIFY(program.openMenu());
    {
        const FloodingClient flood(desktop.display(), {100, 100, 1000, 500}, 8);
        program.choosePick(TintwickProcess::ChosenBy::Keys);
        QVERIFY(program.waitForLoupe());
        for (int step = 0; step < 20; ++step) {
            const QPoint position(300 + 37 * step, 250 + 61 * step % 300);
            desktop.movePointer(position);
            // Not the screen, which some compositors do not paint at all meanwhile.
            QVERIFY(program.waitForLoupeAt(loupePlace(position, desktop.screen())));
        }
    }
    const QPoint calm(640, 700);
    desktop.movePointer(calm);
    QVERIFY(program.waitForCenterCell(patternPixel(calm.x(), calm.y())));
}

QTEST_GUILESS_MAIN(LiveTest)
#include "LiveTest.moc"
