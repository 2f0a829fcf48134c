#include "Modifiers.h"

#include <QTest>

namespace tintwick::test {

using namespace KeyboardShortcuts;

class ModifiersTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachModifierHasOneBitInEachEncoding_data()
    {
        QTest::addColumn<quint32>("flags");
        QTest::addColumn<int>("carbon");
        QTest::newRow("none") << 0u << 0;
        QTest::newRow("Shift") << 0x20000u << 0x200;
        QTest::newRow("Control") << 0x40000u << 0x1000;
        QTest::newRow("Option") << 0x80000u << 0x800;
        QTest::newRow("Command") << 0x100000u << 0x100;
        QTest::newRow("Function") << 0x800000u << 0x20000;
        QTest::newRow("Option and Shift") << 0xA0000u << 0xA00;
        QTest::newRow("all five") << 0x9E0000u << 0x21B00;
    }
    void eachModifierHasOneBitInEachEncoding()
    {
        QFETCH(const quint32, flags);
        QFETCH(const int, carbon);
        QCOMPARE(carbonModifiers(flags), carbon);
        QCOMPARE(eventFlags(carbon), flags);
        QCOMPARE(normalizedCarbonModifiers(carbon), carbon);
    }

    void everyOtherBitIsDropped_data()
    {
        QTest::addColumn<quint32>("flags");
        QTest::addColumn<int>("carbonOfFlags");
        QTest::addColumn<int>("mask");
        QTest::addColumn<int>("normalized");
        QTest::newRow("Caps Lock, numeric pad, Caps Lock") << 0x210000u << 0 << 0x400 << 0;
        QTest::newRow("everything") << 0xFFFFFFFFu << 0x21B00 << -1 << 0x21B00;
        QTest::newRow("Shift among others") << 0x30102u << 0x200 << 0xC6200 << 0x200;
    }
    void everyOtherBitIsDropped()
    {
        QFETCH(const quint32, flags);
        QFETCH(const int, carbonOfFlags);
        QFETCH(const int, mask);
        QFETCH(const int, normalized);
        QCOMPARE(carbonModifiers(flags), carbonOfFlags);
        QCOMPARE(normalizedCarbonModifiers(mask), normalized);
    }
};

} // namespace tintwick::test

QTEST_APPLESS_MAIN(tintwick::test::ModifiersTest)
#include "ModifiersTest.moc"
