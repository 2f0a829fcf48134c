#include "TintsAndShades.h"

#include <QTest>

#include <cmath>

namespace tintwick {

namespace {

Components srgbOf(const QString& code)
{
    const uint rgb = code.toUInt(nullptr, 16);
    const auto component = [rgb](unsigned shift) { return ((rgb >> shift) & 0xFFU) / 255.0; };
    return {component(16), component(8), component(0)};
}

QString codesOf(const std::array<Components, tintCount>& colors)
{
    QStringList codes;
    for (const Components& color : colors) {
        QString code;
        for (const double component : color) {
            code += QString::number(std::lround(component * 255), 16).toUpper().rightJustified(2, u'0');
        }
        codes.append(code);
    }
    return codes.join(u' ');
}

} // namespace

class TintsAndShadesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tintsGoToWhiteAndShadesToBlackInEqualSteps_data();
    void tintsGoToWhiteAndShadesToBlackInEqualSteps();
};

void TintsAndShadesTest::tintsGoToWhiteAndShadesToBlackInEqualSteps_data()
{
    QTest::addColumn<QString>("tints");
    QTest::addColumn<QString>("shades");
    const auto row = [](const char* color, const char* tints, const char* shades) {
        QTest::newRow(color) << QString::fromLatin1(tints) << QString::fromLatin1(shades);
    };
    // Worked out with the published matrices of Oklab from linear sRGB, by another program.
    row("3B82F6", "5D99FA 7EAEFD 9EC3FF BED7FF DEEBFF", "2C65C1 1E498F 112F5F 051634 01030E");
    row("D94A4A", "E36C68 EC8B85 F4A9A3 F9C5C1 FDE2E0", "AA3838 7D2727 531717 2C0808 0B0101");
    row("000000", "0F0F0F 363636 636363 949494 C8C8C8", "000000 000000 000000 000000 000000");
    row("FFFFFF", "FFFFFF FFFFFF FFFFFF FFFFFF FFFFFF", "C8C8C8 949494 636363 363636 0F0F0F");
    row("FFFF00", "FEFF61 FEFF8B FEFFAC FEFFCA FEFFE5", "C8C800 949400 636300 363600 0F0F00");
}

void TintsAndShadesTest::tintsGoToWhiteAndShadesToBlackInEqualSteps()
{
    const Components color = srgbOf(QString::fromLatin1(QTest::currentDataTag()));
    QTEST(codesOf(tintsOf(color)), "tints");
    QTEST(codesOf(shadesOf(color)), "shades");
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::TintsAndShadesTest)
#include "TintsAndShadesTest.moc"
