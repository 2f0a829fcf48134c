// Compares every pixel of the loupe's image with reviewed reference images. After an intended change of the loupe, run
// this program with Qt 6.4 and TINTWICK_UPDATE_REFERENCES=1, review the new images and commit them.

#include "LoupeGeometry.h"
#include "LoupeLabel.h"
#include "LoupeRenderer.h"

#include <QDir>
#include <QFile>
#include <QFontInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstdlib>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

/// Neighbouring cells differ; `base` sets the lightness of the centre.
QImage gradientPixels(int count, int base)
{
    QImage pixels(count, count, QImage::Format_RGB32);
    for (int r = 0; r < count; ++r) {
        for (int c = 0; c < count; ++c) {
            const int checker = (r + c) % 2 == 0 ? 0 : 24;
            const int red = base + 60 * c / count;
            const int green = base + 40 + 60 * r / count;
            const int blue = base + 110 - 90 * c / count + checker;
            pixels.setPixel(c, r, qRgb(red, green, blue));
        }
    }
    return pixels;
}

constexpr int dark = 10;
constexpr int light = 120;

/// The references were drawn with Qt 6.4. Other versions place and smooth the glyphs slightly differently.
bool drawsTextLikeTheReferences()
{
    return QLatin1StringView(qVersion()).startsWith("6.4."_L1);
}

/// The part of the loupe's image that contains its text.
QRect textArea(const LoupeGeometry& geometry)
{
    const int corner = qRound(loupe::infoCorner * geometry.scale());
    return geometry.pill().adjusted(corner, 0, -corner, 0);
}

/// The largest difference of a channel.
int difference(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
}

/// What the pill says below the code.
struct Caption
{
    bool showsName = true;
    QString text = {};
};

} // namespace

Q_DECLARE_METATYPE(Caption)
Q_DECLARE_METATYPE(tintwick::PickSigns)

class LoupeReferenceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theImageEqualsItsReference_data();
    void theImageEqualsItsReference();
};

void LoupeReferenceTest::initTestCase()
{
    QVERIFY2(QFontInfo(LoupeLabel::hexFont(1)).family() == u"JetBrains Mono"_s,
             "The reference pictures need the font JetBrains Mono (Debian: fonts-jetbrains-mono).");
    QVERIFY2(QFontInfo(LoupeLabel::nameFont(1)).family() == u"Inter"_s,
             "The reference pictures need the font Inter (Debian: fonts-inter).");
}

void LoupeReferenceTest::theImageEqualsItsReference_data()
{
    QTest::addColumn<bool>("isCircle");
    QTest::addColumn<double>("side");
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("base");
    QTest::addColumn<bool>("hasHighContrast");
    QTest::addColumn<PickSigns>("signs");
    QTest::addColumn<Caption>("caption");

    const Caption name{};
    const Caption text{.showsName = false, .text = u"rgb(148, 188, 188)"_s};
    const Caption both{.text = u"rgb(148, 188, 188)"_s};
    const Caption longBoth{.text = u"Color(red: 0.149, green: 0.306, blue: 0.306)"_s};
    const PickSigns none;
    const PickSigns frozen{.isFrozen = true};
    const PickSigns all{.isFrozen = true, .bitsPerChannel = 10, .taken = 12};
    QTest::newRow("square-small") << false << 100.0 << 1.0 << 7 << light << false << none << name;
    QTest::newRow("square-medium") << false << 130.0 << 1.0 << 15 << dark << false << none << name;
    QTest::newRow("square-large") << false << 160.0 << 1.0 << 31 << light << false << none << name;
    QTest::newRow("circle-small") << true << 100.0 << 1.0 << 15 << dark << false << none << name;
    QTest::newRow("circle-medium") << true << 130.0 << 1.0 << 15 << light << false << none << name;
    QTest::newRow("circle-large") << true << 160.0 << 1.0 << 31 << dark << false << none << name;
    QTest::newRow("square-medium-scale-1.5") << false << 130.0 << 1.5 << 15 << light << false << none << name;
    QTest::newRow("circle-medium-scale-2") << true << 130.0 << 2.0 << 15 << dark << false << none << name;
    QTest::newRow("square-small-radius-40") << false << 100.0 << 1.0 << 81 << dark << false << none << name;
    QTest::newRow("square-medium-high-contrast")
        << false << 130.0 << 1.0 << 15 << light << true << none << name;
    QTest::newRow("circle-medium-scale-2-high-contrast")
        << true << 130.0 << 2.0 << 15 << dark << true << none << name;
    QTest::newRow("square-small-all-signs") << false << 100.0 << 1.0 << 15 << light << false << all << name;
    QTest::newRow("square-medium-frozen") << false << 130.0 << 1.0 << 15 << dark << false << frozen << name;
    QTest::newRow("circle-medium-scale-1.5-frozen")
        << true << 130.0 << 1.5 << 15 << light << false << frozen << name;
    QTest::newRow("square-medium-scale-2-all-signs")
        << false << 130.0 << 2.0 << 15 << light << false << all << name;
    QTest::newRow("circle-large-all-signs-high-contrast")
        << true << 160.0 << 1.0 << 15 << dark << true << all << name;
    QTest::newRow("square-medium-text") << false << 130.0 << 1.0 << 15 << light << false << none << text;
    QTest::newRow("square-medium-both") << false << 130.0 << 1.0 << 15 << light << false << none << both;
    QTest::newRow("circle-small-both-long-all-signs")
        << true << 100.0 << 1.0 << 15 << dark << false << all << longBoth;
    QTest::newRow("square-large-scale-2-both-frozen-high-contrast")
        << false << 160.0 << 2.0 << 15 << light << true << frozen << both;
    QTest::newRow("square-empty") << false << 130.0 << 1.0 << 0 << 0 << false << none << name;
    QTest::newRow("circle-empty") << true << 130.0 << 1.0 << 0 << 0 << false << none << name;
}

