#include "ColorContrast.h"

#include <QTest>

#include <cmath>

namespace tintwick {

namespace {

CapturedColor color(unsigned rgb, double alpha = 1)
{
    CapturedColor result = CapturedColor::capture(rgb);
    result.alpha = alpha;
    return result;
}

QString code(const Components& components)
{
    return CapturedColor::capture(components[0], components[1], components[2], 1).hex6();
}

} // namespace

class ColorContrastTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void translucentColorsArePaintedFirst_data();
    void translucentColorsArePaintedFirst();
    void contrastIsThatOfTheCodes();
    void levelsArePassedOrFailed_data();
    void levelsArePassedOrFailed();
    void proposedColorIsOpaqueAndPasses();
    void noColorIsProposedWhereNonePasses();
    void groundContrastsMost_data();
    void groundContrastsMost();
};

void ColorContrastTest::translucentColorsArePaintedFirst_data()
{
    QTest::addColumn<double>("textAlpha");
    QTest::addColumn<double>("groundAlpha");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("ground");
    // #3B82F6 on #112233
    QTest::newRow("opaque") << 1.0 << 1.0 << QStringLiteral("#3B82F6") << QStringLiteral("#112233");
    QTest::newRow("text on the ground")
        << 0.5 << 1.0 << QStringLiteral("#265295") << QStringLiteral("#112233");
    QTest::newRow("ground on white") << 1.0 << 0.5 << QStringLiteral("#3B82F6") << QStringLiteral("#889199");
    QTest::newRow("text on the painted ground")
        << 0.5 << 0.5 << QStringLiteral("#628AC8") << QStringLiteral("#889199");
    QTest::newRow("invisible text") << 0.0 << 1.0 << QStringLiteral("#112233") << QStringLiteral("#112233");
    QTest::newRow("no ground") << 1.0 << 0.0 << QStringLiteral("#3B82F6") << QStringLiteral("#FFFFFF");
    QTest::newRow("alpha outside of its range")
        << 3.0 << -2.0 << QStringLiteral("#3B82F6") << QStringLiteral("#FFFFFF");
}

void ColorContrastTest::translucentColorsArePaintedFirst()
{
    QFETCH(const double, textAlpha);
    QFETCH(const double, groundAlpha);
    const ColorContrast contrast(color(0x3B82F6, textAlpha), color(0x112233, groundAlpha));
    QTEST(code(contrast.seenText()), "text");
    QTEST(code(contrast.seenGround()), "ground");
}

void ColorContrastTest::contrastIsThatOfTheCodes()
{
    // Below #777777 by less than half a step of 8 bits.
    const double almost = (0x77 - 0.4) / 255;
    const ColorContrast contrast(CapturedColor::capture(almost, almost, almost, 1), color(0xFFFFFF));
    QVERIFY(std::abs(contrast.ratio() - 4.478089) < 1e-6);
    QVERIFY(std::abs(ColorContrast(color(0x888888), color(0xFFFFFF)).lightness() - 63.056470) < 1e-5);
}

void ColorContrastTest::levelsArePassedOrFailed_data()
{
    QTest::addColumn<unsigned>("text");
    QTest::addColumn<QString>("passed");
    // The greys on white around each limit.
    QTest::newRow("7.00") << 0x595959U
                          << QStringLiteral("normal-AA normal-AAA large-AA large-AAA graphics-AA");
    QTest::newRow("6.90") << 0x5A5A5AU << QStringLiteral("normal-AA large-AA large-AAA graphics-AA");
    QTest::newRow("4.54") << 0x767676U << QStringLiteral("normal-AA large-AA large-AAA graphics-AA");
    QTest::newRow("4.48") << 0x777777U << QStringLiteral("large-AA graphics-AA");
    QTest::newRow("3.03") << 0x949494U << QStringLiteral("large-AA graphics-AA");
    QTest::newRow("2.995") << 0x959595U << QString();
}

void ColorContrastTest::levelsArePassedOrFailed()
{
    using enum ContrastUse;
    using enum ContrastLevel;
    QFETCH(const unsigned, text);
    const ColorContrast contrast(color(text), color(0xFFFFFF));
    QStringList passed;
    const auto check = [&](ContrastUse use, ContrastLevel level, const char* name) {
        if (contrast.passes(use, level)) {
            passed.append(QString::fromLatin1(name));
        }
    };
    check(NormalText, AA, "normal-AA");
    check(NormalText, AAA, "normal-AAA");
    check(LargeText, AA, "large-AA");
    check(LargeText, AAA, "large-AAA");
    check(Graphics, AA, "graphics-AA");
    check(Graphics, AAA, "graphics-AAA");
    QTEST(passed.join(u' '), "passed");
}

void ColorContrastTest::proposedColorIsOpaqueAndPasses()
{
    // Half of black on white is the grey #808080.
    const ColorContrast contrast(color(0x000000, 0.5), color(0xFFFFFF));
    const std::optional<CapturedColor> proposed = contrast.nearestPassing(ContrastLevel::AA);
    QVERIFY(proposed);
    QCOMPARE(proposed->hex8(), QStringLiteral("#767676FF"));
    QCOMPARE(contrast.nearestPassing(ContrastLevel::AAA)->hex6(), QStringLiteral("#595959"));
    QVERIFY(!proposed->id.isNull());
    QVERIFY(!proposed->customName);
}

void ColorContrastTest::noColorIsProposedWhereNonePasses()
{
    QVERIFY(!ColorContrast(color(0x3B82F6), color(0x777777)).nearestPassing(ContrastLevel::AAA));
}

void ColorContrastTest::groundContrastsMost_data()
{
    QTest::addColumn<unsigned>("text");
    QTest::addColumn<double>("alpha");
    QTest::addColumn<QString>("ground");
    QTest::newRow("black text") << 0x000000U << 1.0 << QStringLiteral("#FFFFFF");
    QTest::newRow("white text") << 0xFFFFFFU << 1.0 << QStringLiteral("#000000");
    QTest::newRow("the darkest grey on black") << 0x767676U << 1.0 << QStringLiteral("#000000");
    QTest::newRow("the lightest grey on white") << 0x757575U << 1.0 << QStringLiteral("#FFFFFF");
    // On black it is #1E1E1E, on white #E1E1E1.
    QTest::newRow("translucent grey") << 0xF0F0F0U << 0.125 << QStringLiteral("#000000");
}

void ColorContrastTest::groundContrastsMost()
{
    QFETCH(const unsigned, text);
    QFETCH(const double, alpha);
    QTEST(strongestGround(color(text, alpha)).hex6(), "ground");
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::ColorContrastTest)
#include "ColorContrastTest.moc"
