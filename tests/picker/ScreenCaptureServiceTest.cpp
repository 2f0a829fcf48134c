#include "ScreenCaptureService.h"
#include "support/ScriptedScreenGrabber.h"
#include "support/TestPictures.h"

#include <QTest>

#include <limits>

using namespace tintwick;
using namespace tintwick::test;

namespace {

constexpr int intMax = std::numeric_limits<int>::max();
constexpr int intMin = std::numeric_limits<int>::min();

SampledColor numberedColor(int x, int y)
{
    return {200 / 255.0, (10 + y) / 255.0, (10 + x) / 255.0, 1.0};
}

ScreenImage onePixel(std::uint8_t blue, std::uint8_t green, std::uint8_t red, std::uint8_t alpha)
{
    return {1, 1, 4, 8, {blue, green, red, alpha}};
}

bool isNear(const SampledColor& left, const SampledColor& right)
{
    const auto near = [](double a, double b) { return std::abs(a - b) < 1e-12; };
    return near(left.red, right.red) && near(left.green, right.green) && near(left.blue, right.blue) &&
           left.alpha == right.alpha;
}

} // namespace

class ScreenCaptureServiceTest final : public QObject
{
    Q_OBJECT

    QStringList m_journal;

private Q_SLOTS:
    void each_cell_takes_the_middle_pixel_of_its_block_data()
    {
        QTest::addColumn<int>("radius");
        QTest::addColumn<QSize>("image");
        QTest::addColumn<QPoint>("cell");
        QTest::addColumn<QPoint>("pixel");
        const QPoint none(-1, -1);

        QTest::newRow("one cell") << 0 << QSize(1, 1) << QPoint(0, 0) << QPoint(0, 0);
        QTest::newRow("one cell, dense") << 0 << QSize(2, 2) << QPoint(0, 0) << QPoint(1, 1);
        QTest::newRow("top left") << 7 << QSize(15, 15) << QPoint(0, 0) << QPoint(0, 0);
        QTest::newRow("centre") << 7 << QSize(15, 15) << QPoint(7, 7) << QPoint(7, 7);
        QTest::newRow("bottom right") << 7 << QSize(15, 15) << QPoint(14, 14) << QPoint(14, 14);
        QTest::newRow("column and row are not mixed up")
            << 7 << QSize(15, 15) << QPoint(3, 11) << QPoint(3, 11);
        QTest::newRow("dense, top left") << 7 << QSize(30, 30) << QPoint(0, 0) << QPoint(1, 1);
        QTest::newRow("dense, centre") << 7 << QSize(30, 30) << QPoint(7, 7) << QPoint(15, 15);
        QTest::newRow("dense, bottom right") << 7 << QSize(30, 30) << QPoint(14, 14) << QPoint(29, 29);
        QTest::newRow("three pixels a cell") << 1 << QSize(9, 9) << QPoint(2, 0) << QPoint(7, 1);
        QTest::newRow("dense in one direction only") << 1 << QSize(6, 3) << QPoint(2, 2) << QPoint(5, 2);
        QTest::newRow("some pixels over") << 1 << QSize(4, 5) << QPoint(2, 2) << QPoint(2, 2);
        QTest::newRow("dense, some pixels over") << 1 << QSize(7, 8) << QPoint(2, 2) << QPoint(5, 5);
        QTest::newRow("cut short at the right, inside") << 7 << QSize(10, 15) << QPoint(9, 0) << QPoint(9, 0);
        QTest::newRow("cut short at the right, outside") << 7 << QSize(10, 15) << QPoint(10, 0) << none;
        QTest::newRow("cut short below, inside") << 7 << QSize(15, 4) << QPoint(0, 3) << QPoint(0, 3);
        QTest::newRow("cut short below, outside") << 7 << QSize(15, 4) << QPoint(0, 4) << none;
        QTest::newRow("empty") << 7 << QSize(0, 0) << QPoint(0, 0) << none;
    }

    void each_cell_takes_the_middle_pixel_of_its_block()
    {
        QFETCH(const int, radius);
        QFETCH(const QSize, image);
        QFETCH(const QPoint, cell);
        QFETCH(const QPoint, pixel);

        ScriptedScreenGrabber grabber(m_journal);
        grabber.answer = [&](const DesktopRect&) { return numberedImage(image.width(), image.height()); };
        const PixelGrid grid = ScreenCaptureService(grabber).pixelGrid({100, 100}, radius);

        const auto side = static_cast<std::size_t>(2 * radius + 1);
        QCOMPARE(grid.size(), side);
        for (const std::vector<SampledColor>& row : grid) {
            QCOMPARE(row.size(), side);
        }
        const SampledColor expected = pixel.x() < 0 ? darkGray : numberedColor(pixel.x(), pixel.y());
        const SampledColor& color =
            grid[static_cast<std::size_t>(cell.y())][static_cast<std::size_t>(cell.x())];
        QVERIFY2(color == expected,
                 qPrintable(QStringLiteral("%1 %2").arg(color.green * 255).arg(color.blue * 255)));
    }

