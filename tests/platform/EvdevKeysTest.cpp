#include "EvdevKeys.h"

#include <QTest>

#include <iterator>
#include <set>

namespace tintwick::test {

namespace {

struct NamedKey
{
    const char* name;
    int keyCode;
    int evdev;
};

// Every key of KeyCode.h.
constexpr NamedKey namedKeys[] = {
    {"a", 0, 30},
    {"b", 11, 48},
    {"c", 8, 46},
    {"d", 2, 32},
    {"e", 14, 18},
    {"f", 3, 33},
    {"g", 5, 34},
    {"h", 4, 35},
    {"i", 34, 23},
    {"j", 38, 36},
    {"k", 40, 37},
    {"l", 37, 38},
    {"m", 46, 50},
    {"n", 45, 49},
    {"o", 31, 24},
    {"p", 35, 25},
    {"q", 12, 16},
    {"r", 15, 19},
    {"s", 1, 31},
    {"t", 17, 20},
    {"u", 32, 22},
    {"v", 9, 47},
    {"w", 13, 17},
    {"x", 7, 45},
    {"y", 16, 21},
    {"z", 6, 44},
    {"zero", 29, 11},
    {"one", 18, 2},
    {"two", 19, 3},
    {"three", 20, 4},
    {"four", 21, 5},
    {"five", 23, 6},
    {"six", 22, 7},
    {"seven", 26, 8},
    {"eight", 28, 9},
    {"nine", 25, 10},
    {"backtick", 50, 41},
    {"minus", 27, 12},
    {"equal", 24, 13},
    {"leftBracket", 33, 26},
    {"rightBracket", 30, 27},
    {"backslash", 42, 43},
    {"semicolon", 41, 39},
    {"quote", 39, 40},
    {"comma", 43, 51},
    {"period", 47, 52},
    {"slash", 44, 53},
    {"returnKey", 36, 28},
    {"tab", 48, 15},
    {"space", 49, 57},
    {"deleteKey", 51, 14},
    {"escape", 53, 1},
    {"deleteForward", 117, 111},
    {"help", 114, 110},
    {"home", 115, 102},
    {"end", 119, 107},
    {"pageUp", 116, 104},
    {"pageDown", 121, 109},
    {"leftArrow", 123, 105},
    {"rightArrow", 124, 106},
    {"downArrow", 125, 108},
    {"upArrow", 126, 103},
    {"capsLock", 57, 58},
    {"shift", 56, 42},
    {"rightShift", 60, 54},
    {"control", 59, 29},
    {"rightControl", 62, 97},
    {"option", 58, 56},
    {"rightOption", 61, 100},
    {"command", 55, 125},
    {"rightCommand", 54, 126},
    {"function", 63, 464},
    {"mute", 74, 113},
    {"volumeUp", 72, 115},
    {"volumeDown", 73, 114},
    {"f1", 122, 59},
    {"f2", 120, 60},
    {"f3", 99, 61},
    {"f4", 118, 62},
    {"f5", 96, 63},
    {"f6", 97, 64},
    {"f7", 98, 65},
    {"f8", 100, 66},
    {"f9", 101, 67},
    {"f10", 109, 68},
    {"f11", 103, 87},
    {"f12", 111, 88},
    {"f13", 105, 183},
    {"f14", 107, 184},
    {"f15", 113, 185},
    {"f16", 106, 186},
    {"f17", 64, 187},
    {"f18", 79, 188},
    {"f19", 80, 189},
    {"f20", 90, 190},
    {"keypad0", 82, 82},
    {"keypad1", 83, 79},
    {"keypad2", 84, 80},
    {"keypad3", 85, 81},
    {"keypad4", 86, 75},
    {"keypad5", 87, 76},
    {"keypad6", 88, 77},
    {"keypad7", 89, 71},
    {"keypad8", 91, 72},
    {"keypad9", 92, 73},
    {"keypadClear", 71, 69},
    {"keypadDecimal", 65, 83},
    {"keypadMultiply", 67, 55},
    {"keypadPlus", 69, 78},
    {"keypadDivide", 75, 98},
    {"keypadEnter", 76, 96},
    {"keypadMinus", 78, 74},
    {"keypadEquals", 81, 117},
    {"isoSection", 10, 86},
    {"jisYen", 93, 124},
    {"jisUnderscore", 94, 89},
    {"jisKeypadComma", 95, 121},
    {"print", 65635, 99},
    {"pause", 65655, 119},
    {"menu", 65663, 127},
    {"f21", 65727, 191},
    {"f22", 65728, 192},
    {"f23", 65729, 193},
    {"f24", 65730, 194},
    {"helpKey", 65674, 138},
    {"calculator", 65676, 140},
    {"files", 65680, 144},
    {"webBrowser", 65686, 150},
    {"mail", 65691, 155},
    {"bookmarks", 65692, 156},
    {"computer", 65693, 157},
    {"back", 65694, 158},
    {"forward", 65695, 159},
    {"eject", 65697, 161},
    {"nextTrack", 65699, 163},
    {"playPause", 65700, 164},
    {"previousTrack", 65701, 165},
    {"stop", 65702, 166},
    {"record", 65703, 167},
    {"rewind", 65704, 168},
    {"tools", 65707, 171},
    {"homePage", 65708, 172},
    {"refresh", 65709, 173},
    {"play", 65743, 207},
    {"fastForward", 65744, 208},
    {"search", 65753, 217},
    {"brightnessDown", 65760, 224},
    {"brightnessUp", 65761, 225},
    {"media", 65762, 226},
    {"display", 65763, 227},
};

} // namespace

class EvdevKeysTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachKeyConvertsToItsPositionAndBack_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("evdev");
        for (const auto& [name, keyCode, evdev] : namedKeys) {
            QTest::newRow(name) << keyCode << evdev;
        }
    }
    void eachKeyConvertsToItsPositionAndBack()
    {
        QFETCH(const int, keyCode);
        QFETCH(const int, evdev);
        QCOMPARE(evdevForKeyCode(keyCode), std::optional(evdev));
        QCOMPARE(keyCodeForEvdev(evdev), std::optional(keyCode));
    }

    void onlyTheKeysOfTheTableAreMappedAndEachOnce()
    {
        std::set<int> evdevs;
        for (int keyCode = -1024; keyCode <= 0x10000 + 1024; ++keyCode) {
            if (const auto evdev = evdevForKeyCode(keyCode)) {
                evdevs.insert(*evdev);
            }
        }
        std::set<int> keyCodes;
        for (int evdev = -1024; evdev <= 1024; ++evdev) {
            if (const auto keyCode = keyCodeForEvdev(evdev)) {
                keyCodes.insert(*keyCode);
            }
        }
        QCOMPARE(std::size(namedKeys), std::size_t{150});
        QCOMPARE(evdevs.size(), std::size_t{150});
        QCOMPARE(keyCodes.size(), std::size_t{150});
    }

    void otherPositionsHaveNoKeyCode_data()
    {
        QTest::addColumn<int>("evdev");
        QTest::newRow("Power") << 116;
        QTest::newRow("left mouse button") << 0x110;
        QTest::newRow("no key") << 0;
        QTest::newRow("below every code") << -8;
    }
    void otherPositionsHaveNoKeyCode()
    {
        QFETCH(const int, evdev);
        QCOMPARE(keyCodeForEvdev(evdev), std::optional<int>());
    }
};

} // namespace tintwick::test

QTEST_APPLESS_MAIN(tintwick::test::EvdevKeysTest)
#include "EvdevKeysTest.moc"
