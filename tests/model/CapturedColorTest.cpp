#include "CapturedColor.h"
#include "UtcDateTime.h"

#include "support/ForkedChild.h"

#include <QLocale>
#include <QTest>

#include <clocale>
#include <csignal>
#include <limits>

namespace tintwick {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

CapturedColor colorOf(double red, double green, double blue, double alpha = 1)
{
    return {QUuid(), red, green, blue, alpha, QDateTime(), std::nullopt};
}

} // namespace

class CapturedColorTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void capturingClampsEachComponent_data();
    void capturingClampsEachComponent();
    void everyCaptureHasItsOwnId();
    void recordsAreEqualWhenAllFieldsAre();
    void textsOfAColor_data();
    void textsOfAColor();
    void alphaIsWrittenWithTwoDecimals_data();
    void alphaIsWrittenWithTwoDecimals();
    void textsAreIndependentOfTheLocale();
    void outOfRangeComponentsAreFormattedWithoutOverflow();
    void aNonFiniteComponentAborts_data();
    void aNonFiniteComponentAborts();
};

void CapturedColorTest::capturingClampsEachComponent_data()
{
    QTest::addColumn<double>("given");
    QTest::addColumn<double>("stored");
    QTest::newRow("below the range") << -0.25 << 0.0;
    QTest::newRow("zero") << 0.0 << 0.0;
    QTest::newRow("smallest positive") << 5e-324 << 5e-324;
    QTest::newRow("inside") << 0.4 << 0.4;
    QTest::newRow("one") << 1.0 << 1.0;
    QTest::newRow("just above one") << 1.0000000000000002 << 1.0;
    QTest::newRow("extended range") << 7.5 << 1.0;
    QTest::newRow("infinite") << infinity << 1.0;
    QTest::newRow("negative infinite") << -infinity << 0.0;
    QTest::newRow("not a number") << notANumber << 0.0;
}

void CapturedColorTest::capturingClampsEachComponent()
{
    QFETCH(double, given);
    QFETCH(double, stored);
    QCOMPARE(CapturedColor::capture(given, 0.5, 0.5, 0.5).red, stored);
    QCOMPARE(CapturedColor::capture(0.5, given, 0.5, 0.5).green, stored);
    QCOMPARE(CapturedColor::capture(0.5, 0.5, given, 0.5).blue, stored);
    QCOMPARE(CapturedColor::capture(0.5, 0.5, 0.5, given).alpha, stored);
    QCOMPARE(CapturedColor::capture(given, 0.5, 0.5, 0.5).green, 0.5);
}

void CapturedColorTest::everyCaptureHasItsOwnId()
{
    const QDateTime before = QDateTime::currentDateTimeUtc();
    const CapturedColor first = CapturedColor::capture(0.1, 0.2, 0.3, 1);
    const CapturedColor second = CapturedColor::capture(0.1, 0.2, 0.3, 1);
    const QDateTime after = QDateTime::currentDateTimeUtc();

    QVERIFY(!first.id.isNull());
    QVERIFY(first.id != second.id);
    QVERIFY(first != second);
    QVERIFY(first.capturedAt >= before && first.capturedAt <= after);
    QVERIFY(!first.customName.has_value());
}

void CapturedColorTest::recordsAreEqualWhenAllFieldsAre()
{
    const CapturedColor color{QUuid(QStringLiteral("{0bd3f0a0-7c65-4b8e-9c5e-5d1f6a3b2c10}")),
                              0.1,
                              0.2,
                              0.3,
                              0.4,
                              utcDateTime(QDate(2025, 3, 14), QTime(9, 26, 53)),
                              QStringLiteral("Ocean")};
    const CapturedColor copy = color;
    QCOMPARE(copy, color);
    QCOMPARE(qHash(copy), qHash(color));

    const auto differs = [&](auto change) {
        CapturedColor changed = color;
        change(changed);
        return changed != color;
    };
    QVERIFY(differs([](CapturedColor& c) { c.id = QUuid::createUuid(); }));
    QVERIFY(differs([](CapturedColor& c) { c.red = 0.11; }));
    QVERIFY(differs([](CapturedColor& c) { c.green = 0.21; }));
    QVERIFY(differs([](CapturedColor& c) { c.blue = 0.31; }));
    QVERIFY(differs([](CapturedColor& c) { c.alpha = 0.41; }));
    QVERIFY(differs([](CapturedColor& c) { c.capturedAt = c.capturedAt.addMSecs(1); }));
    QVERIFY(differs([](CapturedColor& c) { c.customName.reset(); }));
}

