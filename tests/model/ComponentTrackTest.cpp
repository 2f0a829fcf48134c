#include "ComponentTrack.h"

#include "CapturedColor.h"
#include "EditableColor.h"

#include <QTest>

#include <cmath>

namespace tintwick {

namespace {

QString partsOf(const ComponentTrack& track)
{
    QStringList parts;
    for (const ComponentTrack::Part& part : track.outside) {
        parts.append(QStringLiteral("%1-%2").arg(part.from, 0, 'f', 3).arg(part.to, 0, 'f', 3));
    }
    return parts.join(u' ');
}

QString codeOf(const Components& srgb)
{
    return CapturedColor::capture(srgb[0], srgb[1], srgb[2], 1).hex6();
}

} // namespace

class ComponentTrackTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePartsOutsideTheGamutAreKnown_data();
    void thePartsOutsideTheGamutAreKnown();
    void theColorsAreThoseOfTheComponent_data();
    void theColorsAreThoseOfTheComponent();
    void everyColorIsInsideTheGamut();
};

void ComponentTrackTest::thePartsOutsideTheGamutAreKnown_data()
{
    QTest::addColumn<std::uint32_t>("rgb");
    QTest::addColumn<ColorComponent>("component");
    QTest::addColumn<QString>("parts");
    const auto row = [](const char* name, std::uint32_t rgb, ColorComponent component, const char* parts) {
        QTest::newRow(name) << rgb << component << QString::fromLatin1(parts);
    };
    // Found by another program, which tested 200,000 places of each track.
    row("lightness of blue", 0x3B82F6, ColorComponent::OklchLightness, "0.000-0.465 0.649-1.000");
    row("chroma of blue", 0x3B82F6, ColorComponent::OklchChroma, "0.618-1.000");
    row("hue of blue", 0x3B82F6, ColorComponent::OklchHue, "0.117-0.380 0.407-0.701");
    row("lightness of grey", 0x808080, ColorComponent::OklchLightness, "");
    row("hue of grey", 0x808080, ColorComponent::OklchHue, "");
    row("chroma of red", 0xFF0000, ColorComponent::OklchChroma, "0.781-1.000");
    row("hue in HSL", 0x3B82F6, ColorComponent::HslHue, "");
    row("saturation", 0x3B82F6, ColorComponent::HslSaturation, "");
    row("lightness in HSL", 0x3B82F6, ColorComponent::HslLightness, "");
    row("opacity", 0x3B82F6, ColorComponent::Alpha, "");
}

void ComponentTrackTest::thePartsOutsideTheGamutAreKnown()
{
    QFETCH(const std::uint32_t, rgb);
    QFETCH(const ColorComponent, component);
    QTEST(partsOf(trackOf(EditableColor(CapturedColor::capture(rgb)), component)), "parts");
}

void ComponentTrackTest::theColorsAreThoseOfTheComponent_data()
{
    QTest::addColumn<ColorComponent>("component");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("middle");
    QTest::addColumn<QString>("last");
    const auto row = [](const char* name, ColorComponent component, const char* first, const char* middle,
                        const char* last) {
        QTest::newRow(name) << component << QString::fromLatin1(first) << QString::fromLatin1(middle)
                            << QString::fromLatin1(last);
    };
    // Of #D94A4A.
    row("hue in HSL", ColorComponent::HslHue, "#D94A4A", "#4AD9D9", "#D94A4A");
    row("saturation", ColorComponent::HslSaturation, "#929292", "#C85B5B", "#FF2424");
    row("lightness in HSL", ColorComponent::HslLightness, "#000000", "#D32C2C", "#FFFFFF");
    row("chroma", ColorComponent::OklchChroma, "#828282", "#D3514F", "#FA0022");
    row("opacity", ColorComponent::Alpha, "#D94A4A", "#D94A4A", "#D94A4A");
}

void ComponentTrackTest::theColorsAreThoseOfTheComponent()
{
    QFETCH(const ColorComponent, component);
    const ComponentTrack track = trackOf(EditableColor(CapturedColor::capture(0xD94A4A)), component);
    QVERIFY(track.colors.size() % 2 == 1);
    QTEST(codeOf(track.colors.front()), "first");
    QTEST(codeOf(track.colors.at(track.colors.size() / 2)), "middle");
    QTEST(codeOf(track.colors.back()), "last");
}

void ComponentTrackTest::everyColorIsInsideTheGamut()
{
    const EditableColor color(CapturedColor::capture(0x3B82F6));
    for (const ColorComponent component :
         {ColorComponent::OklchLightness, ColorComponent::OklchChroma, ColorComponent::OklchHue}) {
        for (const Components& srgb : trackOf(color, component).colors) {
            for (const double value : srgb) {
                QVERIFY(value >= 0 && value <= 1);
            }
        }
    }
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::ComponentTrackTest)
#include "ComponentTrackTest.moc"
