#include "TailwindColors.h"

#include "CapturedColor.h"
#include "TailwindPalette.h"

#include "model/TailwindRows.h"

#include <QStringList>
#include <QTest>

namespace tintwick {

namespace {

CapturedColor colorOf(uint rgb, double alpha = 1)
{
    return {QUuid(),     (rgb >> 16) / 255.0, (rgb >> 8 & 0xFF) / 255.0, (rgb & 0xFF) / 255.0, alpha,
            QDateTime(), std::nullopt};
}

QList<QStringList> printedRows()
{
    QList<QStringList> rows;
    for (const QString& line : QString::fromLatin1(test::tailwindRows).split(u'\n', Qt::SkipEmptyParts)) {
        QStringList cells;
        for (const QString& cell : line.split(u'|')) {
            cells += cell.trimmed();
        }
        rows += cells;
    }
    return rows;
}

} // namespace

class TailwindColorsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePaletteEqualsTheReference();
    void everyEntryIsItsOwnNearestToken();
    void nearestToken_data();
    void nearestToken();
    void anEmptyPaletteGivesNoToken();
};

void TailwindColorsTest::thePaletteEqualsTheReference()
{
    const QList<QStringList> rows = printedRows();
    QCOMPARE(rows.size(), 22);
    QCOMPARE(tailwindPalette.size(), 22U);
    int entries = 0;
    for (qsizetype family = 0; family < rows.size(); ++family) {
        const TailwindFamily& entry = tailwindPalette[static_cast<std::size_t>(family)];
        QCOMPARE(rows[family].size(), 12);
        QCOMPARE(entry.name.toString(), rows[family][0]);
        for (qsizetype shade = 0; shade < 11; ++shade, ++entries) {
            QCOMPARE(entry.rgb[static_cast<std::size_t>(shade)], rows[family][shade + 1].toUInt(nullptr, 16));
        }
    }
    QCOMPARE(entries, 242);
}

void TailwindColorsTest::everyEntryIsItsOwnNearestToken()
{
    const QStringList shades = QStringLiteral("50 100 200 300 400 500 600 700 800 900 950").split(u' ');
    for (const QStringList& row : printedRows()) {
        for (qsizetype shade = 0; shade < shades.size(); ++shade) {
            const QString token = row[0] + u'-' + shades[shade];
            const QString expected = token == u"neutral-50" ? QStringLiteral("zinc-50") : token;
            QCOMPARE(TailwindColors::shared().nearest(colorOf(row[shade + 1].toUInt(nullptr, 16))), expected);
        }
    }
}

void TailwindColorsTest::nearestToken_data()
{
    QTest::addColumn<uint>("rgb");
    QTest::addColumn<double>("alpha");
    QTest::addColumn<QString>("token");
    QTest::newRow("white") << 0xFFFFFFU << 1.0 << QStringLiteral("zinc-50");
    QTest::newRow("black") << 0x000000U << 1.0 << QStringLiteral("zinc-950");
    QTest::newRow("FAFAFA") << 0xFAFAFAU << 1.0 << QStringLiteral("zinc-50");
    QTest::newRow("transparent red") << 0xEF4444U << 0.0 << QStringLiteral("red-500");
    QTest::newRow("one step off blue-500") << 0x3C82F5U << 1.0 << QStringLiteral("blue-500");
}

void TailwindColorsTest::nearestToken()
{
    QFETCH(uint, rgb);
    QFETCH(double, alpha);
    QFETCH(QString, token);
    QCOMPARE(TailwindColors::shared().nearest(colorOf(rgb, alpha)), token);
}

void TailwindColorsTest::anEmptyPaletteGivesNoToken()
{
    QVERIFY(!TailwindColors(ColorColumns()).nearest(colorOf(0x3B82F6)).has_value());
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::TailwindColorsTest)
#include "TailwindColorsTest.moc"
