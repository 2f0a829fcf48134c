#include "Theme.h"
#include "Appearance.h"
#include "ui/Contrast.h"

#include <QFontInfo>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>

using namespace tintwick;
using test::contrast;
using test::painted;

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
    QTest::addColumn<QColor>("ink");
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<double>("least");
    struct Named
    {
        const char* name = "";
        theme::Color color;
    };
    const Named inks[] = {{"textPrimary", theme::textPrimary},
                          {"textSecond", theme::textSecond},
                          {"textThird", theme::textThird},
                          {"accentText", theme::accentText},
                          {"red", theme::red}};
    const Named grounds[] = {{"bg", theme::bg},
                             {"surface", theme::surface},
                             {"surfaceHigh", theme::surfaceHigh},
                             {"field", theme::field}};
    const theme::Color hoverTint = theme::textPrimary.opacity(0.05);
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        const char* in = scheme == Scheme::Light ? "light" : "dark";
        const auto row = [&](const Named& ink, const Named& ground, double least) {
            QTest::addRow("%s on %s, %s", ink.name, ground.name, in)
                << ink.color.in(scheme) << ground.color.in(scheme) << least;
        };
        const auto tinted = [&](const Named& ink, const Named& ground, const Named& tint) {
            QTest::addRow("%s on %s, %s, %s", ink.name, ground.name, tint.name, in)
                << ink.color.in(scheme) << painted(tint.color.in(scheme), ground.color.in(scheme)) << 4.5;
        };
        for (const Named& ink : inks) {
            for (const Named& ground : grounds) {
                row(ink, ground, 4.5);
            }
            tinted(ink, {"bg", theme::bg}, {"hovered", hoverTint});
            tinted(ink, {"surface", theme::surface}, {"hovered", hoverTint});
        }
        row({"textPrimary", theme::textPrimary}, {"thumb", theme::thumb}, 4.5);
        tinted({"textPrimary", theme::textPrimary}, {"surfaceHigh", theme::surfaceHigh},
               {"hovered", hoverTint});
        tinted({"accentText", theme::accentText}, {"bg", theme::bg}, {"tinted", theme::accent.opacity(0.1)});
        row({"white", theme::white}, {"accent", theme::accent}, 4.5);
        row({"white", theme::white}, {"destructiveGround", theme::destructiveGround}, 4.5);
        // Symbols and lines.
        row({"green", theme::green}, {"surface", theme::surface}, 3);
        row({"accent", theme::accent}, {"bg", theme::bg}, 3);
        row({"accent", theme::accent}, {"surface", theme::surface}, 3);
        row({"focusRing", theme::focusRing}, {"bg", theme::bg}, 3);
        row({"focusRing", theme::focusRing}, {"surface", theme::surface}, 3);
        row({"focusRing", theme::focusRing}, {"surfaceHigh", theme::surfaceHigh}, 3);
        const QColor ground = theme::surfaceHigh.in(scheme);
        QTest::addRow("trash on surfaceHigh, %s", in)
            << painted(theme::red.opacity(0.7).in(scheme), ground) << ground << 3.0;
    }
}

void ThemeTest::textsHaveEnoughContrast()
{
    QFETCH(const QColor, ink);
    QFETCH(const QColor, ground);
    QFETCH(const double, least);
    QVERIFY2(contrast(ink, ground) >= least, qPrintable(QString::number(contrast(ink, ground))));
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
