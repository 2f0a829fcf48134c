#include "Shortcut.h"
#include "Modifiers.h"

#include <QKeyEvent>
#include <QTest>

namespace tintwick::test {

using namespace KeyboardShortcuts;

class ShortcutTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void constructorsKeepOnlyTheFiveModifiers()
    {
        QCOMPARE(Shortcut::fromKey({8}, 0xA0000), (Shortcut{8, 0xA00}));
        QCOMPARE(Shortcut::fromKey({8}, 0xFFFFFFFF), (Shortcut{8, 0x21B00}));
        QCOMPARE(Shortcut::fromCarbon(8, 0xA00), (Shortcut{8, 0xA00}));
        QCOMPARE(Shortcut::fromCarbon(999, -1), (Shortcut{999, 0x21B00}));
        QCOMPARE((Shortcut{8, 0xA00}).modifiers(), 0xA0000u);
    }

    void equalityAndHashTakeBothFields()
    {
        const Shortcut shortcut{8, 0xA00};
        const std::hash<Shortcut> hash;
        QVERIFY(shortcut == (Shortcut{8, 0xA00}));
        QCOMPARE(hash(shortcut), hash(Shortcut{8, 0xA00}));
        QVERIFY(shortcut != (Shortcut{9, 0xA00}));
        QVERIFY(shortcut != (Shortcut{8, 0x800}));
    }

    void keyEventsGiveTheKeysPosition_data()
    {
        QTest::addColumn<QEvent::Type>("type");
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<quint32>("scanCode");
        QTest::addColumn<std::optional<Shortcut>>("shortcut");

        using Found = std::optional<Shortcut>;
        const Qt::KeyboardModifiers none;
        QTest::newRow("press of C") << QEvent::KeyPress << int(Qt::Key_C) << none << 54u << Found({8, 0});
        QTest::newRow("release of C") << QEvent::KeyRelease << int(Qt::Key_C) << none << 54u << Found({8, 0});
        QTest::newRow("Alt is Option")
            << QEvent::KeyPress << int(Qt::Key_C)
            << Qt::KeyboardModifiers(Qt::AltModifier | Qt::ShiftModifier) << 54u << Found({8, 0xA00});
        QTest::newRow("Super is Command")
            << QEvent::KeyPress << int(Qt::Key_C) << Qt::KeyboardModifiers(Qt::MetaModifier) << 54u
            << Found({8, 0x100});
        QTest::newRow("Control") << QEvent::KeyPress << int(Qt::Key_C)
                                 << Qt::KeyboardModifiers(Qt::ControlModifier) << 54u << Found({8, 0x1000});
        QTest::newRow("keypad and group switch are no modifiers")
            << QEvent::KeyPress << int(Qt::Key_1)
            << Qt::KeyboardModifiers(Qt::KeypadModifier | Qt::GroupSwitchModifier) << 87u << Found({83, 0});
        QTest::newRow("the position counts, not what is printed there")
            << QEvent::KeyPress << int(Qt::Key_A) << none << 24u << Found({12, 0});
        QTest::newRow("a key without a name")
            << QEvent::KeyPress << int(Qt::Key_Menu) << none << 135u << Found();
        QTest::newRow("the key beside the left Shift of European keyboards")
            << QEvent::KeyPress << int(Qt::Key_Less) << none << 94u << Found({10, 0});
        QTest::newRow("a key that no keyboard sent")
            << QEvent::KeyPress << int(Qt::Key_C) << none << 0u << Found();
        QTest::newRow("another event")
            << QEvent::ShortcutOverride << int(Qt::Key_C) << none << 54u << Found();
    }
    void keyEventsGiveTheKeysPosition()
    {
        QFETCH(const QEvent::Type, type);
        QFETCH(const int, key);
        QFETCH(const Qt::KeyboardModifiers, modifiers);
        QFETCH(const quint32, scanCode);
        QFETCH(const std::optional<Shortcut>, shortcut);
        QCOMPARE(Shortcut::fromEvent(QKeyEvent(type, key, modifiers, scanCode, 0, 0)), shortcut);
    }

    void writesBothMembersInOrder()
    {
        QCOMPARE((Shortcut{8, 2560}).toJson(),
                 QStringLiteral(R"({"carbonKeyCode":8,"carbonModifiers":2560})"));
        QCOMPARE((Shortcut{-1, 0}).toJson(), QStringLiteral(R"({"carbonKeyCode":-1,"carbonModifiers":0})"));
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
        QCOMPARE(Shortcut::fromJson(text), std::optional(Shortcut{keyCode, modifiers}));
    }

    void refusesWhatIsNoShortcut_data()
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
    void refusesWhatIsNoShortcut()
    {
        QFETCH(const QString, text);
        QCOMPARE(Shortcut::fromJson(text), std::optional<Shortcut>());
    }
};

} // namespace tintwick::test

QTEST_MAIN(tintwick::test::ShortcutTest)
#include "ShortcutTest.moc"
