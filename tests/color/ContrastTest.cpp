#include "ApcaContrast.h"
#include "WcagContrast.h"
#include "color/Rgb.h"

#include <QTest>

#include <cmath>

namespace tintwick {

class ContrastTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void luminanceIsThatOfTheGuidelines_data();
    void luminanceIsThatOfTheGuidelines();
    void ratioIsThatOfTheGuidelines_data();
    void ratioIsThatOfTheGuidelines();
    void levelsDemandTheirRatios();
    void lightnessContrastHasTheSignOfItsPolarity_data();
    void lightnessContrastHasTheSignOfItsPolarity();
};

void ContrastTest::luminanceIsThatOfTheGuidelines_data()
{
    QTest::addColumn<unsigned>("color");
    QTest::addColumn<double>("luminance");
    QTest::newRow("black") << 0x000000U << 0.0;
    QTest::newRow("white") << 0xFFFFFFU << 1.0;
    QTest::newRow("red") << 0xFF0000U << 0.2126;
    QTest::newRow("green") << 0x00FF00U << 0.7152;
    QTest::newRow("blue") << 0x0000FFU << 0.0722;
    QTest::newRow("grey") << 0x808080U << 0.21586050;
    QTest::newRow("last of the linear part") << 0x0A0A0AU << 0.00303527;
    QTest::newRow("first of the curved part") << 0x0B0B0BU << 0.00334654;
    QTest::newRow("colour") << 0x3B82F6U << 0.23548891;
}

void ContrastTest::luminanceIsThatOfTheGuidelines()
{
    QFETCH(const unsigned, color);
    QFETCH(const double, luminance);
    QVERIFY(std::abs(relativeLuminance(test::rgb(color)) - luminance) < 1e-8);
}

void ContrastTest::ratioIsThatOfTheGuidelines_data()
{
    QTest::addColumn<unsigned>("one");
    QTest::addColumn<unsigned>("other");
    QTest::addColumn<double>("ratio");
    QTest::newRow("the greatest") << 0x000000U << 0xFFFFFFU << 21.0;
    QTest::newRow("equal colours") << 0xFFFFFFU << 0xFFFFFFU << 1.0;
    QTest::newRow("grey below AA on white") << 0x777777U << 0xFFFFFFU << 4.478089;
    QTest::newRow("grey above AA on white") << 0x767676U << 0xFFFFFFU << 4.542225;
    QTest::newRow("grey above AAA on white") << 0x595959U << 0xFFFFFFU << 7.004729;
    QTest::newRow("grey below AAA on white") << 0x5A5A5AU << 0xFFFFFFU << 6.896926;
    QTest::newRow("red on white") << 0xFF0000U << 0xFFFFFFU << 3.998477;
    QTest::newRow("blue on white") << 0x3B82F6U << 0xFFFFFFU << 3.677901;
    QTest::newRow("blue on black") << 0x3B82F6U << 0x000000U << 5.709778;
    QTest::newRow("two near blacks") << 0x0A0A0AU << 0x0B0B0BU << 1.005869;
    QTest::newRow("two colours") << 0x112233U << 0xDDEEFFU << 13.647789;
}

void ContrastTest::ratioIsThatOfTheGuidelines()
{
    QFETCH(const unsigned, one);
    QFETCH(const unsigned, other);
    QFETCH(const double, ratio);
    QVERIFY(std::abs(contrastRatio(test::rgb(one), test::rgb(other)) - ratio) < 1e-6);
    QVERIFY(std::abs(contrastRatio(test::rgb(other), test::rgb(one)) - ratio) < 1e-6);
}

void ContrastTest::levelsDemandTheirRatios()
{
    using enum ContrastUse;
    using enum ContrastLevel;
    QCOMPARE(requiredRatio(NormalText, AA), std::optional(4.5));
    QCOMPARE(requiredRatio(NormalText, AAA), std::optional(7.0));
    QCOMPARE(requiredRatio(LargeText, AA), std::optional(3.0));
    QCOMPARE(requiredRatio(LargeText, AAA), std::optional(4.5));
    QCOMPARE(requiredRatio(Graphics, AA), std::optional(3.0));
    QCOMPARE(requiredRatio(Graphics, AAA), std::optional<double>());
}

void ContrastTest::lightnessContrastHasTheSignOfItsPolarity_data()
{
    QTest::addColumn<unsigned>("text");
    QTest::addColumn<unsigned>("ground");
    QTest::addColumn<double>("contrast");
    QTest::newRow("grey on white") << 0x888888U << 0xFFFFFFU << 63.056469930209424;
    QTest::newRow("white on grey") << 0xFFFFFFU << 0x888888U << -68.54146436644962;
    QTest::newRow("black on grey") << 0x000000U << 0xAAAAAAU << 58.146262578561334;
    QTest::newRow("grey on black") << 0xAAAAAAU << 0x000000U << -56.24113336839742;
    QTest::newRow("dark on light") << 0x112233U << 0xDDEEFFU << 91.66830811481631;
    QTest::newRow("light on dark") << 0xDDEEFFU << 0x112233U << -93.06770049484275;
    QTest::newRow("dark on dark") << 0x112233U << 0x444444U << 8.32326136957393;
    QTest::newRow("dark on darker") << 0x444444U << 0x112233U << -7.526878460278154;
    QTest::newRow("black on white") << 0x000000U << 0xFFFFFFU << 106.0407;
    QTest::newRow("white on black") << 0xFFFFFFU << 0x000000U << -107.8847;
    QTest::newRow("equal colours") << 0xFFFFFFU << 0xFFFFFFU << 0.0;
    QTest::newRow("luminances too near") << 0x777777U << 0x787878U << 0.0;
    QTest::newRow("contrast too low, dark text") << 0x000000U << 0x202020U << 0.0;
    QTest::newRow("contrast too low, light text") << 0x202020U << 0x000000U << 0.0;
}

void ContrastTest::lightnessContrastHasTheSignOfItsPolarity()
{
    QFETCH(const unsigned, text);
    QFETCH(const unsigned, ground);
    QFETCH(const double, contrast);
    QVERIFY(std::abs(lightnessContrast(test::rgb(text), test::rgb(ground)) - contrast) < 1e-4);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::ContrastTest)
#include "ContrastTest.moc"
