#include "PassingLightness.h"

#include "GamutMapping.h"
#include "WcagContrast.h"
#include "color/Rgb.h"

#include <QString>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <random>

namespace tintwick {

namespace {

QString code(const Components& color)
{
    QString text(QStringLiteral("#"));
    for (const double component : color) {
        text += QString::number(std::lround(component * 255), 16).rightJustified(2, u'0');
    }
    return text;
}

/// The colour with the hue and chroma of another one, as 8 bits show it.
Components withLightness(const Components& color, double lightness)
{
    Components oklch = lchFromLab(oklabFromXyzD65(xyzD65FromSrgb(color)));
    oklch[0] = lightness;
    return roundedTo8Bits(gamutMapped(xyzD65FromOklab(labFromLch(oklch))));
}

/// Walks from the lightness of `color` in both directions.
std::optional<Components> firstPassing(const Components& color, const Components& ground, double ratio)
{
    const double start = oklabFromXyzD65(xyzD65FromSrgb(color))[0];
    for (double away = 0; away <= 1; away += 0.0005) {
        for (const double lightness : {start - away, start + away}) {
            const Components shown = withLightness(color, lightness);
            if (contrastRatio(shown, ground) >= ratio) {
                return shown;
            }
        }
    }
    return std::nullopt;
}

/// The greatest difference of a component, of 255.
long differenceInSteps(const Components& one, const Components& other)
{
    long greatest = 0;
    for (std::size_t i = 0; i < one.size(); ++i) {
        greatest = std::max(greatest, std::lround(std::abs(one.at(i) - other.at(i)) * 255));
    }
    return greatest;
}

} // namespace

class PassingLightnessTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nearestLightnessPasses_data();
    void nearestLightnessPasses();
    void resultIsTheFirstPassingColorOfAWalk();
};

void PassingLightnessTest::nearestLightnessPasses_data()
{
    QTest::addColumn<unsigned>("foreground");
    QTest::addColumn<unsigned>("ground");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, unsigned foreground, unsigned ground, double ratio,
                        const char* expected) {
        QTest::newRow(name) << foreground << ground << ratio << QString::fromLatin1(expected);
    };
    row("passes as it is", 0x3B82F6, 0xFFFFFF, 3, "#3b82f6");
    row("darker on white", 0x999999, 0xFFFFFF, 4.5, "#767676");
    row("darker on white for the highest level", 0x999999, 0xFFFFFF, 7, "#595959");
    row("lighter on black", 0x333333, 0x000000, 4.5, "#757575");
    row("equal colours, white", 0xFFFFFF, 0xFFFFFF, 4.5, "#767676");
    row("equal colours, black", 0x000000, 0x000000, 4.5, "#757575");
    row("equal colours, both directions pass and darker is nearer", 0x777777, 0x777777, 3, "#2e2e2e");
    row("both directions pass and lighter is nearer", 0x999999, 0x777777, 3, "#d4d4d4");
    row("lighter than the ground, but only darker passes", 0x808080, 0x777777, 4.5, "#060606");
    row("only black passes", 0x777777, 0xFFFFFF, 20.9, "#000000");
    row("only white passes", 0x777777, 0x000000, 20.9, "#ffffff");
    row("none passes", 0x3B82F6, 0x777777, 7, "none");
    row("none passes on equal mid greys", 0x777777, 0x777777, 7, "none");
    row("above the greatest ratio", 0x000000, 0xFFFFFF, 21.1, "none");
    row("a colour keeps its hue", 0x3B82F6, 0xFFFFFF, 4.5, "#2c72e5");
    row("a colour keeps its hue when it gets lighter", 0x3B82F6, 0x112233, 4.5, "#3d84f8");
    row("a warm colour keeps its hue when it gets lighter", 0xD97757, 0x1F1F23, 7, "#f38f6e");
}

void PassingLightnessTest::nearestLightnessPasses()
{
    QFETCH(const unsigned, foreground);
    QFETCH(const unsigned, ground);
    QFETCH(const double, ratio);
    const std::optional<Components> result = nearestPassing(test::rgb(foreground), test::rgb(ground), ratio);
    QTEST(result ? code(*result) : QStringLiteral("none"), "expected");
}

void PassingLightnessTest::resultIsTheFirstPassingColorOfAWalk()
{
    std::mt19937 random(20261122);
    std::uniform_int_distribution<unsigned> colors(0, 0xFFFFFF);
    int found = 0;
    for (int i = 0; i < 300; ++i) {
        const Components foreground = test::rgb(colors(random));
        const Components ground = test::rgb(colors(random));
        const double ratio = i % 2 == 0 ? 4.5 : 7;
        const std::optional<Components> first = firstPassing(foreground, ground, ratio);
        const std::optional<Components> result = nearestPassing(foreground, ground, ratio);
        const QByteArray pair = (code(foreground) + u' ' + code(ground)).toLatin1();
        QVERIFY2(result.has_value() == first.has_value(), pair);
        if (result) {
            ++found;
            QCOMPARE(roundedTo8Bits(*result), *result);
            QVERIFY2(contrastRatio(*result, ground) >= ratio, pair);
            // A step of the walk can pass over a colour.
            QVERIFY2(differenceInSteps(*result, *first) <= 1, pair);
        }
    }
    QVERIFY(found > 200);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::PassingLightnessTest)
#include "PassingLightnessTest.moc"