    void the_premultiplication_is_undone_data()
    {
        QTest::addColumn<ScreenImage>("image");
        QTest::addColumn<SampledColor>("color");

        QTest::newRow("opaque") << onePixel(0, 51, 255, 255) << SampledColor{1.0, 0.2, 0.0, 1.0};
        QTest::newRow("a third opaque") << onePixel(17, 34, 85, 85) << SampledColor{1.0, 0.4, 0.2, 1.0};
        QTest::newRow("hardly opaque") << onePixel(0, 1, 0, 1) << SampledColor{0.0, 1.0, 0.0, 1.0};
        QTest::newRow("transparent keeps its raw bytes")
            << onePixel(51, 102, 153, 0) << SampledColor{0.6, 0.4, 0.2, 1.0};
        QTest::newRow("brighter than its alpha allows")
            << onePixel(0, 51, 255, 51) << SampledColor{1.0, 1.0, 0.0, 1.0};
    }

    void the_premultiplication_is_undone()
    {
        QFETCH(const ScreenImage, image);
        QFETCH(const SampledColor, color);

        ScriptedScreenGrabber grabber(m_journal);
        grabber.answer = [&](const DesktopRect&) { return image; };
        const ScreenCaptureService service(grabber);
        QVERIFY(isNear(service.colorAt({0, 0}).value_or(darkGray), color));
        QVERIFY(isNear(service.pixelGrid({0, 0}, 0)[0][0], color));
    }

    void the_pixel_in_the_middle_is_the_colour_taken_data()
    {
        QTest::addColumn<ScreenImage>("image");
        QTest::addColumn<QPoint>("pixel");
        const QPoint none(-1, -1);

        const auto withBits = [](int bits) {
            ScreenImage image = numberedImage(2, 2);
            image.bitsPerComponent = bits;
            return image;
        };
        QTest::newRow("one pixel") << numberedImage(1, 1) << QPoint(0, 0);
        QTest::newRow("dense") << numberedImage(2, 2) << QPoint(1, 1);
        QTest::newRow("three by three") << numberedImage(3, 3) << QPoint(1, 1);
        QTest::newRow("not square") << numberedImage(5, 2) << QPoint(2, 1);
        QTest::newRow("empty") << numberedImage(0, 0) << none;
        QTest::newRow("no bytes") << ScreenImage{1, 1, 4, 8, {}} << none;
        QTest::newRow("16 bits a component") << withBits(16) << none;
        QTest::newRow("5 bits a component") << withBits(5) << none;
        QTest::newRow("0 bits a component") << withBits(0) << none;
    }

    void the_pixel_in_the_middle_is_the_colour_taken()
    {
        QFETCH(const ScreenImage, image);
        QFETCH(const QPoint, pixel);

        const std::optional<SampledColor> color = ScreenCaptureService::sampleCenter(image);
        QCOMPARE(color.has_value(), pixel.x() >= 0);
        QVERIFY(!color || *color == numberedColor(pixel.x(), pixel.y()));
    }

    void an_image_is_never_read_beyond_its_bytes_data()
    {
        QTest::addColumn<ScreenImage>("image");
        QTest::addColumn<bool>("hasCenter");
        const std::vector<std::uint8_t> bytes(36, 0x40);

        QTest::newRow("honest") << ScreenImage{3, 3, 12, 8, bytes} << true;
        QTest::newRow("three bytes of one pixel") << ScreenImage{1, 1, 4, 8, {1, 2, 3}} << false;
        QTest::newRow("a byte too few")
            << ScreenImage{1, 2, 12, 8, std::vector<std::uint8_t>(15, 0x40)} << false;
        QTest::newRow("exactly enough")
            << ScreenImage{1, 2, 12, 8, std::vector<std::uint8_t>(16, 0x40)} << true;
        QTest::newRow("wider than its bytes") << ScreenImage{intMax, 1, 12, 8, bytes} << false;
        QTest::newRow("higher than its bytes") << ScreenImage{3, intMax, 12, 8, bytes} << false;
        QTest::newRow("longer rows than its bytes") << ScreenImage{3, 3, intMax, 8, bytes} << false;
        QTest::newRow("as large as can be said") << ScreenImage{intMax, intMax, intMax, 8, bytes} << false;
        QTest::newRow("rows of no length") << ScreenImage{3, 3, 0, 8, bytes} << true;
        QTest::newRow("rows shorter than their pixels") << ScreenImage{3, 3, 5, 8, bytes} << true;
        QTest::newRow("rows that run backwards") << ScreenImage{3, 3, -12, 8, bytes} << false;
        QTest::newRow("negative width") << ScreenImage{-3, 3, 12, 8, bytes} << false;
        QTest::newRow("negative height") << ScreenImage{3, -3, 12, 8, bytes} << false;
        QTest::newRow("all as negative as can be said")
            << ScreenImage{intMin, intMin, intMin, 8, bytes} << false;
    }