void LoupeReferenceTest::theImageEqualsItsReference()
{
    QFETCH(const bool, isCircle);
    QFETCH(const double, side);
    QFETCH(const double, scale);
    QFETCH(const int, count);
    QFETCH(const int, base);
    QFETCH(const bool, hasHighContrast);
    QFETCH(const PickSigns, signs);
    QFETCH(const Caption, caption);

    LoupeRenderer view;
    if (count > 0) {
        const QImage pixels = gradientPixels(count, base);
        view.setCenterColor(pixels.pixel(count / 2, count / 2));
        view.setPixels(pixels);
    }
    view.setSigns(signs);
    view.setText(caption.text);
    const LoupeLook look{.isCircle = isCircle,
                         .side = side,
                         .showsName = caption.showsName,
                         .showsText = !caption.text.isEmpty(),
                         .hasHighContrast = hasHighContrast};
    // The format in which PNG stores it.
    const QImage actual = view.render(look, scale).convertToFormat(QImage::Format_ARGB32);

    const QString name = QLatin1StringView(QTest::currentDataTag()) + u".png"_s;
    const QString path = QDir(QStringLiteral(REFERENCE_DIR)).filePath(name);
    if (qEnvironmentVariableIsSet("TINTWICK_UPDATE_REFERENCES")) {
        QVERIFY(actual.save(path, nullptr, 0));
    }
    const QImage reference = QImage(path).convertToFormat(QImage::Format_ARGB32);
    QVERIFY2(!reference.isNull(), qPrintable(u"There is no picture "_s + path));

    const QString kept = QDir::current().filePath(u"different-"_s + name);
    QFile::remove(kept);
    QCOMPARE(actual.size(), reference.size());
    // Much less than the difference between the text and its ground.
    constexpr int textTolerance = 96;
    const QRect tolerant = drawsTextLikeTheReferences() ? QRect() : textArea(LoupeGeometry(look, scale));
    int different = 0;
    QPoint first;
    for (int y = actual.height() - 1; y >= 0; --y) {
        for (int x = actual.width() - 1; x >= 0; --x) {
            const int tolerance = tolerant.contains(x, y) ? textTolerance : 0;
            if (difference(actual.pixel(x, y), reference.pixel(x, y)) > tolerance) {
                ++different;
                first = {x, y};
            }
        }
    }
    if (different > 0) {
        actual.save(kept);
        QFAIL(qPrintable(
            u"%1 pixels differ, first at (%2, %3): #%4 instead of #%5. The picture is kept as %6."_s
                .arg(different)
                .arg(first.x())
                .arg(first.y())
                .arg(actual.pixel(first), 8, 16, QLatin1Char('0'))
                .arg(reference.pixel(first), 8, 16, QLatin1Char('0'))
                .arg(kept)));
    }
}

int main(int argc, char* argv[])
{
    // Only the system's fonts, without the hinting and substitution settings of the user or the distribution.
    const QTemporaryDir home;
    QFile fontConfiguration(home.filePath(u"fonts.conf"_s));
    if (!fontConfiguration.open(QFile::WriteOnly)) {
        return 1;
    }
    fontConfiguration.write("<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig>"
                            "<dir>/usr/share/fonts/opentype/inter</dir>"
                            "<dir>/usr/share/fonts/truetype/jetbrains-mono</dir>"
                            "<cachedir>");
    fontConfiguration.write(home.filePath(u"cache"_s).toUtf8());
    fontConfiguration.write("</cachedir></fontconfig>");
    fontConfiguration.close();
    qputenv("FONTCONFIG_FILE", fontConfiguration.fileName().toLocal8Bit());
    const QGuiApplication application(argc, argv);
    LoupeReferenceTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "LoupeReferenceTest.moc"
