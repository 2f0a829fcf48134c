#include "XkbKeymap.h"
#include "EvdevKeys.h"
#include "ModifierMap.h"
#include "support/KeyboardInput.h"
#include "support/PrivateDesktopMain.h"

#include <QProcess>
#include <QTest>

#include <xcb/xcb.h>

namespace tintwick::test {

namespace {

constexpr int shift = XCB_MOD_MASK_SHIFT, control = XCB_MOD_MASK_CONTROL, capsLock = XCB_MOD_MASK_LOCK,
              numLock = XCB_MOD_MASK_2, levelThree = XCB_MOD_MASK_5;

xcb_keycode_t keycodeOf(int evdevCode)
{
    return static_cast<xcb_keycode_t>(evdevCode + xKeycodeOffset);
}

void setKeymap(const QString& layouts, const QString& variants = {}, const QString& options = {})
{
    QCOMPARE(QProcess::execute(QStringLiteral("setxkbmap"),
                               {QStringLiteral("-layout"), layouts, QStringLiteral("-variant"), variants,
                                QStringLiteral("-option"), QString(), QStringLiteral("-option"), options}),
             0);
}

} // namespace

class XkbKeymapTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { setKeymap(QStringLiteral("us")); }

    void theCharacterDependsOnLayoutModifiersAndGroup_data()
    {
        QTest::addColumn<QString>("layouts");
        QTest::addColumn<QString>("options");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<int>("group");
        QTest::addColumn<char32_t>("character");
        const auto row = [](const char* name, const char* layouts, const char* options, int key,
                            int modifiers, int group, char32_t character) {
            QTest::newRow(name) << QString::fromLatin1(layouts) << QString::fromLatin1(options) << key
                                << modifiers << group << character;
        };
        row("us: c", "us", "", KEY_C, 0, 0, U'c');
        row("us: Shift + c", "us", "", KEY_C, shift, 0, U'C');
        row("us: Caps Lock and c", "us", "", KEY_C, capsLock, 0, U'C');
        row("us: Control leaves c", "us", "", KEY_C, control, 0, U'c');
        row("us: =", "us", "", KEY_EQUAL, 0, 0, U'=');
        row("us: Shift + =", "us", "", KEY_EQUAL, shift, 0, U'+');
        row("us: keypad +", "us", "", KEY_KPPLUS, 0, 0, U'+');
        row("us: keypad 5 with Num Lock", "us", "", KEY_KP5, numLock, 0, U'5');
        row("us: Escape", "us", "", KEY_ESC, 0, 0, U'\x1B');
        row("us: Backspace", "us", "", KEY_BACKSPACE, 0, 0, U'\b');
        row("us: Tab", "us", "", KEY_TAB, 0, 0, U'\t');
        row("us: Return", "us", "", KEY_ENTER, 0, 0, U'\r');
        row("us: Delete", "us", "", KEY_DELETE, 0, 0, U'\x7F');
        row("us: F1 types nothing", "us", "", KEY_F1, 0, 0, 0);
        row("us: Shift types nothing", "us", "", KEY_LEFTSHIFT, 0, 0, 0);
        row("caps:escape: Caps Lock", "us", "caps:escape", KEY_CAPSLOCK, 0, 0, U'\x1B');
        row("caps:swapescape: Caps Lock", "us", "caps:swapescape", KEY_CAPSLOCK, 0, 0, U'\x1B');
        row("caps:swapescape: Escape", "us", "caps:swapescape", KEY_ESC, 0, 0, 0);
        row("de: Shift + 0", "de", "", KEY_0, shift, 0, U'=');
        row("de: + is left of Return", "de", "", KEY_RIGHTBRACE, 0, 0, U'+');
        row("de: the third level of q", "de", "", KEY_Q, levelThree, 0, U'@');
        row("de: dead acute", "de", "", KEY_EQUAL, 0, 0, 0);
        row("fr: - is on 6", "fr", "", KEY_6, 0, 0, U'-');
        row("us and ru: the second group", "us,ru", "", KEY_C, 0, 1, U'с');
        row("us and ru: the first group", "us,ru", "", KEY_C, 0, 0, U'c');
    }
    void theCharacterDependsOnLayoutModifiersAndGroup()
    {
        QFETCH(const QString, layouts);
        QFETCH(const QString, options);
        QFETCH(const int, key);
        QFETCH(const int, modifiers);
        QFETCH(const int, group);
        QFETCH(const char32_t, character);
        setKeymap(layouts, {}, options);
        const auto connection = XcbConnection::open();
        QVERIFY(connection);
        XkbKeymap keymap(*connection);
        QCOMPARE(keymap.character(keycodeOf(key), static_cast<std::uint32_t>(modifiers),
                                  static_cast<std::uint32_t>(group)),
                 character);
    }

    void aNewKeymapOfTheServerIsUsed()
    {
        const auto connection = XcbConnection::open();
        QVERIFY(connection);
        XkbKeymap keymap(*connection);
        QCOMPARE(keymap.keysym(keycodeOf(KEY_Q), 0, 0), xkb_keysym_t{XKB_KEY_q});
        setKeymap(QStringLiteral("fr"));
        QTRY_COMPARE(keymap.keysym(keycodeOf(KEY_Q), 0, 0), xkb_keysym_t{XKB_KEY_a});
    }

    void modifiersFollowTheKeymap()
    {
        const auto connection = XcbConnection::open();
        QVERIFY(connection);
        const auto usual = ModifierMap::read(*connection);
        QVERIFY(usual);
        QCOMPARE(int(usual->alt), int(XCB_MOD_MASK_1));
        QCOMPARE(int(usual->super), int(XCB_MOD_MASK_4));
        QCOMPARE(QProcess::execute(QStringLiteral("xmodmap"),
                                   {QStringLiteral("-e"), QStringLiteral("clear mod4"), QStringLiteral("-e"),
                                    QStringLiteral("clear mod3"), QStringLiteral("-e"),
                                    QStringLiteral("add mod3 = Super_L")}),
                 0);
        const auto moved = ModifierMap::read(*connection);
        QVERIFY(moved);
        QCOMPARE(int(moved->super), int(XCB_MOD_MASK_3));
        QCOMPARE(moved->modifiers(XCB_MOD_MASK_3 | XCB_MOD_MASK_SHIFT), 0x300);
        QCOMPARE(moved->modifiers(XCB_MOD_MASK_4), 0);
        QCOMPARE(moved->bits(0x100).value_or(0), std::uint16_t{XCB_MOD_MASK_3});
    }
};

} // namespace tintwick::test

int main(int argc, char** argv)
{
    return tintwick::runOnPrivateDesktop<tintwick::test::XkbKeymapTest>(
        argc, argv, {.windowManager = false, .tray = false});
}

#include "XkbKeymapTest.moc"