void CapturedColorTest::textsOfAColor_data()
{
    QTest::addColumn<double>("red");
    QTest::addColumn<double>("green");
    QTest::addColumn<double>("blue");
    QTest::addColumn<double>("alpha");
    QTest::addColumn<QString>("hex8");
    QTest::addColumn<QString>("rgba");
    QTest::addColumn<QString>("hsla");

    const auto row = [](const char* name, double red, double green, double blue, double alpha,
                        const char* hex8, const char* rgba, const char* hsla) {
        QTest::newRow(name) << red << green << blue << alpha << QString::fromLatin1(hex8)
                            << QString::fromLatin1(rgba) << QString::fromLatin1(hsla);
    };
    row("white", 1, 1, 1, 1, "#FFFFFFFF", "rgba(255, 255, 255, 1.00)", "hsla(0, 0%, 100%, 1.00)");
    row("black", 0, 0, 0, 1, "#000000FF", "rgba(0, 0, 0, 1.00)", "hsla(0, 0%, 0%, 1.00)");
    row("transparent", 0, 0, 0, 0, "#00000000", "rgba(0, 0, 0, 0.00)", "hsla(0, 0%, 0%, 0.00)");
    row("half is rounded up", 0.5, 0.5, 0.5, 0.5, "#80808080", "rgba(128, 128, 128, 0.50)",
        "hsla(0, 0%, 50%, 0.50)");
    row("bytes 0.5 and 254.5", 1 / 510.0, 254.5 / 255, 0, 1, "#01FF00FF", "rgba(1, 255, 0, 1.00)",
        "hsla(120, 100%, 50%, 1.00)");
    row("red", 1, 0, 0, 1, "#FF0000FF", "rgba(255, 0, 0, 1.00)", "hsla(0, 100%, 50%, 1.00)");
    row("green", 0, 1, 0, 1, "#00FF00FF", "rgba(0, 255, 0, 1.00)", "hsla(120, 100%, 50%, 1.00)");
    row("blue", 0, 0, 1, 1, "#0000FFFF", "rgba(0, 0, 255, 1.00)", "hsla(240, 100%, 50%, 1.00)");
    row("magenta: red precedes blue", 1, 0, 1, 1, "#FF00FFFF", "rgba(255, 0, 255, 1.00)",
        "hsla(300, 100%, 50%, 1.00)");
    row("yellow: red precedes green", 1, 1, 0, 1, "#FFFF00FF", "rgba(255, 255, 0, 1.00)",
        "hsla(60, 100%, 50%, 1.00)");
    row("cyan: green precedes blue", 0, 1, 1, 1, "#00FFFFFF", "rgba(0, 255, 255, 1.00)",
        "hsla(180, 100%, 50%, 1.00)");
    row("hue 359.6 is 360", 1, 0, 0.4 / 60, 1, "#FF0002FF", "rgba(255, 0, 2, 1.00)",
        "hsla(360, 100%, 50%, 1.00)");
    row("hue 359.4 is 359", 1, 0, 0.6 / 60, 1, "#FF0003FF", "rgba(255, 0, 3, 1.00)",
        "hsla(359, 100%, 50%, 1.00)");
    row("saturation 12.5 %", 0.5625, 0.4375, 0.4375, 1, "#8F7070FF", "rgba(143, 112, 112, 1.00)",
        "hsla(0, 13%, 50%, 1.00)");
    row("lightness 12.5 %", 0.125, 0.125, 0.125, 1, "#202020FF", "rgba(32, 32, 32, 1.00)",
        "hsla(0, 0%, 13%, 1.00)");
    row("a palette blue", 59 / 255.0, 130 / 255.0, 246 / 255.0, 1, "#3B82F6FF", "rgba(59, 130, 246, 1.00)",
        "hsla(217, 91%, 60%, 1.00)");
    row("dodger blue", 30 / 255.0, 144 / 255.0, 1, 1, "#1E90FFFF", "rgba(30, 144, 255, 1.00)",
        "hsla(210, 100%, 56%, 1.00)");
    row("olive", 120 / 255.0, 155 / 255.0, 52 / 255.0, 1, "#789B34FF", "rgba(120, 155, 52, 1.00)",
        "hsla(80, 50%, 41%, 1.00)");
    row("lime", 202 / 255.0, 245 / 255.0, 79 / 255.0, 1, "#CAF54FFF", "rgba(202, 245, 79, 1.00)",
        "hsla(76, 89%, 64%, 1.00)");
    row("gold", 205 / 255.0, 148 / 255.0, 30 / 255.0, 1, "#CD941EFF", "rgba(205, 148, 30, 1.00)",
        "hsla(40, 74%, 46%, 1.00)");
    row("sea green", 113 / 255.0, 184 / 255.0, 141 / 255.0, 1, "#71B88DFF", "rgba(113, 184, 141, 1.00)",
        "hsla(144, 33%, 58%, 1.00)");
    row("alpha too small for its decimals", 0, 0, 0, 0.004, "#00000001", "rgba(0, 0, 0, 0.00)",
        "hsla(0, 0%, 0%, 0.00)");
    row("too dark for a saturation", 1e-300, 0, 0, 1, "#000000FF", "rgba(0, 0, 0, 1.00)",
        "hsla(0, 0%, 0%, 1.00)");
}

