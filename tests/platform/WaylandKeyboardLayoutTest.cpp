#include "WaylandKeyboardLayout.h"

#include <QSignalSpy>
#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

using Keymap = std::unique_ptr<xkb_keymap, XkbUnref>;

Keymap keymapOf(const QByteArray& layouts)
{
    const std::unique_ptr<xkb_context, XkbUnref> files(xkb_context_new(XKB_CONTEXT_NO_ENVIRONMENT_NAMES));
    const xkb_rule_names names{"evdev", "pc105", layouts.constData(), nullptr, nullptr};
    return Keymap(xkb_keymap_new_from_names(files.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

} // namespace

class WaylandKeyboardLayoutTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysHaveTheCharactersAndSymbolsOfTheLayout_data();
    void keysHaveTheCharactersAndSymbolsOfTheLayout();
    void deadKeysHaveTheirAccent();
    void withoutAKeyboardNoCharacterIsKnownAndSymbolsAreThoseOfTheUsLayout();
    void anotherKeymapOrGroupIsReported();
    void aKeymapIsKept();
};

void WaylandKeyboardLayoutTest::keysHaveTheCharactersAndSymbolsOfTheLayout_data()
{
    QTest::addColumn<QByteArray>("layouts");
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("keyCode");
    QTest::addColumn<QString>("character");
    QTest::addColumn<QString>("symbolName");
    const QString none;
    QTest::newRow("us: c") << "us"_ba << 0 << 8 << u"c"_s << u"c"_s;
    QTest::newRow("fr: a where us has q") << "fr"_ba << 0 << 12 << u"a"_s << u"a"_s;
    QTest::newRow("fr: & where us has 1") << "fr"_ba << 0 << 18 << u"&"_s << u"ampersand"_s;
    QTest::newRow("fr and us, us current") << "fr,us"_ba << 1 << 12 << u"q"_s << u"q"_s;
    QTest::newRow("us and ru, ru current") << "us,ru"_ba << 1 << 8 << u"c"_s << u"c"_s;
    QTest::newRow("ru alone: us is used") << "ru"_ba << 0 << 8 << u"c"_s << u"c"_s;
    QTest::newRow("us: F5") << "us"_ba << 0 << 96 << none << u"F5"_s;
    QTest::newRow("us: Return") << "us"_ba << 0 << 36 << none << u"Return"_s;
    QTest::newRow("us: Print") << "us"_ba << 0 << 0x10000 + 99 << none << u"Print"_s;
    QTest::newRow("us: mute") << "us"_ba << 0 << 74 << none << u"XF86AudioMute"_s;
    QTest::newRow("no such key") << "us"_ba << 0 << 999 << none << none;
}

void WaylandKeyboardLayoutTest::keysHaveTheCharactersAndSymbolsOfTheLayout()
{
    QFETCH(const QByteArray, layouts);
    QFETCH(const int, group);
    QFETCH(const int, keyCode);
    const Keymap keymap = keymapOf(layouts);
    QVERIFY(keymap);
    WaylandKeyboardLayout layout;
    layout.setKeymap(keymap.get(), static_cast<xkb_layout_index_t>(group));
    QTEST(layout.characterForKey(keyCode).value_or(QString()), "character");
    QTEST(layout.symbolNameForKey(keyCode).value_or(QString()), "symbolName");
}

void WaylandKeyboardLayoutTest::deadKeysHaveTheirAccent()
{
    const Keymap german = keymapOf("de");
    WaylandKeyboardLayout layout;
    layout.setKeymap(german.get(), 0);
    QCOMPARE(layout.accentForKey(24), std::optional(u"´"_s));
    QCOMPARE(layout.characterForKey(24), std::nullopt);
    QCOMPARE(layout.accentForKey(8), std::nullopt);
}

void WaylandKeyboardLayoutTest::withoutAKeyboardNoCharacterIsKnownAndSymbolsAreThoseOfTheUsLayout()
{
    const WaylandKeyboardLayout layout;
    QCOMPARE(layout.characterForKey(8), std::nullopt);
    QCOMPARE(layout.accentForKey(8), std::nullopt);
    QCOMPARE(layout.symbolNameForKey(8), std::optional(u"c"_s));
}

void WaylandKeyboardLayoutTest::anotherKeymapOrGroupIsReported()
{
    const Keymap french = keymapOf("fr,us");
    WaylandKeyboardLayout layout;
    QSignalSpy changes(&layout, &KeyboardLayout::changed);
    layout.setKeymap(french.get(), 0);
    QCOMPARE(changes.count(), 1);
    layout.setKeymap(french.get(), 0);
    QCOMPARE(changes.count(), 1);
    layout.setKeymap(french.get(), 1);
    QCOMPARE(changes.count(), 2);
    layout.setKeymap(nullptr, 0);
    QCOMPARE(changes.count(), 3);
    QCOMPARE(layout.characterForKey(8), std::nullopt);
}

void WaylandKeyboardLayoutTest::aKeymapIsKept()
{
    Keymap french = keymapOf("fr");
    WaylandKeyboardLayout layout;
    layout.setKeymap(french.get(), 0);
    french.reset();
    QCOMPARE(layout.characterForKey(12), std::optional(u"a"_s));
}

QTEST_GUILESS_MAIN(WaylandKeyboardLayoutTest)
#include "WaylandKeyboardLayoutTest.moc"