    void an_image_is_never_read_beyond_its_bytes()
    {
        QFETCH(const ScreenImage, image);
        QFETCH(const bool, hasCenter);

        ScriptedScreenGrabber grabber(m_journal);
        grabber.answer = [&](const DesktopRect&) { return image; };
        const ScreenCaptureService service(grabber);
        QCOMPARE(service.colorAt({0, 0}).has_value(), hasCenter);
        for (const int radius : {0, 1, 7}) {
            const SampledColor white{1, 1, 1, 1};
            for (const std::vector<SampledColor>& row : service.pixelGrid({0, 0}, radius)) {
                for (const SampledColor& color : row) {
                    QVERIFY(color == darkGray || color == white);
                }
            }
        }
    }

    void without_an_image_the_grid_is_dark_and_no_colour_is_taken()
    {
        ScriptedScreenGrabber grabber(m_journal);
        const ScreenCaptureService service(grabber);
        QCOMPARE(service.pixelGrid({5, 5}, 1), PixelGrid(3, std::vector<SampledColor>(3, darkGray)));
        QVERIFY(!service.colorAt({5, 5}));
        const ScreenCaptureService::Sample sample = service.sample({5, 5}, 1);
        QCOMPARE(sample.grid, PixelGrid(3, std::vector<SampledColor>(3, darkGray)));
        QVERIFY(!sample.center);
    }

    void deep_images_fill_the_grid_but_give_no_colour()
    {
        ScriptedScreenGrabber grabber(m_journal);
        grabber.answer = [](const DesktopRect& rect) {
            ScreenImage image = worldImage(rect);
            image.bitsPerComponent = 16;
            return image;
        };
        const ScreenCaptureService::Sample sample = ScreenCaptureService(grabber).sample({30, 1080 - 20}, 1);
        QVERIFY(sample.grid[1][1] == worldColor(30, 20));
        QVERIFY(!sample.center);
    }

    void captures_ask_for_the_square_around_the_point_data()
    {
        QTest::addColumn<std::vector<Screen>>("screens");
        QTest::addColumn<GlobalPoint>("point");
        QTest::addColumn<int>("radius");
        QTest::addColumn<DesktopRect>("rect");

        const Screen fullHd{{0, 0, 1920, 1080}, 1};
        const std::vector<Screen> one{fullHd};
        const std::vector<Screen> primaryAtTheRight{{{1280, 0, 1920, 1080}, 1}, {{0, 0, 1280, 1024}, 1}};
        const std::vector<Screen> primaryBelow{{{0, 1200, 1920, 1080}, 1}, {{0, 0, 1600, 1200}, 1}};
        const std::vector<Screen> scaled{{{0, 0, 3840, 2160}, 2}};

        QTest::newRow("one pixel") << one << GlobalPoint{100, 980} << 0 << DesktopRect{100, 100, 1, 1};
        QTest::newRow("a grid") << one << GlobalPoint{100, 980} << 7 << DesktopRect{93, 93, 15, 15};
        QTest::newRow("top left pixel") << one << GlobalPoint{0, 1080} << 7 << DesktopRect{-7, -7, 15, 15};
        QTest::newRow("bottom right pixel")
            << one << GlobalPoint{1919, 1} << 15 << DesktopRect{1904, 1064, 31, 31};
        QTest::newRow("between pixels")
            << one << GlobalPoint{100.25, 979.5} << 3 << DesktopRect{97.25, 97.5, 7, 7};
        QTest::newRow("left of the primary screen")
            << primaryAtTheRight << GlobalPoint{-1280, 1080} << 1 << DesktopRect{-1, -1, 3, 3};
        QTest::newRow("on a primary screen at the right")
            << primaryAtTheRight << GlobalPoint{0, 1080} << 1 << DesktopRect{1279, -1, 3, 3};
        QTest::newRow("above the primary screen")
            << primaryBelow << GlobalPoint{10, 2280} << 1 << DesktopRect{9, -1, 3, 3};
        QTest::newRow("scale does not matter")
            << scaled << GlobalPoint{100, 2060} << 0 << DesktopRect{100, 100, 1, 1};
        QTest::newRow("no screen") << std::vector<Screen>() << GlobalPoint{100, 700} << 1
                                   << DesktopRect{99, 99, 3, 3};
    }

