#include "ContrastTexts.h"

#include "ColorContrast.h"

#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

class ContrastTextsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noNumberIsRoundedUpToALimit_data();
    void noNumberIsRoundedUpToALimit();
    void lightnessHasTwoSigns_data();
    void lightnessHasTwoSigns();
    void sentenceTellsWhatAContrastSufficesFor_data();
    void sentenceTellsWhatAContrastSufficesFor();
    void verdictIsThatOfNormalText_data();
    void verdictIsThatOfNormalText();
};

void ContrastTextsTest::noNumberIsRoundedUpToALimit_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QString>("text");
    QTest::newRow("equal colours") << 1.0 << u"1.00 : 1"_s;
    QTest::newRow("the greatest, computed") << 20.999999999999996 << u"21.00 : 1"_s;
    QTest::newRow("down") << 5.7044 << u"5.70 : 1"_s;
    QTest::newRow("up") << 5.7098 << u"5.71 : 1"_s;
    QTest::newRow("just below 3") << 2.9953 << u"2.99 : 1"_s;
    QTest::newRow("just below 4.5") << 4.4991 << u"4.49 : 1"_s;
    QTest::newRow("4.5") << 4.5 << u"4.50 : 1"_s;
    QTest::newRow("just above 4.5") << 4.5001 << u"4.50 : 1"_s;
    QTest::newRow("just below 7") << 6.9999 << u"6.99 : 1"_s;
}

void ContrastTextsTest::noNumberIsRoundedUpToALimit()
{
    QFETCH(const double, ratio);
    QTEST(ratioText(ratio), "text");
    QCOMPARE(spokenRatio(ratio), ratioText(ratio).replace(u':', u"to"_s));
}

void ContrastTextsTest::lightnessHasTwoSigns_data()
{
    QTest::addColumn<double>("lightness");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0.0 << u"Lc 0.0"_s;
    QTest::newRow("dark text") << 63.0565 << u"Lc 63.1"_s;
    QTest::newRow("light text") << -68.5415 << u"Lc −68.5"_s;
    QTest::newRow("just below a limit") << 74.98 << u"Lc 74.9"_s;
    QTest::newRow("just below a limit, light text") << -74.98 << u"Lc −74.9"_s;
    QTest::newRow("at a limit") << 75.0 << u"Lc 75.0"_s;
}

void ContrastTextsTest::lightnessHasTwoSigns()
{
    QFETCH(const double, lightness);
    QTEST(lightnessText(lightness), "text");
}

void ContrastTextsTest::sentenceTellsWhatAContrastSufficesFor_data()
{
    QTest::addColumn<double>("lightness");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("106") << 106.0 << u"Enough for any text, also small."_s;
    QTest::newRow("-90") << -90.0 << u"Enough for any text, also small."_s;
    QTest::newRow("89.9") << 89.9 << u"Enough for body text from 18\u00a0px."_s;
    QTest::newRow("-75") << -75.0 << u"Enough for body text from 18\u00a0px."_s;
    QTest::newRow("74.9") << 74.9 << u"Enough for text from 24\u00a0px, or 16\u00a0px bold."_s;
    QTest::newRow("59.9") << 59.9 << u"Enough for headlines from 36\u00a0px, or 24\u00a0px bold."_s;
    QTest::newRow("44.9") << 44.9 << u"Enough for placeholders and large icons."_s;
    QTest::newRow("29.9") << 29.9 << u"Enough for dividers, not for text."_s;
    QTest::newRow("-14.9") << -14.9 << u"Invisible to many people."_s;
    QTest::newRow("0") << 0.0 << u"Invisible to many people."_s;
}

void ContrastTextsTest::sentenceTellsWhatAContrastSufficesFor()
{
    QFETCH(const double, lightness);
    QTEST(lightnessAdvice(lightness), "sentence");
}

void ContrastTextsTest::verdictIsThatOfNormalText_data()
{
    QTest::addColumn<unsigned>("text");
    QTest::addColumn<QString>("expected");
    // Greys on white.
    QTest::newRow("7.00") << 0x595959U << u"passes AA and AAA"_s;
    QTest::newRow("4.54") << 0x767676U << u"passes AA, fails AAA"_s;
    QTest::newRow("4.48") << 0x777777U << u"fails AA and AAA"_s;
}

void ContrastTextsTest::verdictIsThatOfNormalText()
{
    QFETCH(const unsigned, text);
    QTEST(verdict(ColorContrast(CapturedColor::capture(text), CapturedColor::capture(0xFFFFFF))), "expected");
}

QTEST_APPLESS_MAIN(ContrastTextsTest)
#include "ContrastTextsTest.moc"
