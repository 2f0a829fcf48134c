#include "ColorFormat.h"

#include "CapturedColor.h"
#include "ColorText.h"

#include <QTest>

#include <algorithm>

namespace tintwick {

class ColorFormatTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formatsAreListedInOrder();
    void storedTextsMatchExactly_data();
    void storedTextsMatchExactly();
    void colorsAreFormatted_data();
    void colorsAreFormatted();
    void anUnnamedVariableUsesTheGivenName();
    void browsersReadTheColorBack_data();
    void browsersReadTheColorBack();
};

void ColorFormatTest::formatsAreListedInOrder()
{
    QStringList labels;
    for (const ColorFormat format : allColorFormats) {
        labels += rawValue(format);
    }
    QCOMPARE(labels, QStringLiteral("HEX|HEX+A|RGB|RGBA|HSL|HSLA|CSS Var|Tailwind|Name|OKLCH|RGB modern|HSV|"
                                    "CMYK naive|HEX lower|HEX bare|0xAARRGGBB|Floats|Template")
                         .split(u'|'));
    QVERIFY(isKnownToAllVersions(ColorFormat::ColorName));
    QVERIFY(!isKnownToAllVersions(ColorFormat::Oklch));
}

void ColorFormatTest::storedTextsMatchExactly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("position");
    const QStringList known =
        QStringLiteral("HEX|HEX+A|RGB|RGBA|HSL|HSLA|CSS Var|Tailwind|Name|OKLCH").split(u'|');
    for (int i = 0; i < known.size(); ++i) {
        QTest::newRow(qPrintable(known[i])) << known[i] << i;
    }
    for (const char* text :
         {"", "hex", "Hex", "HEX ", " HEX", "HEX+a", "CSS var", "CSSVar", "tailwind", "NAME", "hex6"}) {
        QTest::newRow(qPrintable(QStringLiteral("refused: '%1'").arg(QLatin1StringView(text))))
            << QString::fromLatin1(text) << -1;
    }
}

void ColorFormatTest::storedTextsMatchExactly()
{
    QFETCH(QString, text);
    QFETCH(int, position);
    const auto format = colorFormatFromRawValue(text);
    QCOMPARE(format.has_value(), position >= 0);
    if (format) {
        QCOMPARE(static_cast<int>(std::ranges::find(allColorFormats, *format) - allColorFormats.begin()),
                 position);
    }
}