    void captures_ask_for_the_square_around_the_point()
    {
        QFETCH(const std::vector<Screen>, screens);
        QFETCH(const GlobalPoint, point);
        QFETCH(const int, radius);
        QFETCH(const DesktopRect, rect);

        ScriptedScreenGrabber grabber(m_journal);
        grabber.monitors = screens;
        ScreenCaptureService service(grabber);
        (void)service.pixelGrid(point, radius);
        service.setReferenceWindowID(77);
        (void)service.pixelGrid(point, radius);
        using Grab = ScriptedScreenGrabber::Grab;
        QCOMPARE(grabber.grabs, (std::vector<Grab>{{rect, 0}, {rect, 77}}));
        QCOMPARE(service.captureRect(point, radius), rect);
    }

    void one_capture_serves_grid_and_centre_where_they_share_pixels_data()
    {
        QTest::addColumn<QSize>("image");
        QTest::addColumn<int>("captures");

        QTest::newRow("one pixel a cell") << QSize(7, 7) << 1;
        QTest::newRow("two pixels a cell") << QSize(14, 14) << 1;
        QTest::newRow("three pixels a cell") << QSize(21, 21) << 1;
        QTest::newRow("two by one pixels a cell") << QSize(14, 7) << 1;
        QTest::newRow("columns over") << QSize(15, 7) << 2;
        QTest::newRow("rows over") << QSize(7, 8) << 2;
        QTest::newRow("cut short") << QSize(6, 7) << 2;
        QTest::newRow("empty") << QSize(0, 0) << 2;
    }

    void one_capture_serves_grid_and_centre_where_they_share_pixels()
    {
        QFETCH(const QSize, image);

        ScriptedScreenGrabber grabber(m_journal);
        grabber.answer = [&](const DesktopRect& rect) {
            return rect.width > 1 ? numberedImage(image.width(), image.height()) : onePixel(1, 2, 3, 255);
        };
        const ScreenCaptureService::Sample sample = ScreenCaptureService(grabber).sample({50, 50}, 3);
        QTEST(static_cast<int>(grabber.grabs.size()), "captures");
        if (grabber.grabs.size() == 1) {
            QCOMPARE(sample.center, std::optional(sample.grid[3][3]));
        } else {
            QCOMPARE(sample.center, std::optional(SampledColor{3 / 255.0, 2 / 255.0, 1 / 255.0, 1.0}));
            QCOMPARE(grabber.grabs[1].rect, (DesktopRect{50, 1030, 1, 1}));
        }
    }

    void loupe_and_click_see_the_same_pixel_data()
    {
        QTest::addColumn<DesktopPoint>("position");
        QTest::addColumn<int>("density");
        QTest::addColumn<QPoint>("pixel");

        QTest::newRow("whole") << DesktopPoint{123, 45} << 1 << QPoint(123, 45);
        QTest::newRow("origin") << DesktopPoint{0, 0} << 1 << QPoint(0, 0);
        QTest::newRow("just before the next pixel") << DesktopPoint{123.99, 45.99} << 1 << QPoint(123, 45);
        QTest::newRow("fractional, as in 16.16 fixed point")
            << DesktopPoint{123 + 1 / 65536.0, 45.5} << 1 << QPoint(123, 45);
        QTest::newRow("left of and above the origin")
            << DesktopPoint{-300.5, -20.25} << 1 << QPoint(-301, -21);
        QTest::newRow("dense") << DesktopPoint{123, 45} << 2 << QPoint(247, 91);
        QTest::newRow("dense and fractional") << DesktopPoint{123.5, 45.5} << 2 << QPoint(248, 92);
    }

    void loupe_and_click_see_the_same_pixel()
    {
        QFETCH(const DesktopPoint, position);
        QFETCH(const int, density);
        QFETCH(const QPoint, pixel);

        ScriptedScreenGrabber grabber(m_journal);
        grabber.answer = [&](const DesktopRect& rect) { return worldImage(rect, density); };
        const ScreenCaptureService service(grabber);
        const GlobalPoint point = service.coordinates().toGlobal(position);
        const SampledColor expected = worldColor(pixel.x(), pixel.y());
        for (int radius = 0; radius <= 15; ++radius) {
            const auto middle = static_cast<std::size_t>(radius);
            const ScreenCaptureService::Sample sample = service.sample(point, radius);
            QVERIFY(sample.grid[middle][middle] == expected);
            QVERIFY(sample.center == expected);
        }
        QVERIFY(service.colorAt(point) == expected);
    }
};

QTEST_GUILESS_MAIN(ScreenCaptureServiceTest)
#include "ScreenCaptureServiceTest.moc"
