#include "MenuItemsOf.h"

#include <QAction>
#include <QMenu>
#include <QTest>

namespace tintwick::test {

using namespace KeyboardShortcuts;

class MenuItemsOfTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anItemHasTheKeyThatTheMenuShows_data()
    {
        QTest::addColumn<QKeySequence>("keys");
        QTest::addColumn<QString>("keyEquivalent");
        QTest::addColumn<quint32>("modifiers");

        constexpr quint32 shift = 0x20000, control = 0x40000, option = 0x80000, command = 0x100000;
        QTest::newRow("none") << QKeySequence() << "" << 0u;
        QTest::newRow("Ctrl Q") << QKeySequence(Qt::CTRL | Qt::Key_Q) << "q" << control;
        QTest::newRow("Ctrl comma") << QKeySequence(Qt::CTRL | Qt::Key_Comma) << "," << control;
        QTest::newRow("Ctrl Shift Q")
            << QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Q) << "q" << (control | shift);
        QTest::newRow("Alt 1") << QKeySequence(Qt::ALT | Qt::Key_1) << "1" << option;
        QTest::newRow("Meta Ü") << QKeySequence(Qt::META | Qt::Key_Udiaeresis) << "ü" << command;
        QTest::newRow("F1") << QKeySequence(Qt::Key_F1) << "\uF704" << 0u;
        QTest::newRow("F20") << QKeySequence(Qt::Key_F20) << "\uF717" << 0u;
        QTest::newRow("F21 has no position") << QKeySequence(Qt::Key_F21) << "" << 0u;
        QTest::newRow("Delete") << QKeySequence(Qt::Key_Delete) << "\uF728" << 0u;
        QTest::newRow("Backspace") << QKeySequence(Qt::Key_Backspace) << "\b" << 0u;
        QTest::newRow("Ctrl Space") << QKeySequence(Qt::CTRL | Qt::Key_Space) << " " << control;
        QTest::newRow("Ctrl Return") << QKeySequence(Qt::CTRL | Qt::Key_Return) << "\r" << control;
        QTest::newRow("Alt Left") << QKeySequence(Qt::ALT | Qt::Key_Left) << "\uF702" << option;
        QTest::newRow("a media key") << QKeySequence(Qt::Key_MediaPlay) << "" << 0u;
        QTest::newRow("two keys one after the other")
            << QKeySequence(Qt::CTRL | Qt::Key_K, Qt::CTRL | Qt::Key_C) << "" << 0u;
    }
    void anItemHasTheKeyThatTheMenuShows()
    {
        QFETCH(const QKeySequence, keys);
        QFETCH(const QString, keyEquivalent);
        QFETCH(const quint32, modifiers);
        QMenu menu;
        menu.addAction(QStringLiteral("Item"))->setShortcut(keys);
        const auto items = menuItemsOf(menu);
        QCOMPARE(items.size(), std::size_t{1});
        QCOMPARE(items[0].keyEquivalent, keyEquivalent);
        if (!keyEquivalent.isEmpty()) {
            QCOMPARE(items[0].modifiers, modifiers);
        }
    }

    void titlesAreAsTheUserReadsThem_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("title");
        QTest::newRow("plain") << "Quit Tintwick"
                               << "Quit Tintwick";
        QTest::newRow("with an underlined letter") << "&Quit"
                                                   << "Quit";
        QTest::newRow("with an ampersand") << "Cut && Paste"
                                           << "Cut & Paste";
        QTest::newRow("with an ampersand at its end") << "Cut &"
                                                      << "Cut &";
    }
    void titlesAreAsTheUserReadsThem()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, title);
        QMenu menu;
        menu.addAction(text);
        QCOMPARE(menuItemsOf(menu).at(0).title, title);
    }

    void submenusAreReadAndSeparatorsAreNot()
    {
        QMenu menu;
        menu.addAction(QStringLiteral("Pick"));
        menu.addSeparator();
        QMenu* submenu = menu.addMenu(QStringLiteral("Export"));
        submenu->addAction(QStringLiteral("CSS"))->setShortcut(Qt::CTRL | Qt::Key_E);
        const auto items = menuItemsOf(menu);
        QCOMPARE(items.size(), std::size_t{2});
        QCOMPARE(items[1].title, QStringLiteral("Export"));
        QCOMPARE(items[1].submenu.size(), std::size_t{1});
        QCOMPARE(items[1].submenu[0].keyEquivalent, QStringLiteral("e"));
    }
};

} // namespace tintwick::test

QTEST_MAIN(tintwick::test::MenuItemsOfTest)
#include "MenuItemsOfTest.moc"
