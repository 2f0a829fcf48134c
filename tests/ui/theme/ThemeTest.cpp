#include "Theme.h"
#include "Appearance.h"

#include <QFontInfo>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>

#include <algorithm>
#include <cmath>

using namespace tintwick;

namespace {

/// Web Content Accessibility Guidelines 2.1, "relative luminance" and "contrast ratio".
double luminance(const QColor& color)
{
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

} // namespace

class ThemeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsHaveEnoughContrast_data();
    void textsHaveEnoughContrast();
    void systemColorsDifferBetweenTheSchemes_data();
    void systemColorsDifferBetweenTheSchemes();
    void fixedColorsAreTheSameInBothSchemes();
    void opacityMultiplies();
    void thereAreFiveCardAccents_data();
    void thereAreFiveCardAccents();
    void fontsHaveTheirSizeAndWeight();
    void anAppearanceAppliesToEveryChild();
};

void ThemeTest::textsHaveEnoughContrast_data()
{
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("background");
    QTest::addColumn<double>("least");
    struct Named
    {
        const char* name = "";
        theme::Color color;
    };
    const Named backgrounds[] = {
        {"bg", theme::bg}, {"surface", theme::surface}, {"surfaceHigh", theme::surfaceHigh}};
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        const char* in = scheme == Scheme::Light ? "light" : "dark";
        const auto row = [&](const Named& text, const Named& background, double least) {
            QTest::addRow("%s on %s, %s", text.name, background.name, in)
                << text.color.in(scheme) << background.color.in(scheme) << least;
        };
        for (const Named& background : backgrounds) {
            row({"textPrimary", theme::textPrimary}, background, 4.5);
            row({"textSecond", theme::textSecond}, background, 4.5);
            row({"textThird", theme::textThird}, background, 3);
        }
        row({"textPrimary", theme::textPrimary}, {"field", theme::field}, 4.5);
        row({"textThird", theme::textThird}, {"field", theme::field}, 3);
        row({"textPrimary", theme::textPrimary}, {"thumb", theme::thumb}, 4.5);
        row({"white", theme::white}, {"accent", theme::accent}, 4.5);
        row({"white", theme::white}, {"destructiveGround", theme::destructiveGround}, 4.5);
        row({"link", theme::link}, {"surface", theme::surface}, 4.5);
        row({"red", theme::red}, {"surface", theme::surface}, 4.5);
        // Symbols, and the accent, which is the same in both schemes.
        row({"green", theme::green}, {"surface", theme::surface}, 3);
        row({"accent", theme::accent}, {"bg", theme::bg}, 3);
        row({"accent", theme::accent}, {"surface", theme::surface}, 3);
        row({"focusRing", theme::focusRing}, {"bg", theme::bg}, 3);
        row({"focusRing", theme::focusRing}, {"surface", theme::surface}, 3);
    }
}

void ThemeTest::textsHaveEnoughContrast()
{
    QFETCH(const QColor, text);
    QFETCH(const QColor, background);
    QFETCH(const double, least);
    QVERIFY2(contrast(text, background) >= least, qPrintable(QString::number(contrast(text, background))));
}

void ThemeTest::systemColorsDifferBetweenTheSchemes_data()
{
    QTest::addColumn<QColor>("light");
    QTest::addColumn<QColor>("dark");
    const auto row = [](const char* name, const theme::Color& color) {
        QTest::newRow(name) << color.in(Scheme::Light) << color.in(Scheme::Dark);
    };
    row("bg", theme::bg);
    row("surface", theme::surface);
    row("surfaceHigh", theme::surfaceHigh);
    row("border", theme::border);
    row("textPrimary", theme::textPrimary);
    row("textSecond", theme::textSecond);
    row("textThird", theme::textThird);
}

void ThemeTest::systemColorsDifferBetweenTheSchemes()
{
    QFETCH(const QColor, light);
    QFETCH(const QColor, dark);
    QVERIFY(light != dark);
}

void ThemeTest::fixedColorsAreTheSameInBothSchemes()
{
    QCOMPARE(theme::accent.in(Scheme::Light), QColor::fromRgbF(0.38F, 0.40F, 0.88F));
    QCOMPARE(theme::accent.in(Scheme::Dark), QColor::fromRgbF(0.38F, 0.40F, 0.88F));
}

void ThemeTest::opacityMultiplies()
{
    QCOMPARE(theme::white.opacity(0.5).opacity(0.5).in(Scheme::Light).alpha(), 64);
}

void ThemeTest::thereAreFiveCardAccents_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QColor>("start");
    QTest::addColumn<QColor>("end");
    QTest::newRow("orange") << 0 << QColor::fromRgbF(1.00F, 0.60F, 0.20F)
                            << QColor::fromRgbF(0.96F, 0.40F, 0.12F);
    QTest::newRow("blue") << 1 << QColor::fromRgbF(0.32F, 0.56F, 0.96F)
                          << QColor::fromRgbF(0.22F, 0.40F, 0.88F);
    QTest::newRow("violet") << 2 << QColor::fromRgbF(0.52F, 0.28F, 0.90F)
                            << QColor::fromRgbF(0.38F, 0.18F, 0.80F);
    QTest::newRow("pink") << 3 << QColor::fromRgbF(0.96F, 0.42F, 0.62F)
                          << QColor::fromRgbF(0.88F, 0.28F, 0.52F);
    QTest::newRow("green") << 4 << QColor::fromRgbF(0.18F, 0.74F, 0.56F)
                           << QColor::fromRgbF(0.10F, 0.60F, 0.44F);
}

void ThemeTest::thereAreFiveCardAccents()
{
    QFETCH(const int, index);
    QCOMPARE(theme::cardAccents.size(), std::size_t{5});
    const theme::Gradient& gradient = theme::cardAccents.at(static_cast<std::size_t>(index));
    QTEST(gradient.start.in(Scheme::Light), "start");
    QTEST(gradient.end.in(Scheme::Dark), "end");
}

void ThemeTest::fontsHaveTheirSizeAndWeight()
{
    QCOMPARE(theme::font(14, QFont::DemiBold).pixelSize(), 14);
    QCOMPARE(theme::font(14, QFont::DemiBold).weight(), QFont::DemiBold);
    QVERIFY(QFontInfo(theme::monospacedFont(9)).fixedPitch());
}

void ThemeTest::anAppearanceAppliesToEveryChild()
{
    QWidget root;
    auto* early = new QWidget(&root);
    Appearance appearance(root, Scheme::Light);
    QSignalSpy changed(&appearance, &Appearance::schemeChanged);
    QCOMPARE(Appearance::of(early), Scheme::Light);
    appearance.setScheme(Scheme::Dark);
    appearance.setScheme(Scheme::Dark);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(Appearance::of(early), Scheme::Dark);
    auto* late = new QWidget(early);
    QCOMPARE(Appearance::of(late), Scheme::Dark);
    const QWidget elsewhere;
    QCOMPARE(Appearance::of(&elsewhere), Scheme::Light);
}

QTEST_MAIN(ThemeTest)
#include "ThemeTest.moc"