void ColorFormatTest::colorsAreFormatted_data()
{
    QTest::addColumn<ColorFormat>("format");
    QTest::addColumn<uint>("rgb");
    QTest::addColumn<double>("alpha");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");

    const auto row = [](const char* title, ColorFormat format, uint rgb, double alpha, const char* name,
                        const char* text) {
        QTest::newRow(title) << format << rgb << alpha << (name ? QString::fromUtf8(name) : QString())
                             << QString::fromUtf8(text);
    };
    using enum ColorFormat;
    const char* const unnamed = nullptr;
    row("hex", Hex6, 0x3B82F6, 1, unnamed, "#3B82F6");
    row("hex ignores alpha", Hex6, 0x3B82F6, 0.5, unnamed, "#3B82F6");
    row("hex with alpha, opaque", Hex8, 0x3B82F6, 1, unnamed, "#3B82F6");
    row("hex with alpha, almost opaque", Hex8, 0x3B82F6, 0.999, unnamed, "#3B82F6FF");
    row("hex with alpha, half", Hex8, 0x3B82F6, 0.5, unnamed, "#3B82F680");
    row("hex with alpha, beyond opaque", Hex8, 0x3B82F6, 1.5, unnamed, "#3B82F6");
    row("rgb", Rgb, 0x3B82F6, 0.5, unnamed, "rgb(59, 130, 246)");
    row("rgba, opaque", Rgba, 0x3B82F6, 1, unnamed, "rgba(59, 130, 246, 1.00)");
    row("hsl", Hsl, 0x3B82F6, 0.5, unnamed, "hsl(217, 91%, 60%)");
    row("hsla, opaque", Hsla, 0x3B82F6, 1, unnamed, "hsla(217, 91%, 60%, 1.00)");
    row("variable", CssVar, 0x38BDF8, 1, "Sky Accent", "--sky-accent: #38BDF8;");
    row("variable without a name", CssVar, 0x38BDF8, 0.5, unnamed, "--color: #38BDF8;");
    row("variable drops punctuation", CssVar, 0x38BDF8, 1, "Brand Primary!", "--brand-primary: #38BDF8;");
    row("variable of punctuation only", CssVar, 0x38BDF8, 1, "!?", "--: #38BDF8;");
    row("variable of a table name", CssVar, 0x1E90FF, 1, "Dodger Blue", "--dodger-blue: #1E90FF;");
    row("tailwind", Tailwind, 0x3B82F6, 1, "Mine", "blue-500");
    row("tailwind of white", Tailwind, 0xFFFFFF, 1, unnamed, "zinc-50");
    row("custom name", ColorName, 0x1E90FF, 1, "Brand Primary!", "Brand Primary!");
    row("name of the table", ColorName, 0x1E90FF, 1, unnamed, "Dodger Blue");
    // Values of the browsers' developer tools.
    row("oklch", Oklch, 0x3B82F6, 1, unnamed, "oklch(62.308% 0.18801 259.815)");
    row("oklch, half", Oklch, 0xFF0000, 0.5, unnamed, "oklch(62.796% 0.25768 29.234 / 50%)");
    row("oklch of white", Oklch, 0xFFFFFF, 1, unnamed, "oklch(100% 0 0)");
    row("oklch of a grey", Oklch, 0x808080, 1, unnamed, "oklch(59.987% 0 0)");
    row("modern rgb", ModernRgb, 0x3B82F6, 1, unnamed, "rgb(59 130 246)");
    row("modern rgb, half", ModernRgb, 0x3B82F6, 0.5, unnamed, "rgb(59 130 246 / 50%)");
    row("modern rgb, a third", ModernRgb, 0x3B82F6, 1.0 / 3, unnamed, "rgb(59 130 246 / 33.33%)");
    row("modern rgb, beyond opaque", ModernRgb, 0x3B82F6, 1.5, unnamed, "rgb(59 130 246)");
    row("hsv", Hsv, 0x3B82F6, 0.5, unnamed, "hsv(217, 76%, 96%)");
    row("hsv of black", Hsv, 0x000000, 1, unnamed, "hsv(0, 0%, 0%)");
    row("cmyk", NaiveCmyk, 0x3B82F6, 1, unnamed, "cmyk(76%, 47%, 0%, 4%)");
    row("cmyk of black", NaiveCmyk, 0x000000, 1, unnamed, "cmyk(0%, 0%, 0%, 100%)");
    row("lower hex", LowerHex, 0x3B82F6, 0.5, unnamed, "#3b82f6");
    row("bare hex", BareHex, 0x3B82F6, 1, unnamed, "3B82F6");
    row("argb", Argb, 0x3B82F6, 1, unnamed, "0xFF3B82F6");
    row("argb, half", Argb, 0x0B0C0D, 0.5, unnamed, "0x800B0C0D");
    row("argb, clear", Argb, 0x0B0C0D, 0, unnamed, "0x000B0C0D");
    row("floats", Floats, 0x3B82F6, 1, unnamed, "0.231, 0.510, 0.965");
    row("template", Template, 0x1E90FF, 1, unnamed, "Dodger Blue: #1E90FF");
}

void ColorFormatTest::colorsAreFormatted()
{
    QFETCH(ColorFormat, format);
    QFETCH(uint, rgb);
    QFETCH(double, alpha);
    QFETCH(QString, name);
    QFETCH(QString, text);
    CapturedColor color =
        CapturedColor::capture((rgb >> 16) / 255.0, (rgb >> 8 & 0xFF) / 255.0, (rgb & 0xFF) / 255.0, 1);
    color.alpha = alpha;
    if (!name.isNull()) {
        color.customName = name;
    }
    QCOMPARE(string(format, color, QStringLiteral("color")), text);
}

void ColorFormatTest::anUnnamedVariableUsesTheGivenName()
{
    const CapturedColor color = CapturedColor::capture(0, 0, 0, 1);
    QCOMPARE(string(ColorFormat::CssVar, color, QStringLiteral("My Colour!")),
             QStringLiteral("--My Colour!: #000000;"));
}

void ColorFormatTest::browsersReadTheColorBack_data()
{
    QTest::addColumn<ColorFormat>("format");
    QTest::newRow("OKLCH") << ColorFormat::Oklch;
    QTest::newRow("modern RGB") << ColorFormat::ModernRgb;
}

void ColorFormatTest::browsersReadTheColorBack()
{
    QFETCH(const ColorFormat, format);
    for (unsigned rgb = 0; rgb <= 0xFFFFFF; rgb += 0x1355) {
        const CapturedColor color = CapturedColor::capture(rgb);
        const auto read = colorFromText(string(format, color));
        QVERIFY(read);
        QCOMPARE(read->color.hex6(), color.hex6());
    }
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::ColorFormatTest)
#include "ColorFormatTest.moc"
