#include "MenuConflict.h"
#include "support/ScriptedKeyboardLayout.h"

#include <QTest>

namespace tintwick::test {

using namespace KeyboardShortcuts;

class MenuConflictTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheItemThatTheCombinationWouldTrigger_data()
    {
        QTest::addColumn<QString>("keyEquivalent");
        QTest::addColumn<quint32>("itemModifiers");
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("found");

        constexpr quint32 shift = 0x20000, command = 0x100000;
        QTest::newRow("Command Q") << "q" << command << 12 << 0x100 << true;
        QTest::newRow("another modifier") << "q" << command << 12 << 0x1000 << false;
        QTest::newRow("one modifier more") << "q" << command << 12 << 0x900 << false;
        QTest::newRow("one modifier less") << "q" << (command | 0x80000u) << 12 << 0x100 << false;
        QTest::newRow("another key") << "q" << command << 8 << 0x100 << false;
        QTest::newRow("a capital letter includes Shift") << "Q" << command << 12 << 0x300 << true;
        QTest::newRow("a capital letter, Shift in the mask too")
            << "Q" << (command | shift) << 12 << 0x300 << true;
        QTest::newRow("a capital letter without Shift pressed") << "Q" << command << 12 << 0x100 << false;
        QTest::newRow("a small letter with Shift in the mask")
            << "q" << (command | shift) << 12 << 0x300 << true;
        QTest::newRow("a small letter with Shift pressed") << "q" << command << 12 << 0x300 << false;
        QTest::newRow("Return") << "\r" << command << 36 << 0x100 << true;
        QTest::newRow("keypad Enter is not Return") << "\r" << command << 76 << 0x100 << false;
        QTest::newRow("keypad Enter") << "\u0003" << command << 76 << 0x100 << true;
        QTest::newRow("Escape") << "\u001B" << 0u << 53 << 0 << true;
        QTest::newRow("F5") << "\uF708" << 0u << 96 << 0 << true;
        QTest::newRow("F20") << "\uF717" << 0u << 90 << 0 << true;
        QTest::newRow("Delete forward") << "\uF728" << 0u << 117 << 0 << true;
        QTest::newRow("Space") << " " << command << 49 << 0x100 << true;
        QTest::newRow("a digit of the keypad") << "7" << command << 89 << 0x100 << true;
        QTest::newRow("an item without a key") << "" << 0u << 12 << 0 << false;
        QTest::newRow("an item without a key and a key without a character") << "" << 0u << 10 << 0 << false;
    }
    void findsTheItemThatTheCombinationWouldTrigger()
    {
        QFETCH(const QString, keyEquivalent);
        QFETCH(const quint32, itemModifiers);
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        QFETCH(const bool, found);
        ScriptedKeyboardLayout layout;
        layout.characters = {{12, QStringLiteral("q")}, {8, QStringLiteral("c")}};
        const std::vector<MenuItem> menu{{QStringLiteral("Item"), keyEquivalent, itemModifiers}};
        const auto* item = menuItemWithMatchingShortcut({keyCode, modifiers}, menu, layout);
        QCOMPARE(item, found ? &menu.front() : nullptr);
    }

    void searchesFromTopToBottomAndAnItemBeforeItsSubmenu()
    {
        ScriptedKeyboardLayout layout;
        layout.characters = {{12, QStringLiteral("q")},
                             {8, QStringLiteral("c")},
                             {43, QStringLiteral(",")},
                             {35, QStringLiteral("p")}};
        constexpr quint32 command = 0x100000;
        const auto item = [](QString title, QString key, std::vector<MenuItem> submenu = {}) {
            return MenuItem{std::move(title), std::move(key), command, std::move(submenu)};
        };
        const std::vector<MenuItem> menu{
            item(QStringLiteral("File"), QString(),
                 {item(QStringLiteral("New"), QStringLiteral("c")),
                  item(QStringLiteral("Share"), QStringLiteral("p"),
                       {item(QStringLiteral("Print"), QStringLiteral("p"))})}),
            item(QStringLiteral("Copy"), QStringLiteral("c")),
            item(QStringLiteral("Quit"), QStringLiteral("q")),
        };
        const auto titleFor = [&](int keyCode) {
            const auto* found = menuItemWithMatchingShortcut({keyCode, 0x100}, menu, layout);
            return found ? found->title : QString();
        };
        QCOMPARE(titleFor(8), QStringLiteral("New"));
        QCOMPARE(titleFor(35), QStringLiteral("Share"));
        QCOMPARE(titleFor(12), QStringLiteral("Quit"));
        QCOMPARE(titleFor(43), QString());
    }
};

} // namespace tintwick::test

QTEST_APPLESS_MAIN(tintwick::test::MenuConflictTest)
#include "MenuConflictTest.moc"
