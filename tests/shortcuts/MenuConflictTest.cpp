#include "MenuConflict.h"
#include "support/ScriptedKeyboardLayout.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QTest>

namespace tintwick::test {

class MenuConflictTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theItemThatTheKeysTriggerIsFound_data()
    {
        QTest::addColumn<QKeySequence>("itemKeys");
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("found");
        const auto row = [](const char* name, const QKeySequence& keys, int keyCode, int modifiers,
                            bool found) { QTest::newRow(name) << keys << keyCode << modifiers << found; };

        constexpr int super = 0x100, shift = 0x200, alt = 0x800, control = 0x1000;
        row("Super Q", Qt::META | Qt::Key_Q, 12, super, true);
        row("Ctrl Q", Qt::CTRL | Qt::Key_Q, 12, control, true);
        row("Alt Q", Qt::ALT | Qt::Key_Q, 12, alt, true);
        row("Ctrl Shift Q", Qt::CTRL | Qt::SHIFT | Qt::Key_Q, 12, control | shift, true);
        row("another modifier", Qt::META | Qt::Key_Q, 12, control, false);
        row("one modifier more", Qt::META | Qt::Key_Q, 12, super | alt, false);
        row("one modifier less", Qt::META | Qt::ALT | Qt::Key_Q, 12, super, false);
        row("another key", Qt::META | Qt::Key_Q, 8, super, false);
        row("comma", Qt::CTRL | Qt::Key_Comma, 43, control, true);
        row("an umlaut", Qt::META | Qt::Key_Udiaeresis, 33, super, true);
        row("Return", Qt::META | Qt::Key_Return, 36, super, true);
        row("keypad Enter is not Return", Qt::META | Qt::Key_Return, 76, super, false);
        row("keypad Enter", Qt::META | Qt::Key_Enter, 76, super, true);
        row("Escape", Qt::Key_Escape, 53, 0, true);
        row("F1", Qt::Key_F1, 122, 0, true);
        row("F5", Qt::Key_F5, 96, 0, true);
        row("F20", Qt::Key_F20, 90, 0, true);
        row("F21 is not F20", Qt::Key_F21, 90, 0, false);
        row("Delete", Qt::Key_Delete, 117, 0, true);
        row("Backspace", Qt::Key_Backspace, 51, 0, true);
        row("Delete is not Backspace", Qt::Key_Delete, 51, 0, false);
        row("Help", Qt::Key_Help, 114, 0, true);
        row("Insert", Qt::Key_Insert, 114, 0, true);
        row("Ctrl Space", Qt::CTRL | Qt::Key_Space, 49, control, true);
        row("Alt Left", Qt::ALT | Qt::Key_Left, 123, alt, true);
        row("a digit", Qt::ALT | Qt::Key_1, 18, alt, true);
        row("a digit of the keypad", Qt::META | Qt::Key_7, 89, super, true);
        row("plus of the keypad", Qt::META | Qt::Key_Plus, 69, super, true);
        row("a media key", Qt::Key_MediaPlay, 12, 0, false);
        row("two keys one after the other", QKeySequence(Qt::CTRL | Qt::Key_Q, Qt::CTRL | Qt::Key_C), 12,
            control, false);
        row("an item without keys", QKeySequence(), 12, 0, false);
        row("an item without keys and a key without a character", QKeySequence(), 10, 0, false);
    }
    void theItemThatTheKeysTriggerIsFound()
    {
        QFETCH(const QKeySequence, itemKeys);
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        QFETCH(const bool, found);
        ScriptedKeyboardLayout layout;
        layout.characters = {{12, QStringLiteral("q")},
                             {8, QStringLiteral("c")},
                             {43, QStringLiteral(",")},
                             {33, QStringLiteral("ü")},
                             {18, QStringLiteral("1")}};
        QMenu menu;
        menu.addAction(QStringLiteral("Item"))->setShortcut(itemKeys);
        QCOMPARE(menuItemWithShortcut({keyCode, modifiers}, menu, layout),
                 found ? std::optional(QStringLiteral("Item")) : std::nullopt);
    }

    void theSearchGoesFromTopToBottomAndAnItemComesBeforeItsSubmenu()
    {
        ScriptedKeyboardLayout layout;
        layout.characters = {{12, QStringLiteral("q")},
                             {8, QStringLiteral("c")},
                             {43, QStringLiteral(",")},
                             {35, QStringLiteral("p")}};
        QMenu menu;
        const auto add = [](QMenu& parent, const QString& title, Qt::Key key) {
            parent.addAction(title)->setShortcut(Qt::META | key);
        };
        QMenu* const file = menu.addMenu(QStringLiteral("File"));
        add(*file, QStringLiteral("New"), Qt::Key_C);
        file->addSeparator();
        QMenu* const share = file->addMenu(QStringLiteral("Share"));
        share->menuAction()->setShortcut(Qt::META | Qt::Key_P);
        add(*share, QStringLiteral("Print"), Qt::Key_P);
        add(menu, QStringLiteral("Copy"), Qt::Key_C);
        add(menu, QStringLiteral("Quit"), Qt::Key_Q);
        const auto titleFor = [&](int keyCode) {
            return menuItemWithShortcut({keyCode, 0x100}, menu, layout);
        };
        QCOMPARE(titleFor(8), std::optional(QStringLiteral("New")));
        QCOMPARE(titleFor(35), std::optional(QStringLiteral("Share")));
        QCOMPARE(titleFor(12), std::optional(QStringLiteral("Quit")));
        QCOMPARE(titleFor(43), std::optional<QString>());
    }

    void theTitleIsWhatTheUserReads_data()
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
    void theTitleIsWhatTheUserReads()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, title);
        const ScriptedKeyboardLayout layout;
        QMenu menu;
        menu.addAction(text)->setShortcut(Qt::Key_F1);
        QCOMPARE(menuItemWithShortcut({122, 0}, menu, layout), std::optional(title));
    }
};

} // namespace tintwick::test

QTEST_MAIN(tintwick::test::MenuConflictTest)
#include "MenuConflictTest.moc"
