#include "ColorFormat.h"

#include "CapturedColor.h"

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
};

void ColorFormatTest::formatsAreListedInOrder()
{
    QStringList labels;
    for (const ColorFormat format : allColorFormats) {
        labels += rawValue(format);
    }
    QCOMPARE(labels, QStringLiteral("HEX|HEX+A|RGB|RGBA|HSL|HSLA|CSS Var|Tailwind|Name").split(u'|'));
}

void ColorFormatTest::storedTextsMatchExactly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("position");
    const QStringList known = QStringLiteral("HEX|HEX+A|RGB|RGBA|HSL|HSLA|CSS Var|Tailwind|Name").split(u'|');
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

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::ColorFormatTest)
#include "ColorFormatTest.moc"
