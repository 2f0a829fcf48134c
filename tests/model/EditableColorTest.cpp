#include "EditableColor.h"

#include "CapturedColor.h"

#include <QTest>

namespace tintwick {

namespace {

constexpr ColorComponent allComponents[] = {ColorComponent::OklchLightness, ColorComponent::OklchChroma,
                                            ColorComponent::OklchHue,       ColorComponent::HslHue,
                                            ColorComponent::HslSaturation,  ColorComponent::HslLightness,
                                            ColorComponent::Alpha};

EditableColor opened(std::uint32_t rgb)
{
    return EditableColor(CapturedColor::capture(rgb));
}

QString codeOf(const EditableColor& color)
{
    return color.captured().hex6();
}

} // namespace

class EditableColorTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aColorHasTheNumbersOfBothModels_data();
    void aColorHasTheNumbersOfBothModels();
    void eachNumberCanBeSet_data();
    void eachNumberCanBeSet();
    void anUnchangedColorIsTheSame();
    void settingANumberToItselfGivesTheSameCode();
    void aSliderMovedToItsEndAndBackGivesTheSameColor_data();
    void aSliderMovedToItsEndAndBackGivesTheSameColor();
    void theOtherModelKeepsTheHueOfAGrey();
    void theOtherModelKeepsHueAndStrengthOfBlackAndWhite();
    void aColorTakenOverAGreyHueKeepsIt();
    void numbersOutsideTheGamutKeepTheirValueAndGiveTheNearestColor();
    void valuesBeyondTheRangeAreClamped();
};

void EditableColorTest::aColorHasTheNumbersOfBothModels_data()
{
    QTest::addColumn<std::uint32_t>("rgb");
    QTest::addColumn<QList<double>>("numbers");
    const auto row = [](const char* name, std::uint32_t rgb, const QList<double>& numbers) {
        QTest::newRow(name) << rgb << numbers;
    };
    row("blue", 0x3B82F6, {0.6231, 0.1880, 259.8145, 217.2193, 0.9122, 0.5980, 1});
    row("red", 0xFF0000, {0.6280, 0.2577, 29.2339, 0, 1, 0.5, 1});
    row("pale", 0xFFE9A8, {0.9369, 0.0857, 91.5591, 44.8276, 1, 0.8294, 1});
    row("grey", 0x808080, {0.5999, 0, 0, 0, 0, 0.5020, 1});
    row("black", 0x000000, {0, 0, 0, 0, 0, 0, 1});
    row("white", 0xFFFFFF, {1, 0, 0, 0, 0, 1, 1});
}

void EditableColorTest::aColorHasTheNumbersOfBothModels()
{
    QFETCH(const std::uint32_t, rgb);
    QFETCH(const QList<double>, numbers);
    const EditableColor color = opened(rgb);
    qsizetype i = 0;
    for (const ColorComponent component : allComponents) {
        const double tolerance = maximumOf(component) > 1 ? 0.01 : 0.0001;
        const double difference = std::abs(color.value(component) - numbers.at(i));
        QVERIFY2(difference < tolerance,
                 qPrintable(QStringLiteral("component %1: %2").arg(i).arg(color.value(component))));
        ++i;
    }
}

void EditableColorTest::eachNumberCanBeSet_data()
{
    QTest::addColumn<ColorComponent>("component");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("code");
    // The start is #3B82F6.
    QTest::newRow("OKLCH lightness") << ColorComponent::OklchLightness << 0.5 << "#115BCC";
    QTest::newRow("OKLCH chroma") << ColorComponent::OklchChroma << 0.1 << "#6388C3";
    QTest::newRow("OKLCH hue") << ColorComponent::OklchHue << 300.0 << "#9A65E5";
    QTest::newRow("HSL hue") << ColorComponent::HslHue << 120.0 << "#3BF63B";
    QTest::newRow("HSL saturation") << ColorComponent::HslSaturation << 0.5 << "#658CCC";
    QTest::newRow("HSL lightness") << ColorComponent::HslLightness << 0.3 << "#073C92";
    QTest::newRow("opacity") << ColorComponent::Alpha << 0.5 << "#3B82F6";
}

void EditableColorTest::eachNumberCanBeSet()
{
    QFETCH(const ColorComponent, component);
    QFETCH(const double, value);
    EditableColor color = opened(0x3B82F6);
    color.setValue(component, value);
    QCOMPARE(color.value(component), value);
    QTEST(codeOf(color), "code");
    QCOMPARE(color.captured().alpha, component == ColorComponent::Alpha ? value : 1.0);
}

void EditableColorTest::anUnchangedColorIsTheSame()
{
    CapturedColor fine = CapturedColor::capture(0.1234567, 0.7654321, 0.333, 0.25);
    const EditableColor color(fine);
    const CapturedColor result = color.captured();
    QCOMPARE(result.red, fine.red);
    QCOMPARE(result.green, fine.green);
    QCOMPARE(result.blue, fine.blue);
    QCOMPARE(result.alpha, fine.alpha);
    QVERIFY(result.id != fine.id);
    QVERIFY(!result.customName);
}

void EditableColorTest::settingANumberToItselfGivesTheSameCode()
{
    // A change back and forth computes the colour anew.
    for (std::uint32_t red = 0; red <= 255; red += 15) {
        for (std::uint32_t green = 0; green <= 255; green += 15) {
            for (std::uint32_t blue = 0; blue <= 255; blue += 5) {
                const std::uint32_t rgb = red << 16U | green << 8U | blue;
                const QString code = CapturedColor::capture(rgb).hex6();
                QCOMPARE(codeOf(opened(rgb)), code);
                for (const ColorComponent component : allComponents) {
                    EditableColor color = opened(rgb);
                    const double before = color.value(component);
                    color.setValue(component, before > 0.01 ? before - 0.01 : before + 0.01);
                    color.setValue(component, before);
                    QCOMPARE(codeOf(color), code);
                }
            }
        }
    }
}

