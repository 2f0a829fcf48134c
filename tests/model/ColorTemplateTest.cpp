#include "ColorTemplate.h"

#include "CapturedColor.h"

#include <QTest>

namespace tintwick {

using namespace Qt::StringLiterals;

class ColorTemplateTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fieldsAreFilled_data();
    void fieldsAreFilled();
    void invalidPartsStayAndAreNamed_data();
    void invalidPartsStayAndAreNamed();
};

void ColorTemplateTest::fieldsAreFilled_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("") << QString();
    QTest::newRow("no fields") << u"no fields"_s;
    QTest::newRow("{r} {g:02x} {h:.1} {name} {slug}") << u"59 82 217.2 Sea/Sky 2 seasky-2"_s;
    QTest::newRow("#{r:02X}{g:02X}{b:02X}{a:02X}") << u"#3B82F680"_s;
    QTest::newRow("{r:5}|{r:05}|{r:.2}|{r:08.2}") << u"   59|00059|59.00|00059.00"_s;
    QTest::newRow("{rf} {gf} {bf} {a}") << u"0.231 0.510 0.965 0.50"_s;
    QTest::newRow("{rf:x} {bf:X} {rf:.5}") << u"3b F6 0.23137"_s;
    QTest::newRow("{h} {s} {l}") << u"217 91 60"_s;
    QTest::newRow("{h:.3} {sv:.1} {v:.1}") << u"217.219 76.0 96.5"_s;
    QTest::newRow("{c} {m} {y} {k}") << u"76 47 0 4"_s;
    QTest::newRow("{L} {C} {H}") << u"0.623 0.188 259.81"_s;
    QTest::newRow("{hex} {hex:x} {tailwind}") << u"3B82F6 3b82f6 blue-500"_s;
    QTest::newRow("{{r}} = {r}; {{{{") << u"{r} = 59; {{"_s;
    QTest::newRow("{{{r}}}") << u"{59}"_s;
}

void ColorTemplateTest::fieldsAreFilled()
{
    CapturedColor color = CapturedColor::capture(0x3B82F6);
    color.alpha = 0.5;
    color.customName = u"Sea/Sky 2"_s;
    const auto text = QString::fromUtf8(QTest::currentDataTag());
    QTEST(filledTemplate(text, color), "text");
    QCOMPARE(invalidTemplatePart(text), std::nullopt);
}

void ColorTemplateTest::invalidPartsStayAndAreNamed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("part");
    QTest::newRow("{red}") << u"{red}"_s << u"{red}"_s;
    QTest::newRow("{r} {R} {q}") << u"59 {R} {q}"_s << u"{R}"_s;
    QTest::newRow("{r") << u"{r"_s << u"{"_s;
    QTest::newRow("r} {r}") << u"r} 59"_s << u"}"_s;
    QTest::newRow("{}") << u"{}"_s << u"{}"_s;
    QTest::newRow("{r:}") << u"{r:}"_s << u"{r:}"_s;
    QTest::newRow("{h:x}") << u"{h:x}"_s << u"{h:x}"_s;
    QTest::newRow("{r:.2x}") << u"{r:.2x}"_s << u"{r:.2x}"_s;
    QTest::newRow("{r:999999999}") << u"{r:999999999}"_s << u"{r:999999999}"_s;
    QTest::newRow("{name:x}") << u"{name:x}"_s << u"{name:x}"_s;
    QTest::newRow("{hex:02x}") << u"{hex:02x}"_s << u"{hex:02x}"_s;
}

void ColorTemplateTest::invalidPartsStayAndAreNamed()
{
    const auto text = QString::fromUtf8(QTest::currentDataTag());
    QTEST(filledTemplate(text, CapturedColor::capture(0x3B82F6)), "text");
    QFETCH(const QString, part);
    QCOMPARE(invalidTemplatePart(text), part);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::ColorTemplateTest)
#include "ColorTemplateTest.moc"
