#include "ColorNames.h"

#include "CapturedColor.h"
#include "NamedColors.h"

#include "model/ColorNameRows.h"

#include <QStringList>
#include <QTest>

#include <array>

namespace tintwick {

namespace {

struct PrintedRow
{
    QString name;
    uint rgb = 0;
};

/// The reference table, ordered by number.
QList<PrintedRow> printedRows()
{
    QList<PrintedRow> rows(133);
    for (const QString& line : QString::fromLatin1(test::colorNameRows).split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList cells = line.split(u'|');
        for (qsizetype cell = 0; cell + 2 < cells.size(); cell += 3) {
            if (const int number = cells[cell].trimmed().toInt()) {
                rows[number - 1] = {cells[cell + 1].trimmed(), cells[cell + 2].trimmed().toUInt(nullptr, 16)};
            }
        }
    }
    return rows;
}

CapturedColor colorOf(double red, double green, double blue, double alpha = 1)
{
    return {QUuid(), red / 255, green / 255, blue / 255, alpha, QDateTime(), std::nullopt};
}

CapturedColor colorOf(uint rgb)
{
    return colorOf(rgb >> 16, rgb >> 8 & 0xFF, rgb & 0xFF);
}

} // namespace

class ColorNamesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTableEqualsTheReference();
    void everyEntryIsItsOwnNearestName();
    void nearestName_data();
    void nearestName();
    void alphaIsIgnored();
    void anEmptyTableGivesNoName();
    void theFirstOfEquallyNearEntriesIsChosen();
};

void ColorNamesTest::theTableEqualsTheReference()
{
    const QList<PrintedRow> rows = printedRows();
    QCOMPARE(namedColors.size(), 133U);
    for (std::size_t i = 0; i < namedColors.size(); ++i) {
        const PrintedRow& row = rows[static_cast<qsizetype>(i)];
        QVERIFY(!row.name.isEmpty());
        QCOMPARE(namedColors[i].name.toString(), row.name);
        QCOMPARE(namedColors[i].rgb, row.rgb);
    }
}

void ColorNamesTest::everyEntryIsItsOwnNearestName()
{
    for (const PrintedRow& row : printedRows()) {
        const QString expected = row.name == u"Mint" ? QStringLiteral("Mint Cream") : row.name;
        QCOMPARE(ColorNames::shared().nearest(colorOf(row.rgb)), expected);
    }
}

void ColorNamesTest::nearestName_data()
{
    QTest::addColumn<double>("red");
    QTest::addColumn<double>("green");
    QTest::addColumn<double>("blue");
    QTest::addColumn<QString>("name");
    const auto row = [](const char* title, double red, double green, double blue, const char* name) {
        QTest::newRow(title) << red << green << blue << QString::fromLatin1(name);
    };
    row("black", 0, 0, 0, "Black");
    row("white", 255, 255, 255, "White");
    row("F5FFFA", 0xF5, 0xFF, 0xFA, "Mint Cream");
    row("789B34", 0x78, 0x9B, 0x34, "Olive Drab");
    row("2E220A", 0x2E, 0x22, 0x0A, "Black");
    row("583686", 0x58, 0x36, 0x86, "Dark Slate Blue");
    row("halfway from Black to Maroon", 64, 0, 0, "Black");
    row("nearer to Maroon than that", 64.00000000000003, 0, 0, "Maroon");
    row("halfway from Gainsboro to Light Gray", 215.5, 215.5, 215.5, "Gainsboro");
    row("halfway from Alice Blue to Azure", 240, 251.5, 255, "Alice Blue");
    row("halfway from Dim Gray to Dark Slate", 76, 92, 92, "Dim Gray");
    row("halfway from Lawn Green to Chartreuse", 125.5, 253.5, 0, "Lawn Green");
    row("components are not rounded", 215.4, 215.4, 215.4, "Light Gray");
}

void ColorNamesTest::nearestName()
{
    QFETCH(double, red);
    QFETCH(double, green);
    QFETCH(double, blue);
    QFETCH(QString, name);
    QCOMPARE(ColorNames::shared().nearest(colorOf(red, green, blue)), name);
}

void ColorNamesTest::alphaIsIgnored()
{
    QCOMPARE(ColorNames::shared().nearest(colorOf(255, 99, 71, 0)), QStringLiteral("Tomato"));
}

void ColorNamesTest::anEmptyTableGivesNoName()
{
    const ColorNames empty({}, {});
    QCOMPARE(empty.nearest(colorOf(0xFF0000)), QStringLiteral("Unknown"));
}

void ColorNamesTest::theFirstOfEquallyNearEntriesIsChosen()
{
    // All entries from `first` on are equally near.
    std::array<double, 200> red{};
    std::array<double, 200> zero{};
    for (std::size_t length = 1; length <= red.size(); ++length) {
        for (std::size_t first = 0; first < length; ++first) {
            for (std::size_t i = 0; i < length; ++i) {
                red[i] = i < first ? 9 : 5;
            }
            const std::span<const double> zeros(zero.data(), length);
            QCOMPARE(nearestColor({{red.data(), length}, zeros, zeros}, colorOf(0x000000)), first);
        }
    }
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::ColorNamesTest)
#include "ColorNamesTest.moc"