void EditableColorTest::aSliderMovedToItsEndAndBackGivesTheSameColor_data()
{
    QTest::addColumn<ColorComponent>("component");
    QTest::addColumn<bool>("toMaximum");
    for (const ColorComponent component : allComponents) {
        for (const bool toMaximum : {false, true}) {
            QTest::addRow("component %d to its %s", static_cast<int>(component),
                          toMaximum ? "maximum" : "minimum")
                << component << toMaximum;
        }
    }
}

void EditableColorTest::aSliderMovedToItsEndAndBackGivesTheSameColor()
{
    QFETCH(const ColorComponent, component);
    QFETCH(const bool, toMaximum);
    for (const std::uint32_t rgb : {0x3B82F6U, 0xFF0000U, 0x010203U, 0xFEFDFCU, 0x808080U}) {
        EditableColor color = opened(rgb);
        const double before = color.value(component);
        // As a drag does it: through values in between.
        const double end = toMaximum ? maximumOf(component) : 0;
        for (const double way : {0.3, 0.7, 0.99, 1.0, 0.6, 0.2}) {
            color.setValue(component, std::lerp(before, end, way));
        }
        color.setValue(component, before);
        QCOMPARE(codeOf(color), CapturedColor::capture(rgb).hex6());
        if (rgb != 0x808080) {
            QVERIFY(std::abs(color.value(ColorComponent::OklchHue) -
                             opened(rgb).value(ColorComponent::OklchHue)) < 1e-3);
        }
    }
}

void EditableColorTest::theOtherModelKeepsTheHueOfAGrey()
{
    EditableColor color = opened(0x3B82F6);
    const double hslHue = color.value(ColorComponent::HslHue);
    const double oklchHue = color.value(ColorComponent::OklchHue);
    color.setValue(ColorComponent::OklchChroma, 0);
    QCOMPARE(codeOf(color), QStringLiteral("#878787"));
    QCOMPARE(color.value(ColorComponent::HslSaturation), 0.0);
    QCOMPARE(color.value(ColorComponent::HslHue), hslHue);

    color = opened(0x3B82F6);
    color.setValue(ColorComponent::HslSaturation, 0);
    QCOMPARE(codeOf(color), QStringLiteral("#999999"));
    QCOMPARE(color.value(ColorComponent::OklchChroma), 0.0);
    QCOMPARE(color.value(ColorComponent::OklchHue), oklchHue);
}

void EditableColorTest::theOtherModelKeepsHueAndStrengthOfBlackAndWhite()
{
    for (const double end : {0.0, 1.0}) {
        EditableColor color = opened(0x3B82F6);
        const EditableColor before = color;
        color.setValue(ColorComponent::OklchLightness, end);
        QCOMPARE(codeOf(color), end > 0 ? QStringLiteral("#FFFFFF") : QStringLiteral("#000000"));
        QCOMPARE(color.value(ColorComponent::HslHue), before.value(ColorComponent::HslHue));
        QCOMPARE(color.value(ColorComponent::HslSaturation), before.value(ColorComponent::HslSaturation));

        color = before;
        color.setValue(ColorComponent::HslLightness, end);
        QCOMPARE(codeOf(color), end > 0 ? QStringLiteral("#FFFFFF") : QStringLiteral("#000000"));
        QCOMPARE(color.value(ColorComponent::OklchHue), before.value(ColorComponent::OklchHue));
        QCOMPARE(color.value(ColorComponent::OklchChroma), before.value(ColorComponent::OklchChroma));
    }
}

void EditableColorTest::aColorTakenOverAGreyHueKeepsIt()
{
    EditableColor color = opened(0x3B82F6);
    const double hue = color.value(ColorComponent::OklchHue);
    color.setColor(CapturedColor::capture(0x777777));
    QCOMPARE(codeOf(color), QStringLiteral("#777777"));
    QCOMPARE(color.value(ColorComponent::OklchHue), hue);
    QCOMPARE(color.value(ColorComponent::OklchChroma), 0.0);
}

void EditableColorTest::numbersOutsideTheGamutKeepTheirValueAndGiveTheNearestColor()
{
    EditableColor color = opened(0x3B82F6);
    QVERIFY(!color.isOutsideGamut());
    color.setValue(ColorComponent::OklchChroma, 0.3);
    QVERIFY(color.isOutsideGamut());
    QCOMPARE(color.value(ColorComponent::OklchChroma), 0.3);
    for (const double component : color.srgb()) {
        QVERIFY(component >= 0 && component <= 1);
    }
    color.setValue(ColorComponent::HslLightness, 0.4);
    QVERIFY(!color.isOutsideGamut());
}

void EditableColorTest::valuesBeyondTheRangeAreClamped()
{
    EditableColor color = opened(0x3B82F6);
    color.setValue(ColorComponent::OklchHue, 400);
    QCOMPARE(color.value(ColorComponent::OklchHue), 360.0);
    color.setValue(ColorComponent::OklchChroma, -1);
    QCOMPARE(color.value(ColorComponent::OklchChroma), 0.0);
    color.setValue(ColorComponent::Alpha, 2);
    QCOMPARE(color.value(ColorComponent::Alpha), 1.0);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::EditableColorTest)
#include "EditableColorTest.moc"
