#include "BufferTransform.h"

#include <QTest>

#include <wayland-client-protocol.h>

using namespace tintwick;

class BufferTransformTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePixelOfTheBuffer_data();
    void thePixelOfTheBuffer();
    void aPictureStoredFromTheBottom();
};

void BufferTransformTest::thePixelOfTheBuffer_data()
{
    QTest::addColumn<int>("transform");
    QTest::addColumn<QSize>("buffer");
    QTest::addColumn<QPoint>("pixel");
    // The pixel (1, 2) of an upright picture of 5 × 4.
    QTest::newRow("normal") << int{WL_OUTPUT_TRANSFORM_NORMAL} << QSize(5, 4) << QPoint(1, 2);
    QTest::newRow("90") << int{WL_OUTPUT_TRANSFORM_90} << QSize(4, 5) << QPoint(2, 3);
    QTest::newRow("180") << int{WL_OUTPUT_TRANSFORM_180} << QSize(5, 4) << QPoint(3, 1);
    QTest::newRow("270") << int{WL_OUTPUT_TRANSFORM_270} << QSize(4, 5) << QPoint(1, 1);
    QTest::newRow("flipped") << int{WL_OUTPUT_TRANSFORM_FLIPPED} << QSize(5, 4) << QPoint(3, 2);
    QTest::newRow("flipped 90") << int{WL_OUTPUT_TRANSFORM_FLIPPED_90} << QSize(4, 5) << QPoint(2, 1);
    QTest::newRow("flipped 180") << int{WL_OUTPUT_TRANSFORM_FLIPPED_180} << QSize(5, 4) << QPoint(1, 1);
    QTest::newRow("flipped 270") << int{WL_OUTPUT_TRANSFORM_FLIPPED_270} << QSize(4, 5) << QPoint(1, 3);
}

void BufferTransformTest::thePixelOfTheBuffer()
{
    QFETCH(const int, transform);
    QFETCH(const QSize, buffer);
    QFETCH(const QPoint, pixel);
    QCOMPARE(transformedSize(transform, {5, 4}), buffer);
    QCOMPARE(transformedSize(transform, buffer), QSize(5, 4));
    QCOMPARE(bufferPixel(transform, {5, 4}, {1, 2}), pixel);
}

void BufferTransformTest::aPictureStoredFromTheBottom()
{
    constexpr QSize upright(5, 4);
    for (int transform = WL_OUTPUT_TRANSFORM_NORMAL; transform <= WL_OUTPUT_TRANSFORM_FLIPPED_270;
         ++transform) {
        const QSize buffer = transformedSize(transform, upright);
        for (const QPoint pixel : {QPoint(1, 2), QPoint(0, 0), QPoint(4, 3)}) {
            const QPoint stored = bufferPixel(transform, upright, pixel);
            QCOMPARE(bufferPixel(upsideDown(transform), upright, pixel),
                     QPoint(stored.x(), buffer.height() - 1 - stored.y()));
        }
    }
}

QTEST_GUILESS_MAIN(BufferTransformTest)
#include "BufferTransformTest.moc"
