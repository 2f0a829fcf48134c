#include "desktop/TintwickProcess.h"
#include "support/WaitUntil.h"
#include "support/wayland/PixelChoice.h"
#include "support/wayland/SwayDesktop.h"
#include "wayland/WaylandTintwick.h"

#include <linux/input-event-codes.h>

#include <QTest>

#include <algorithm>
#include <vector>

using namespace tintwick;
using namespace Qt::StringLiterals;

using Outputs = std::vector<WaylandDesktop::Output>;
using Pixel = WaylandDesktop::Pixel;

Q_DECLARE_METATYPE(Outputs)

/// The physical pixel under the pointer, the loupe's centre cell and the picked colour agree.
class WaylandTruthTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aClickPicksThePixelUnderThePointer_data();
    void aClickPicksThePixelUnderThePointer();
    void everyCellShowsItsPixel_data();
    void everyCellShowsItsPixel();
    void cellsBeyondTheScreenAreDarkGray();
    void aPointerThatTheProgramHasNotSeenMoveIsKnown();
};

void WaylandTruthTest::aClickPicksThePixelUnderThePointer_data()
{
    QTest::addColumn<Outputs>("outputs");
    QTest::addColumn<int>("randomPicks");

    const QSize size(1200, 900);
    QTest::newRow("scale 1") << Outputs{{.size = size}} << 200;
    QTest::newRow("scale 1.5") << Outputs{{.size = size, .scale = 1.5}} << 200;
    QTest::newRow("scale 2") << Outputs{{.size = size, .scale = 2}} << 200;
    QTest::newRow("scales 1 and 1.5")
        << Outputs{{.size = size}, {.size = size, .scale = 1.5, .position = {1200, 0}}} << 200;
    QTest::newRow("scales 2 and 1, not side by side")
        << Outputs{{.size = size, .scale = 2, .position = {0, 300}}, {.size = size, .position = {600, 0}}}
        << 200;
    QTest::newRow("scale 1.25") << Outputs{{.size = {1280, 800}, .scale = 1.25}} << 40;
    QTest::newRow("scale 1.75") << Outputs{{.size = {1400, 700}, .scale = 1.75}} << 40;
    QTest::newRow("turned by 90, and by 180 at scale 2")
        << Outputs{{.size = size, .transform = WL_OUTPUT_TRANSFORM_90},
                   {.size = size, .scale = 2, .position = {900, 100}, .transform = WL_OUTPUT_TRANSFORM_180}}
        << 40;
    QTest::newRow("turned by 270 at scale 1.5, and flipped")
        << Outputs{{.size = size, .scale = 1.5, .transform = WL_OUTPUT_TRANSFORM_270},
                   {.size = size, .position = {600, 0}, .transform = WL_OUTPUT_TRANSFORM_FLIPPED}}
        << 40;
    QTest::newRow("flipped and turned by 90 and 270")
        << Outputs{{.size = size, .transform = WL_OUTPUT_TRANSFORM_FLIPPED_90},
                   {.size = size, .position = {900, 0}, .transform = WL_OUTPUT_TRANSFORM_FLIPPED_270}}
        << 20;
}

void WaylandTruthTest::aClickPicksThePixelUnderThePointer()
{
    QFETCH(const Outputs, outputs);
    QFETCH(const int, randomPicks);
    SwayDesktop desktop({.outputs = outputs});
    const auto picture = desktop.showPicture();
    std::vector<Pixel> pixels = cornersAndEdges(desktop);
    const auto random = randomPixels(desktop, randomPicks);
    pixels.insert(pixels.end(), random.begin(), random.end());

    // Each command takes a new picture for some picks.
    constexpr std::ptrdiff_t most = 10;
    for (auto first = pixels.cbegin(); first != pixels.cend();) {
        const auto end = first + std::min(most, pixels.cend() - first);
        WaylandTintwick program(desktop,
                                {u"pick"_s, u"--no-copy"_s, u"--count"_s, QString::number(end - first)});
        QByteArray expected;
        for (; first != end; ++first) {
            desktop.movePointer(*first);
            QVERIFY2(program.waitForLoupe(*first), description(*first) + program.process().standardError());
            desktop.click();
            expected += hexText(desktop.patternPixel(*first)) + '\n';
        }
        QCOMPARE(program.process().waitForEnd(), 0);
        QCOMPARE(program.process().standardOutput(), expected);
    }
}

void WaylandTruthTest::everyCellShowsItsPixel_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("scale 1") << 1.0;
    QTest::newRow("scale 1.5") << 1.5;
    QTest::newRow("scale 2") << 2.0;
}

void WaylandTruthTest::everyCellShowsItsPixel()
{
    QFETCH(const double, scale);
    SwayDesktop desktop({.outputs = {{.size = {1200, 900}, .scale = scale}}});
    const auto picture = desktop.showPicture();
    const Pixel pixel{0, {700, 430}};
    desktop.movePointer(pixel);
    WaylandTintwick program(desktop, {u"pick"_s});
    QVERIFY(program.waitForLoupe(pixel));
    // The corners are rounded.
    constexpr int radius = 7;
    const QImage screen = desktop.screenshot(0);
    for (int row = -radius + 1; row < radius; ++row) {
        for (int column = -radius + 1; column < radius; ++column) {
            const QPoint shown = middleOfCell(desktop, pixel, column, row, radius);
            const QRgb expected = desktop.patternPixel({0, pixel.point + QPoint(column, row)});
            QVERIFY2(screen.pixel(shown) == expected, description({0, {column, row}}));
        }
    }
}

void WaylandTruthTest::cellsBeyondTheScreenAreDarkGray()
{
    SwayDesktop desktop({});
    const auto picture = desktop.showPicture();
    const Pixel pixel{0, {0, 500}};
    desktop.movePointer(pixel);
    WaylandTintwick program(desktop, {u"pick"_s});
    QVERIFY(program.waitForLoupe(pixel));
    QCOMPARE(program.cell(pixel, -1, 0, 7), qRgb(0x55, 0x55, 0x55));
    QCOMPARE(program.cell(pixel, -6, 3, 7), qRgb(0x55, 0x55, 0x55));
    QCOMPARE(program.cell(pixel, 1, 0, 7), desktop.patternPixel({0, {1, 500}}));
}

void WaylandTruthTest::aPointerThatTheProgramHasNotSeenMoveIsKnown()
{
    SwayDesktop desktop({.outputs = {{}, {.scale = 2, .position = {1280, 0}}}});
    const auto picture = desktop.showPicture();
    for (const Pixel& pixel : {Pixel{0, {321, 123}}, Pixel{1, {777, 555}}}) {
        desktop.movePointer(pixel);
        WaylandTintwick program(desktop, {u"pick"_s});
        QVERIFY2(program.waitForLoupe(pixel), description(pixel));
        desktop.typeKey(KEY_ESC);
        QCOMPARE(program.process().waitForEnd(), 1);
    }
}

QTEST_GUILESS_MAIN(WaylandTruthTest)
#include "WaylandTruthTest.moc"
