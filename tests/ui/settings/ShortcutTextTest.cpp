#include "ShortcutText.h"

#include <QImage>
#include <QPainter>
#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

QFont font()
{
    QFont font;
    font.setPixelSize(13);
    return font;
}

constexpr QSize place(130, 24);

/// The text in black, centred in a white field.
QImage drawn(const QString& text)
{
    QImage image(place, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    drawShortcut(painter, image.rect(), text, font());
    return image;
}

bool hasInk(const QImage& image, int x, int y)
{
    return qGray(image.pixel(x, y)) < 160;
}

/// The bounds of the pixels drawn in that part of an image.
QRect ink(const QImage& image, const QRect& part)
{
    QRect found;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            if (hasInk(image, x, y)) {
                found |= QRect(x, y, 1, 1);
            }
        }
    }
    return found;
}

} // namespace

class ShortcutTextTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aKeypadKeyIsDrawnInAFrame_data();
    void aKeypadKeyIsDrawnInAFrame();
    void otherTextsAreDrawnWithoutAFrame();
    void theWidthMatchesTheDrawnText_data();
    void theWidthMatchesTheDrawnText();
};

void ShortcutTextTest::aKeypadKeyIsDrawnInAFrame_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("5") << u"5\u20E3"_s;
    QTest::newRow("-") << u"-\u20E3"_s;
}

void ShortcutTextTest::aKeypadKeyIsDrawnInAFrame()
{
    QFETCH(const QString, text);
    const QImage image = drawn(text);
    const QRect frame(57, 4, 16, 16);
    QCOMPARE(ink(image, image.rect()), frame);
    // The four sides of the frame, and the key alone inside it.
    QVERIFY(hasInk(image, 57, 12) && hasInk(image, 72, 12) && hasInk(image, 65, 4) && hasInk(image, 65, 19));
    const QRect key = ink(image, frame.adjusted(3, 3, -3, -3));
    QVERIFY(!key.isEmpty());
    QVERIFY(qAbs(key.left() - frame.left() - (frame.right() - key.right())) <= 2);
    QVERIFY(!hasInk(image, 57, 4) && !hasInk(image, 72, 19));
}

void ShortcutTextTest::otherTextsAreDrawnWithoutAFrame()
{
    QImage plain(place, QImage::Format_RGB32);
    plain.fill(Qt::white);
    QPainter painter(&plain);
    painter.setPen(Qt::black);
    painter.setFont(font());
    painter.drawText(plain.rect(), Qt::AlignCenter, u"Record Shortcut"_s);
    painter.end();
    QCOMPARE(drawn(u"Record Shortcut"_s), plain);
    QVERIFY(ink(drawn(QString()), QRect(QPoint(), place)).isEmpty());
}

void ShortcutTextTest::theWidthMatchesTheDrawnText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("beyondThePlainPart");
    QTest::newRow("none framed") << u"H"_s << 0.0;
    QTest::newRow("a key of the keypad") << u"H5\u20E3"_s << 18.0;
}

void ShortcutTextTest::theWidthMatchesTheDrawnText()
{
    QFETCH(const QString, text);
    QFETCH(const double, beyondThePlainPart);
    QCOMPARE(widthOfShortcut(text, font()), widthOfShortcut(u"H"_s, font()) + beyondThePlainPart);
}

QTEST_MAIN(ShortcutTextTest)
#include "ShortcutTextTest.moc"
