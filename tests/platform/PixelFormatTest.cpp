#include "PixelFormat.h"

#include <QTest>

#include <wayland-client-protocol.h>

#include <array>

using namespace tintwick;

class PixelFormatTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theColorOfStoredBytes_data();
    void theColorOfStoredBytes();
    void formatsWithoutIntegersAreUnknown();
};

void PixelFormatTest::theColorOfStoredBytes_data()
{
    QTest::addColumn<std::uint32_t>("format");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("bits");
    QTest::addColumn<QRgb>("color");
    const auto row = [](const char* name, std::uint32_t format, const char* bytes, int bits, QRgb color) {
        QTest::newRow(name) << format << QByteArray::fromHex(bytes) << bits << color;
    };
    row("blue first", WL_SHM_FORMAT_XRGB8888, "332211ff", 8, 0xff112233);
    row("alpha does not count", WL_SHM_FORMAT_ARGB8888, "33221100", 8, 0xff112233);
    row("red first", WL_SHM_FORMAT_XBGR8888, "11223300", 8, 0xff112233);
    row("padding first", WL_SHM_FORMAT_RGBX8888, "00332211", 8, 0xff112233);
    row("padding first, then red", WL_SHM_FORMAT_BGRX8888, "00112233", 8, 0xff112233);
    row("three bytes", WL_SHM_FORMAT_RGB888, "332211", 8, 0xff112233);
    row("three bytes, red first", WL_SHM_FORMAT_BGR888, "112233", 8, 0xff112233);
    row("16 bits, white stays white", WL_SHM_FORMAT_RGB565, "ffff", 6, 0xffffffff);
    row("16 bits, red", WL_SHM_FORMAT_RGB565, "00f8", 6, 0xffff0000);
    row("16 bits, red last", WL_SHM_FORMAT_BGR565, "1f00", 6, 0xffff0000);
    // 0x3ff, 0x201 and 0x003 in 10 bits each.
    row("10 bits, the highest 8", WL_SHM_FORMAT_XRGB2101010, "0304f83f", 10, 0xffff8000);
    row("10 bits, red lowest", WL_SHM_FORMAT_XBGR2101010, "ff073800", 10, 0xffff8000);
    row("16 bits each", WL_SHM_FORMAT_XRGB16161616, "ff33ff22ff11ffff", 16, 0xff112233);
    row("16 bits each, red first", WL_SHM_FORMAT_ABGR16161616, "ff11ff22ff33ffff", 16, 0xff112233);
}

void PixelFormatTest::theColorOfStoredBytes()
{
    QFETCH(const std::uint32_t, format);
    QFETCH(const QByteArray, bytes);
    QFETCH(const int, bits);
    QFETCH(const QRgb, color);
    const auto description = pixelFormatOf(format);
    QVERIFY(description);
    QCOMPARE(description->bytesPerPixel, static_cast<int>(bytes.size()));
    QCOMPARE(description->greenBits, bits);
    QCOMPARE(description->read(reinterpret_cast<const std::byte*>(bytes.constData())), color);
}

void PixelFormatTest::formatsWithoutIntegersAreUnknown()
{
    QVERIFY(!pixelFormatOf(WL_SHM_FORMAT_XRGB16161616F));
    QVERIFY(!pixelFormatOf(WL_SHM_FORMAT_NV12));
    QVERIFY(!pixelFormatOf(WL_SHM_FORMAT_C8));
}

QTEST_GUILESS_MAIN(PixelFormatTest)
#include "PixelFormatTest.moc"
