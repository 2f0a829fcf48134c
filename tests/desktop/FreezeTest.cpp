#include "desktop/TintwickProcess.h"
#include "support/Pattern.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QTest>

#include <X11/keysym.h>

using namespace tintwick;

using Compositor = PrivateDesktop::Compositor;

/// A pick whose picture stands still.
class FreezeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFrozenScreenKeepsItsPixelsUntilItIsThawed_data();
    void aFrozenScreenKeepsItsPixelsUntilItIsThawed();
    void thePictureIsTakenAgain_data();
    void thePictureIsTakenAgain();
    void aWindowThatOpensStaysBelowTheFrozenScreen();
    void aFrozenPixelIsPicked();
    void nothingCoversTheScreenAfterAFrozenPick();
};

namespace {

const QPoint middle(640, 400);
/// Inside the patch of the tests, and beside the loupe in the middle.
const QPoint aside(780, 400);
const QRgb before = qRgb(1, 2, 3);
const QRgb after = qRgb(200, 100, 50);

void addCompositors()
{
    QTest::addColumn<Compositor>("compositor");
    QTest::newRow("no compositor") << Compositor::None;
    QTest::newRow("compositor") << Compositor::Plain;
    QTest::newRow("compositor with shadows") << Compositor::WithShadows;
}

bool isDrawn(const QImage& pill)
{
    QImage bare(pill.size(), pill.format());
    bare.fill(before);
    return pill != bare;
}

/// A desktop with a patch below the whole loupe, and a pick that shows it.
struct Scene
{
    PrivateDesktop desktop;
    std::unique_ptr<TestWindow> picture = desktop.showPicture();
    DesktopConnection other{desktop.display()};
    TestWindow patch{other, {.geometry = {500, 300, 300, 300}}};
    TintwickProcess program{desktop};
    QImage livePill;

    explicit Scene(Compositor compositor)
        : desktop({.compositor = compositor})
    {
        patch.setColor(before);
        patch.show();
    }

    [[nodiscard]] bool begin()
    {
        if (!program.startPicking()) {
            return false;
        }
        desktop.movePointer(middle);
        // A busy compositor shows the patch in the place of the loupe first.
        return program.waitForLoupeAt(loupePlace(middle, desktop.screen())) &&
               waitUntil([this] { return isDrawn(pill()); }) && program.waitForCenterCell(before) &&
               waitForScreen(before);
    }
    /// Freezes the screen and waits until the pill says so.
    [[nodiscard]] bool freeze()
    {
        livePill = pill();
        desktop.typeKey(XK_f);
        return waitUntil([this] { return pill() != livePill; });
    }
    /// Waits until the screen itself shows the colour beside the loupe.
    [[nodiscard]] bool waitForScreen(QRgb color)
    {
        return waitUntil([&] { return desktop.pixel(aside) == color; });
    }
    /// The pill has a third line when the screen is frozen, so its middle differs.
    [[nodiscard]] QImage pill()
    {
        const QRect loupe = program.loupe().value_or(QRect());
        return desktop.settledScreenshot({loupe.left() + 11, loupe.bottom() - 45, loupe.width() - 22, 45});
    }
};

} // namespace

void FreezeTest::aFrozenScreenKeepsItsPixelsUntilItIsThawed_data()
{
    addCompositors();
}

void FreezeTest::aFrozenScreenKeepsItsPixelsUntilItIsThawed()
{
    QFETCH(const Compositor, compositor);
    Scene scene(compositor);
    QVERIFY(scene.begin());
    QVERIFY(scene.freeze());

    scene.patch.setColor(after);
    scene.other.sync();
    // The next frame of the loupe is drawn after the change.
    scene.desktop.movePointer(middle + QPoint(3, 0));
    QVERIFY(scene.program.waitForLoupeAt(loupePlace(middle + QPoint(3, 0), scene.desktop.screen())));
    QVERIFY(scene.program.waitForCenterCell(before));
    QCOMPARE(scene.desktop.settledScreenshot({aside, QSize(1, 1)}).pixel(0, 0), before);

    scene.desktop.typeKey(XK_f);
    QVERIFY(scene.program.waitForCenterCell(after));
    QVERIFY(scene.waitForScreen(after));
    scene.patch.setColor(before);
    QVERIFY(scene.program.waitForCenterCell(before));
    QVERIFY(waitUntil([&] { return scene.pill() == scene.livePill; }));
}

void FreezeTest::thePictureIsTakenAgain_data()
{
    addCompositors();
}

void FreezeTest::thePictureIsTakenAgain()
{
    QFETCH(const Compositor, compositor);
    Scene scene(compositor);
    QVERIFY(scene.begin());
    QVERIFY(scene.freeze());
    for (const xcb_keysym_t key : {XK_r, XK_F5}) {
        const QRgb next = key == XK_r ? after : qRgb(10, 250, 30);
        scene.patch.setColor(next);
        scene.other.sync();
        scene.desktop.typeKey(key);
        QVERIFY(scene.program.waitForCenterCell(next));
        QVERIFY(scene.waitForScreen(next));
    }
}

void FreezeTest::aWindowThatOpensStaysBelowTheFrozenScreen()
{
    Scene scene(Compositor::Plain);
    QVERIFY(scene.begin());
    QVERIFY(scene.freeze());
    TestWindow window(scene.other, {.geometry = {600, 350, 300, 100}});
    window.setColor(after);
    window.show();
    scene.other.sync();
    scene.desktop.movePointer(middle + QPoint(3, 0));
    QVERIFY(scene.program.waitForLoupeAt(loupePlace(middle + QPoint(3, 0), scene.desktop.screen())));
    QVERIFY(scene.program.waitForCenterCell(before));
    QVERIFY(scene.waitForScreen(before));
}

void FreezeTest::aFrozenPixelIsPicked()
{
    Scene scene(Compositor::None);
    QVERIFY(scene.begin());
    QVERIFY(scene.freeze());
    scene.patch.setColor(after);
    scene.other.sync();
    scene.desktop.click();
    QVERIFY(scene.program.waitForPickToEnd());
    QVERIFY2(scene.program.waitForClipboard("#010203"), scene.desktop.clipboard().constData());
}

void FreezeTest::nothingCoversTheScreenAfterAFrozenPick()
{
    Scene scene(Compositor::Plain);
    QVERIFY(scene.begin());
    QVERIFY(scene.freeze());
    scene.patch.setColor(after);
    scene.desktop.typeKey(XK_Escape);
    QVERIFY(scene.program.waitForPickToEnd());
    QVERIFY(scene.waitForScreen(after));
    QVERIFY(waitUntil([&] { return scene.program.visibleWindows() == 0; }));
}

QTEST_GUILESS_MAIN(FreezeTest)
#include "FreezeTest.moc"