void CapturedColorTest::textsOfAColor()
{
    QFETCH(double, red);
    QFETCH(double, green);
    QFETCH(double, blue);
    QFETCH(double, alpha);
    QFETCH(QString, hex8);
    QFETCH(QString, rgba);
    QFETCH(QString, hsla);

    const CapturedColor color = colorOf(red, green, blue, alpha);
    QCOMPARE(color.hex8(), hex8);
    QCOMPARE(color.hex6(), hex8.left(7));
    QCOMPARE(color.cssRGBA(), rgba);
    QCOMPARE(color.cssRGB(), QStringLiteral("rgb") + rgba.sliced(4, rgba.lastIndexOf(u',') - 4) + u')');
    QCOMPARE(color.cssHSLA(), hsla);
    QCOMPARE(color.cssHSL(), QStringLiteral("hsl") + hsla.sliced(4, hsla.lastIndexOf(u',') - 4) + u')');
}

void CapturedColorTest::alphaIsWrittenWithTwoDecimals_data()
{
    QTest::addColumn<double>("alpha");
    QTest::addColumn<QString>("text");
    // Rounded as by printf: the exact value of the float counts, and ties round to the even digit.
    QTest::newRow("0.05") << 0.05 << QStringLiteral("0.05");
    QTest::newRow("0.005") << 0.005 << QStringLiteral("0.01");
    QTest::newRow("0.015") << 0.015 << QStringLiteral("0.01");
    QTest::newRow("0.995") << 0.995 << QStringLiteral("0.99");
    QTest::newRow("0.999") << 0.999 << QStringLiteral("1.00");
    QTest::newRow("tie 0.125") << 0.125 << QStringLiteral("0.12");
    QTest::newRow("tie 0.375") << 0.375 << QStringLiteral("0.38");
    QTest::newRow("tie 0.625") << 0.625 << QStringLiteral("0.62");
    QTest::newRow("tie 0.875") << 0.875 << QStringLiteral("0.88");
}

void CapturedColorTest::alphaIsWrittenWithTwoDecimals()
{
    QFETCH(double, alpha);
    QFETCH(QString, text);
    QCOMPARE(colorOf(0, 0, 0, alpha).cssRGBA(), QStringLiteral("rgba(0, 0, 0, ") + text + u')');
    QCOMPARE(colorOf(0, 0, 0, alpha).cssHSLA(), QStringLiteral("hsla(0, 0%, 0%, ") + text + u')');
}

void CapturedColorTest::textsAreIndependentOfTheLocale()
{
    const QLocale previous;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    const bool hasCommaLocale = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr;
    const QString text = colorOf(1, 0, 0, 0.5).cssRGBA();
    if (hasCommaLocale) {
        std::setlocale(LC_NUMERIC, "C");
    }
    QLocale::setDefault(previous);
    QCOMPARE(text, QStringLiteral("rgba(255, 0, 0, 0.50)"));
}

void CapturedColorTest::outOfRangeComponentsAreFormattedWithoutOverflow()
{
    QCOMPARE(colorOf(2, 0, 0).hex6(), QStringLiteral("#1FE0000"));
    QCOMPARE(colorOf(2, -1, 0).cssRGB(), QStringLiteral("rgb(510, -255, 0)"));
    QCOMPARE(colorOf(1e300, -1e308, 0).cssRGB(), QStringLiteral("rgb(2147483647, -2147483648, 0)"));
    const double largest = std::numeric_limits<double>::max();
    for (const double red : {2.0, -1.0, 1e300, largest, -largest}) {
        for (const double green : {0.0, 2.0, largest, -largest}) {
            const CapturedColor color = colorOf(red, green, 0, largest);
            QVERIFY(!color.cssHSLA().isEmpty());
            QVERIFY(!color.hex8().isEmpty());
        }
    }
}

void CapturedColorTest::aNonFiniteComponentAborts_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("end");
    QTest::newRow("not a number") << notANumber << SIGABRT;
    QTest::newRow("infinite") << infinity << SIGABRT;
    QTest::newRow("negative infinite") << -infinity << SIGABRT;
    QTest::newRow("finite") << 0.5 << 0;
}

void CapturedColorTest::aNonFiniteComponentAborts()
{
    QFETCH(double, value);
    QFETCH(int, end);
    const auto endOf = [](auto format) {
        return test::runInChild([&] {
                   format();
                   return QByteArray();
               })
            .signal;
    };
    QCOMPARE(endOf([&] { static_cast<void>(colorOf(value, 0, 0).hex6()); }), end);
    QCOMPARE(endOf([&] { static_cast<void>(colorOf(0, value, 0).cssRGB()); }), end);
    QCOMPARE(endOf([&] { static_cast<void>(colorOf(0, 0, value).cssHSL()); }), end);
    QCOMPARE(endOf([&] { static_cast<void>(colorOf(0, 0, 0, value).hex8()); }), end);
    QCOMPARE(endOf([&] { static_cast<void>(colorOf(0, 0, 0, value).cssHSLA()); }), end);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::CapturedColorTest)
#include "CapturedColorTest.moc"
