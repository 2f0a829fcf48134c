#include "ui/DS.h"
#include "ui/Appearance.h"

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

class DSTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsAreReadableOnTheirGrounds_data();
    void textsAreReadableOnTheirGrounds();
    void systemColorsDifferBetweenTheSchemes_data();
    void systemColorsDifferBetweenTheSchemes();
    void fixedColorsAreTheSameInBoth();
    void opacityMultiplies();
    void cardAccentsAreTheFive_data();
    void cardAccentsAreTheFive();
    void fontsHaveTheirSizeAndWeight();
    void anAppearanceReachesEveryChild();
};

void DSTest::textsAreReadableOnTheirGrounds_data()
{
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<double>("least");
    struct Named
    {
        const char* name = "";
        DS::Color color;
    };
    const Named grounds[] = {{"bg", DS::bg}, {"surface", DS::surface}, {"surfaceHigh", DS::surfaceHigh}};
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        const char* in = scheme == Scheme::Light ? "light" : "dark";
        const auto row = [&](const Named& text, const Named& ground, double least) {
            QTest::addRow("%s on %s, %s", text.name, ground.name, in)
                << text.color.in(scheme) << ground.color.in(scheme) << least;
        };
        for (const Named& ground : grounds) {
            row({"textPrimary", DS::textPrimary}, ground, 4.5);
            row({"textSecond", DS::textSecond}, ground, 4.5);
            row({"textThird", DS::textThird}, ground, 3);
        }
        row({"textPrimary", DS::textPrimary}, {"field", DS::field}, 4.5);
        row({"textThird", DS::textThird}, {"field", DS::field}, 3);
        row({"textPrimary", DS::textPrimary}, {"thumb", DS::thumb}, 4.5);
        row({"white", DS::white}, {"accent", DS::accent}, 4.5);
        row({"white", DS::white}, {"destructiveGround", DS::destructiveGround}, 4.5);
        row({"link", DS::link}, {"surface", DS::surface}, 4.5);
        row({"red", DS::red}, {"surface", DS::surface}, 4.5);
        // Of symbols, and of the accent, whose value is the same in both schemes.
        row({"green", DS::green}, {"surface", DS::surface}, 3);
        row({"accent", DS::accent}, {"bg", DS::bg}, 3);
        row({"accent", DS::accent}, {"surface", DS::surface}, 3);
        row({"focusRing", DS::focusRing}, {"bg", DS::bg}, 3);
        row({"focusRing", DS::focusRing}, {"surface", DS::surface}, 3);
    }
}

void DSTest::textsAreReadableOnTheirGrounds()
{
    QFETCH(const QColor, text);
    QFETCH(const QColor, ground);
    QFETCH(const double, least);
    QVERIFY2(contrast(text, ground) >= least, qPrintable(QString::number(contrast(text, ground))));
}

void DSTest::systemColorsDifferBetweenTheSchemes_data()
{
    QTest::addColumn<QColor>("light");
    QTest::addColumn<QColor>("dark");
    const auto row = [](const char* name, const DS::Color& color) {
        QTest::newRow(name) << color.in(Scheme::Light) << color.in(Scheme::Dark);
    };
    row("bg", DS::bg);
    row("surface", DS::surface);
    row("surfaceHigh", DS::surfaceHigh);
    row("border", DS::border);
    row("textPrimary", DS::textPrimary);
    row("textSecond", DS::textSecond);
    row("textThird", DS::textThird);
}

void DSTest::systemColorsDifferBetweenTheSchemes()
{
    QFETCH(const QColor, light);
    QFETCH(const QColor, dark);
    QVERIFY(light != dark);
}

void DSTest::fixedColorsAreTheSameInBoth()
{
    QCOMPARE(DS::accent.in(Scheme::Light), QColor::fromRgbF(0.38F, 0.40F, 0.88F));
    QCOMPARE(DS::accent.in(Scheme::Dark), QColor::fromRgbF(0.38F, 0.40F, 0.88F));
}

void DSTest::opacityMultiplies()
{
    QCOMPARE(DS::white.opacity(0.5).opacity(0.5).in(Scheme::Light).alpha(), 64);
}

void DSTest::cardAccentsAreTheFive_data()
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

void DSTest::cardAccentsAreTheFive()
{
    QFETCH(const int, index);
    QCOMPARE(DS::cardAccents.size(), std::size_t{5});
    const DS::Gradient& gradient = DS::cardAccents.at(static_cast<std::size_t>(index));
    QTEST(gradient.start.in(Scheme::Light), "start");
    QTEST(gradient.end.in(Scheme::Dark), "end");
}

void DSTest::fontsHaveTheirSizeAndWeight()
{
    QCOMPARE(DS::font(14, QFont::DemiBold).pixelSize(), 14);
    QCOMPARE(DS::font(14, QFont::DemiBold).weight(), QFont::DemiBold);
    QVERIFY(QFontInfo(DS::monospacedFont(9)).fixedPitch());
}

void DSTest::anAppearanceReachesEveryChild()
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

QTEST_MAIN(DSTest)
#include "DSTest.moc"
