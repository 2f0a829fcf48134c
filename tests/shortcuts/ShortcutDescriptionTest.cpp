#include "ShortcutDescription.h"
#include "support/ScriptedKeyboardLayout.h"

#include <QTest>

namespace tintwick::test {

class ShortcutDescriptionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void specialKeysHaveTheirSymbols_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<QString>("text");
        const struct
        {
            int keyCode;
            const char* text;
        } rows[] = {
            {36, "↩"},        {51, "⌫"},           {117, "⌦"},        {119, "↘"},
            {53, "⎋"},        {114, "Ins"},        {115, "↖"},        {49, "Space"},
            {48, "⇥"},        {116, "⇞"},          {121, "⇟"},        {126, "↑"},
            {124, "→"},       {125, "↓"},          {123, "←"},        {122, "F1"},
            {120, "F2"},      {99, "F3"},          {118, "F4"},       {96, "F5"},
            {97, "F6"},       {98, "F7"},          {100, "F8"},       {101, "F9"},
            {109, "F10"},     {103, "F11"},        {111, "F12"},      {105, "F13"},
            {107, "F14"},     {113, "F15"},        {106, "F16"},      {64, "F17"},
            {79, "F18"},      {80, "F19"},         {90, "F20"},       {82, "0⃣"},
            {83, "1⃣"},        {84, "2⃣"},           {85, "3⃣"},         {86, "4⃣"},
            {87, "5⃣"},        {88, "6⃣"},           {89, "7⃣"},         {91, "8⃣"},
            {92, "9⃣"},        {71, "☒⃣"},           {65, ".⃣"},         {75, "/⃣"},
            {76, "↩⃣"},        {81, "=⃣"},           {78, "-⃣"},         {67, "*⃣"},
            {69, "+⃣"},        {95, ",⃣"},           {57, "⇪"},         {65635, "PrtSc"},
            {65655, "Pause"}, {65663, "Menu"},     {65727, "F21"},    {65730, "F24"},
            {74, "Mute"},     {73, "Volume Down"}, {72, "Volume Up"}, {65700, "Play/Pause"},
        };
        for (const auto& [keyCode, text] : rows) {
            QTest::newRow(text) << keyCode << QString::fromUtf8(text);
        }
    }
    void specialKeysHaveTheirSymbols()
    {
        QFETCH(const int, keyCode);
        QFETCH(const QString, text);
        ScriptedKeyboardLayout layout;
        layout.characters[keyCode] = QStringLiteral("x");
        QCOMPARE(describe({keyCode, 0}, layout), text);
        QCOMPARE(characterOf(keyCode, layout), std::optional<QString>());
    }

    void keysHaveWords_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("text");
        QTest::newRow("C") << 8 << 0xA00 << "Alt+Shift+C";
        QTest::newRow("all five") << 8 << 0x21B00 << "Ctrl+Alt+Shift+Super+Fn+C";
        QTest::newRow("Return") << 36 << 0x1000 << "Ctrl+Return";
        QTest::newRow("Backspace") << 51 << 0x100 << "Super+Backspace";
        QTest::newRow("Delete") << 117 << 0x100 << "Super+Delete";
        QTest::newRow("Escape") << 53 << 0x100 << "Super+Escape";
        QTest::newRow("Insert") << 114 << 0x800 << "Alt+Insert";
        QTest::newRow("an arrow") << 126 << 0x1000 << "Ctrl+Up";
        QTest::newRow("F5") << 96 << 0 << "F5";
        QTest::newRow("a digit of the keypad") << 87 << 0x800 << "Alt+Keypad 5";
        QTest::newRow("Enter of the keypad") << 76 << 0x800 << "Alt+Keypad Enter";
        QTest::newRow("Num Lock") << 71 << 0x800 << "Alt+Num Lock";
        QTest::newRow("the comma of the keypad") << 95 << 0x800 << "Alt+Keypad ,";
        QTest::newRow("Print") << 65635 << 0 << "Print Screen";
        QTest::newRow("a media key") << 65699 << 0x1000 << "Ctrl+Next Track";
        QTest::newRow("a key that types nothing") << 10 << 0x800 << "Alt+\uFFFD";
    }
    void keysHaveWords()
    {
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        QFETCH(const QString, text);
        ScriptedKeyboardLayout layout;
        layout.characters[8] = QStringLiteral("c");
        QCOMPARE(describe({keyCode, modifiers}, layout, KeyNames::Words), text);
    }

    void aDeadKeyIsShownAsItsAccent()
    {
        ScriptedKeyboardLayout layout;
        layout.accents = {{24, QStringLiteral("´")}, {33, QStringLiteral("^")}};
        QCOMPARE(describe({24, 0x800}, layout), QStringLiteral("⌥´"));
        QCOMPARE(describe({33, 0x800}, layout), QStringLiteral("⌥^"));
        QCOMPARE(describe({33, 0x800}, layout, KeyNames::Words), QStringLiteral("Alt+^"));
        QCOMPARE(characterOf(24, layout), std::optional<QString>());
    }

    void modifiersHaveAFixedOrderBeforeTheKey_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("text");
        QTest::newRow("C") << 8 << 0 << "C";
        QTest::newRow("Alt Shift C") << 8 << 0xA00 << "⌥⇧C";
        QTest::newRow("Shift before Super") << 8 << 0x300 << "⇧⌘C";
        QTest::newRow("Function alone") << 96 << 0x20000 << "🌐︎F5";
        QTest::newRow("all five") << 8 << 0x21B00 << "⌃⌥⇧⌘🌐︎C";
        QTest::newRow("bits that are no modifier") << 8 << 0x400 << "C";
    }
    void modifiersHaveAFixedOrderBeforeTheKey()
    {
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        QFETCH(const QString, text);
        ScriptedKeyboardLayout layout;
        layout.characters[8] = QStringLiteral("c");
        QCOMPARE(describe({keyCode, modifiers}, layout), text);
    }

    void aKeyIsShownAsTheOneCharacterItTypes_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<bool>("isCharacter");
        QTest::newRow("letter") << "c"
                                << "C" << true;
        QTest::newRow("digit") << "1"
                               << "1" << true;
        QTest::newRow("umlaut") << "ö"
                                << "Ö" << true;
        QTest::newRow("sharp s stays one character") << "ß"
                                                     << "ß" << true;
        QTest::newRow("beyond 16 bits") << "𐐨"
                                        << "𐐀" << true;
        QTest::newRow("nothing typed") << ""
                                       << "\uFFFD" << false;
        QTest::newRow("a dead key sequence") << "´e"
                                             << "\uFFFD" << false;
        QTest::newRow("a letter and a combining mark") << "e\u0301"
                                                       << "\uFFFD" << false;
    }
    void aKeyIsShownAsTheOneCharacterItTypes()
    {
        QFETCH(const QString, typed);
        QFETCH(const QString, shown);
        QFETCH(const bool, isCharacter);
        ScriptedKeyboardLayout layout;
        layout.characters[8] = typed;
        QCOMPARE(describe({8, 0}, layout), shown);
        QCOMPARE(characterOf(8, layout), isCharacter ? std::optional(typed) : std::nullopt);
    }

    void aKeyMissingInTheLayoutIsShownAsUnknown()
    {
        const ScriptedKeyboardLayout layout;
        QCOMPARE(describe({8, 0xA00}, layout), QStringLiteral("⌥⇧\uFFFD"));
        QCOMPARE(describe({999, 0}, layout), QStringLiteral("\uFFFD"));
        QCOMPARE(characterOf(8, layout), std::optional<QString>());
    }
};

} // namespace tintwick::test

QTEST_APPLESS_MAIN(tintwick::test::ShortcutDescriptionTest)
#include "ShortcutDescriptionTest.moc"
