#include "X11KeyboardLayout.h"
#include "support/KeyboardInput.h"
#include "support/PrivateDesktopMain.h"

#include <QProcess>
#include <QTest>

namespace tintwick::test {

namespace {

void setKeymap(const QStringList& arguments)
{
    QCOMPARE(QProcess::execute(QStringLiteral("setxkbmap"), arguments), 0);
}

QStringList layout(const char* layouts, const char* variants = "")
{
    return {QStringLiteral("-layout"), QString::fromLatin1(layouts), QStringLiteral("-variant"),
            QString::fromLatin1(variants)};
}

} // namespace

class X11KeyboardLayoutTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { setKeymap(layout("us")); }

    void keysHaveTheCharactersOfTheLayout_data()
    {
        QTest::addColumn<QStringList>("keymap");
        QTest::addColumn<int>("group");
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<QString>("character");

        const QString none;
        QTest::newRow("us: c") << layout("us") << 0 << 8 << "c";
        QTest::newRow("us: digit") << layout("us") << 0 << 18 << "1";
        QTest::newRow("us: backtick") << layout("us") << 0 << 50 << "`";
        QTest::newRow("us: F1 types nothing") << layout("us") << 0 << 122 << none;
        QTest::newRow("us: Return has no printable character") << layout("us") << 0 << 36 << none;
        QTest::newRow("us: Escape has no printable character") << layout("us") << 0 << 53 << none;
        QTest::newRow("us: Shift types nothing") << layout("us") << 0 << 56 << none;
        QTest::newRow("us: a key above all keycodes") << layout("us") << 0 << 63 << none;
        QTest::newRow("us: no such key") << layout("us") << 0 << 999 << none;
        QTest::newRow("fr: c") << layout("fr") << 0 << 8 << "c";
        QTest::newRow("fr: a where us has q") << layout("fr") << 0 << 12 << "a";
        QTest::newRow("fr: m where us has ;") << layout("fr") << 0 << 41 << "m";
        QTest::newRow("fr: & where us has 1") << layout("fr") << 0 << 18 << "&";
        QTest::newRow("fr: dead circumflex") << layout("fr") << 0 << 33 << none;
        QTest::newRow("de: y where us has z") << layout("de") << 0 << 6 << "y";
        QTest::newRow("de: sharp s") << layout("de") << 0 << 27 << "ß";
        QTest::newRow("de: o umlaut") << layout("de") << 0 << 41 << "ö";
        QTest::newRow("de: dead acute") << layout("de") << 0 << 24 << none;
        QTest::newRow("dvorak: j where us has c") << layout("us", "dvorak") << 0 << 8 << "j";
        QTest::newRow("dvorak: c where us has i") << layout("us", "dvorak") << 0 << 34 << "c";
        QTest::newRow("ru and us, ru current") << layout("ru,us") << 0 << 8 << "c";
        QTest::newRow("ru and us, us current") << layout("ru,us") << 1 << 8 << "c";
        QTest::newRow("us and ru, ru current") << layout("us,ru") << 1 << 8 << "c";
        QTest::newRow("ru, gr and fr: fr is the ASCII-capable one") << layout("ru,gr,fr") << 1 << 12 << "a";
        QTest::newRow("fr and us, fr current") << layout("fr,us") << 0 << 12 << "a";
        QTest::newRow("fr and us, us current") << layout("fr,us") << 1 << 12 << "q";
        QTest::newRow("lt: a letter where us has 1") << layout("us,lt") << 1 << 18 << "ą";
        QTest::newRow("ru alone: us is used") << layout("ru") << 0 << 8 << "c";
        QTest::newRow("ru alone: a letter where us has [") << layout("ru") << 0 << 33 << "[";
        QTest::newRow("ru alone: F1 types nothing") << layout("ru") << 0 << 122 << none;
        QTest::newRow("gr alone: us is used") << layout("gr") << 0 << 12 << "q";
        QTest::newRow("de: beside the left Shift") << layout("de") << 0 << 10 << "<";
        QTest::newRow("jp: beside the right Shift") << layout("jp") << 0 << 94 << "\\";
    }
    void keysHaveTheCharactersOfTheLayout()
    {
        QFETCH(const QStringList, keymap);
        QFETCH(const int, group);
        QFETCH(const int, keyCode);
        QFETCH(const QString, character);
        setKeymap(keymap);
        KeyboardInput keyboard;
        keyboard.chooseGroup(static_cast<std::uint8_t>(group));
        const auto connection = XcbConnection::open();
        QVERIFY(connection);
        XkbKeymap keymapOfServer(*connection);
        const X11KeyboardLayout keyboardLayout(*connection, keymapOfServer);
        QCOMPARE(keyboardLayout.characterForKey(keyCode).value_or(QString()), character);
        QCOMPARE(keyboardLayout.characterForKey(keyCode).has_value(), !character.isNull());
    }

    void deadKeysHaveTheirAccent_data()
    {
        QTest::addColumn<QStringList>("keymap");
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<QString>("accent");
        const QString none;
        QTest::newRow("de: acute") << layout("de") << 24 << "´";
        QTest::newRow("de: circumflex") << layout("de") << 50 << "^";
        QTest::newRow("fr: circumflex") << layout("fr") << 33 << "^";
        QTest::newRow("es: grave") << layout("es") << 33 << "`";
        QTest::newRow("se: diaeresis") << layout("se") << 30 << "¨";
        QTest::newRow("de: a letter") << layout("de") << 8 << none;
        QTest::newRow("us: F1") << layout("us") << 122 << none;
        QTest::newRow("no such key") << layout("us") << 999 << none;
    }
    void deadKeysHaveTheirAccent()
    {
        QFETCH(const QStringList, keymap);
        QFETCH(const int, keyCode);
        QFETCH(const QString, accent);
        setKeymap(keymap);
        const auto connection = XcbConnection::open();
        QVERIFY(connection);
        XkbKeymap keymapOfServer(*connection);
        const X11KeyboardLayout keyboardLayout(*connection, keymapOfServer);
        QCOMPARE(keyboardLayout.accentForKey(keyCode).value_or(QString()), accent);
        QCOMPARE(keyboardLayout.characterForKey(keyCode).has_value(), keyCode == 8);
    }

    void aNewLayoutIsReportedAndUsed()
    {
        const auto connection = XcbConnection::open();
        QVERIFY(connection);
        XkbKeymap keymap(*connection);
        X11KeyboardLayout keyboardLayout(*connection, keymap);
        int changes = 0;
        QObject::connect(&keyboardLayout, &KeyboardLayout::changed, &keyboardLayout, [&] { ++changes; });
        const auto characterOfQ = [&] { return keyboardLayout.characterForKey(12).value_or(QString()); };
        QCOMPARE(characterOfQ(), QStringLiteral("q"));

        setKeymap(layout("fr,us"));
        QTRY_COMPARE(characterOfQ(), QStringLiteral("a"));
        QTRY_VERIFY(changes > 0);

        KeyboardInput keyboard;
        changes = 0;
        keyboard.chooseGroup(1);
        QTRY_COMPARE(characterOfQ(), QStringLiteral("q"));
        QTRY_COMPARE(changes, 1);
        keyboard.chooseGroup(0);
        QTRY_COMPARE(characterOfQ(), QStringLiteral("a"));
        QTRY_COMPARE(changes, 2);
    }
};

} // namespace tintwick::test

int main(int argc, char** argv)
{
    return tintwick::runOnPrivateDesktop<tintwick::test::X11KeyboardLayoutTest>(
        argc, argv, {.windowManager = false, .tray = false});
}

#include "X11KeyboardLayoutTest.moc"
