#include "GaussianBlur.h"

#include <QTest>

#include <cstdlib>

using namespace tintwick;

class GaussianBlurTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anOpaqueEdgeBecomesTheNormalDistribution();
    void theOffsetMovesTheResultDown();
    void theOpacityScalesTheResult();
    void withoutADeviationTheImageIsUnchanged();
    void theReachIsThreeDeviations();

private:
    /// An image whose left half is opaque and whose right half is transparent.
    static QImage leftHalf()
    {
        QImage image(80, 80, QImage::Format_Alpha8);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                image.scanLine(y)[x] = x < 40 ? 255 : 0;
            }
        }
        return image;
    }
};

// The cumulative distribution of a normal distribution with a deviation of 4, at the centres of pixels, times 255.
void GaussianBlurTest::anOpaqueEdgeBecomesTheNormalDistribution()
{
    const QImage result = blurred(leftHalf(), {.standardDeviation = 4});
    const uchar* line = result.constScanLine(40);
    const auto near = [line](int x, int expected) { return std::abs(line[x] - expected) <= 1; };
    QCOMPARE(result.format(), QImage::Format_Alpha8);
    QVERIFY(near(39, 140)); // 0.5497
    QVERIFY(near(40, 115)); // 0.4503
    QVERIFY(near(35, 222)); // 0.8697
    QVERIFY(near(44, 33));  // 0.1303
    QVERIFY(near(55, 0));
}

void GaussianBlurTest::theOffsetMovesTheResultDown()
{
    QImage dot(41, 41, QImage::Format_Alpha8);
    dot.fill(0);
    dot.scanLine(15)[20] = 255;
    const QImage result = blurred(dot, {.standardDeviation = 1, .offsetY = 4});
    QVERIFY(result.constScanLine(19)[20] > 30);
    QVERIFY(result.constScanLine(18)[20] < result.constScanLine(19)[20]);
    QCOMPARE(result.constScanLine(18)[20], result.constScanLine(20)[20]);
    QCOMPARE(result.constScanLine(15)[20], uchar(0));
}

void GaussianBlurTest::theOpacityScalesTheResult()
{
    QImage full(30, 30, QImage::Format_Alpha8);
    full.fill(255);
    QCOMPARE(blurred(full, {.standardDeviation = 2, .opacity = 0.4}).constScanLine(15)[15], uchar(102));
}

void GaussianBlurTest::withoutADeviationTheImageIsUnchanged()
{
    QCOMPARE(blurred(leftHalf(), {}), leftHalf());
}

void GaussianBlurTest::theReachIsThreeDeviations()
{
    QCOMPARE(GaussianBlur{.standardDeviation = 4}.reach(), 12);
    QCOMPARE(GaussianBlur{.standardDeviation = 1.5}.reach(), 5);
    QCOMPARE(GaussianBlur{}.reach(), 0);
}

QTEST_APPLESS_MAIN(GaussianBlurTest)
#include "GaussianBlurTest.moc"
