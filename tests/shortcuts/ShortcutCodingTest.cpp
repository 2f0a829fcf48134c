#include "ShortcutCoding.h"

#include <QTest>

#include <limits>

namespace tintwick::test {

class ShortcutCodingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesBothMembersInOrder()
    {
        QCOMPARE(toJson({8, 2560}), QStringLiteral(R"({"carbonKeyCode":8,"carbonModifiers":2560})"));
        QCOMPARE(toJson({-1, 0}), QStringLiteral(R"({"carbonKeyCode":-1,"carbonModifiers":0})"));
    }

    void readsBothMembersAsStored_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("as written") << R"({"carbonKeyCode":8,"carbonModifiers":2560})" << 8 << 2560;
        QTest::newRow("in another order") << R"({"carbonModifiers":2560,"carbonKeyCode":8})" << 8 << 2560;
        QTest::newRow("with spaces") << " { \"carbonKeyCode\" : 8 ,\n\"carbonModifiers\" : 2560 } " << 8
                                     << 2560;
        QTest::newRow("with more members") << R"({"carbonKeyCode":8,"carbonModifiers":0,"x":null})" << 8 << 0;
        QTest::newRow("not normalised") << R"({"carbonKeyCode":-5,"carbonModifiers":-1})" << -5 << -1;
        QTest::newRow("largest") << R"({"carbonKeyCode":2147483647,"carbonModifiers":-2147483648})"
                                 << 2147483647 << std::numeric_limits<int>::min();
    }
    void readsBothMembersAsStored()
    {
        QFETCH(const QString, text);
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        QCOMPARE(shortcutFromJson(text), std::optional(Shortcut{keyCode, modifiers}));
    }

    void refusesOtherTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty text") << "";
        QTest::newRow("no members") << "{}";
        QTest::newRow("no JSON") << "abc";
        QTest::newRow("false") << "false";
        QTest::newRow("a number") << "8";
        QTest::newRow("a list") << "[8,2560]";
        QTest::newRow("no modifiers") << R"({"carbonKeyCode":8})";
        QTest::newRow("no key code") << R"({"carbonModifiers":2560})";
        QTest::newRow("a fraction") << R"({"carbonKeyCode":8.5,"carbonModifiers":2560})";
        QTest::newRow("a text") << R"({"carbonKeyCode":"8","carbonModifiers":2560})";
        QTest::newRow("a boolean") << R"({"carbonKeyCode":true,"carbonModifiers":2560})";
        QTest::newRow("null") << R"({"carbonKeyCode":8,"carbonModifiers":null})";
        QTest::newRow("beyond every key code") << R"({"carbonKeyCode":4294967304,"carbonModifiers":2560})";
        QTest::newRow("beyond 64 bits signed")
            << R"({"carbonKeyCode":18446744073709551615,"carbonModifiers":0})";
        QTest::newRow("cut off") << R"({"carbonKeyCode":8,"carbonModifiers":25)";
        QTest::newRow("something after it") << R"({"carbonKeyCode":8,"carbonModifiers":2560}x)";
        QTest::newRow("another case") << R"({"CarbonKeyCode":8,"carbonModifiers":2560})";
        QTest::newRow("half a surrogate pair") << QString(QChar(0xD83C));
    }
    void refusesOtherTexts()
    {
        QFETCH(const QString, text);
        QCOMPARE(shortcutFromJson(text), std::optional<Shortcut>());
    }
};

} // namespace tintwick::test

QTEST_APPLESS_MAIN(tintwick::test::ShortcutCodingTest)
#include "ShortcutCodingTest.moc"
