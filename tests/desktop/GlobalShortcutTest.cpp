#include "desktop/TintwickProcess.h"
#include "support/KeyCombination.h"
#include "support/KeyboardInput.h"
#include "support/Pattern.h"
#include "support/TestWindow.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <X11/keysym.h>

#include <algorithm>
#include <csignal>

using namespace tintwick;

/// The global shortcut of the real program, with other programs on the desktop.
class GlobalShortcutTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theReleaseOfTheKeyStartsThePick();
    void theShortcutStartsAPickAndTheTerminalDoesNotGetItsKey_data();
    void theShortcutStartsAPickAndTheTerminalDoesNotGetItsKey();
    void aHeldKeyStartsOnePick();
    void theShortcutIsIgnoredWhilePicking();
    void queuedInputIsProcessedInItsOrder_data();
    void queuedInputIsProcessedInItsOrder();
    void twoQuickPressesStartOnePick();
    void anOpenMenuClosesForThePickAndDoesNotGetTheKey_data();
    void anOpenMenuClosesForThePickAndDoesNotGetTheKey();
    void theDefaultIsStoredOnAFreshStart();
    void aStoredShortcutIsGrabbedAtTheNextStart_data();
    void aStoredShortcutIsGrabbedAtTheNextStart();
    void aDisabledShortcutIsNotGrabbed_data();
    void aDisabledShortcutIsNotGrabbed();
    void aShortcutOfAnotherProgramIsReportedInOneLine_data();
    void aShortcutOfAnotherProgramIsReportedInOneLine();
    void aShortcutTakenWhileTheMenuIsOpenIsReportedInTheCurrentLayout();
    void aCopyWithOtherDataReportsTheTakenShortcutAndRuns();
    void theShortcutWorksOnceItsHolderIsGone_data();
    void theShortcutWorksOnceItsHolderIsGone();
    void aShortcutEditedInTheFileIsTakenAndTheOldOneGivenBack_data();
    void aShortcutEditedInTheFileIsTakenAndTheOldOneGivenBack();
    void theShortcutKeepsItsKeyInEveryLayout_data();
    void theShortcutKeepsItsKeyInEveryLayout();
    void theShortcutFollowsAltToAnotherModifier();
    void killingTheProgramFreesTheShortcut();
};

namespace {

using Keys = QList<int>;

constexpr std::uint16_t shift = 0x01, lock = 0x02, control = 0x04, alt = 0x08, numLock = 0x10, mod4 = 0x40;

constexpr KeyCombination altShiftC{KEY_C, alt | shift};

const Keys altShiftCKeys{KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C};
const QByteArray altShiftCStored = R"({\"carbonKeyCode\":8,\"carbonModifiers\":2560})";
const QByteArray panelByAltShiftV =
    R"(KeyboardShortcuts_openMainWindow="{\"carbonKeyCode\":9,\"carbonModifiers\":2560}")"
    "\n";
const QByteArray altShiftCRefused = "Error registering hotkey ⌥⇧C: -9878\n";

constexpr std::uint8_t keycode(int key)
{
    return static_cast<std::uint8_t>(key + 8);
}

/// Counts how often a loupe was mapped. It reads the window's name, so it must run while the loupe is shown.
class ShownLoupes final
{
public:
    explicit ShownLoupes(DesktopConnection& connection)
        : m_connection(connection)
    {
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection.get(), connection.root(), XCB_CW_EVENT_MASK, &events);
        connection.sync();
        connection.setEventHandler(connection.root(), [this](const xcb_generic_event_t& event) {
            const auto window = reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
            m_count += m_connection.property(window, "_NET_WM_NAME") == "Tintwick Loupe" ? 1 : 0;
        });
    }
    ~ShownLoupes() { m_connection.removeEventHandler(m_connection.root()); }
    ShownLoupes(const ShownLoupes&) = delete;
    ShownLoupes& operator=(const ShownLoupes&) = delete;

    [[nodiscard]] int count()
    {
        m_connection.dispatchEvents();
        return m_count;
    }

private:
    DesktopConnection& m_connection;
    int m_count = 0;
};

/// Another program that has the keyboard focus, and a keyboard.
class Scene final
{
public:
    explicit Scene(bool tray = false)
        : desktop({.tray = tray})
    {
        terminal.setPicture(patternImage(desktop.screen()));
        terminal.lower();
        terminal.show();
        terminal.focus();
    }

    PrivateDesktop desktop;
    DesktopConnection other{desktop.display()};
    KeyboardInput keyboard{desktop.display()};
    TestWindow terminal{other, {.geometry = desktop.screen(), .input = TestWindow::Input::Recorded}};
    ShownLoupes loupes{desktop.connection()};

    [[nodiscard]] QString preferencesFile() const
    {
        return desktop.configHome() + QStringLiteral("/Tintwick/Tintwick.conf");
    }
    [[nodiscard]] QByteArray preferences() const
    {
        QFile file(preferencesFile());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] static QByteArray preferencesWith(const QByteArray& storedShortcut)
    {
        return "[General]\nKeyboardShortcuts_activatePicker=" + storedShortcut + '\n';
    }
    [[nodiscard]] bool store(const QByteArray& preferences) const
    {
        QFile file(preferencesFile());
        return QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly) &&
               file.write(preferences) == preferences.size();
    }

    [[nodiscard]] bool setLayout(const QStringList& arguments)
    {
        return desktop.start(QStringLiteral("setxkbmap"), arguments)->waitForEnd() == 0;
    }

    void press(const Keys& keys)
    {
        std::for_each(keys.begin(), keys.end(), [this](int key) { keyboard.press(key); });
    }
    void release(const Keys& keys)
    {
        std::for_each(keys.begin(), keys.end(), [this](int key) { keyboard.release(key); });
    }
    void pressAndRelease(const Keys& keys)
    {
        press(keys);
        release({keys.rbegin(), keys.rend()});
    }

    [[nodiscard]] bool waitUntilHeld(const KeyCombination& combination)
    {
        return waitUntil([&] { return combination.isHeld(other); });
    }
    [[nodiscard]] bool waitUntilFree(const KeyCombination& combination)
    {
        return waitUntil([&] { return combination.isFree(other); });
    }

    /// Waits for the loupe of the n-th pick of this scene, counted from 1.
    [[nodiscard]] bool waitForLoupe(TintwickProcess& program, int pick = 1)
    {
        return waitUntil([&] { return program.loupe() && loupes.count() == pick; });
    }
    /// Ends the pick with Escape, and waits until the keyboard grab is released.
    [[nodiscard]] bool cancel(TintwickProcess& program)
    {
        static_cast<void>(loupes.count());
        desktop.typeKey(XK_Escape);
        return program.waitForPickToEnd() && waitUntil([&] { return other.inputIsFree(); });
    }

    /// The keys that the terminal received since the last call.
    [[nodiscard]] Keys typed()
    {
        Keys keys;
        for (const auto& event : terminal.events()) {
            if (event.type == XCB_KEY_PRESS) {
                keys << event.detail - keycode(0);
            }
        }
        terminal.forgetEvents();
        return keys;
    }
    [[nodiscard]] bool terminalSaw(int key)
    {
        const auto events = terminal.events();
        return std::any_of(events.begin(), events.end(), [key](const auto& event) {
            return event.type != XCB_MOTION_NOTIFY && event.detail == keycode(key);
        });
    }
};

TestWindow::InputEvent presses(int key)
{
    return {XCB_KEY_PRESS, keycode(key)};
}

/// How often the program was woken: each wake-up ends with one voluntary context switch.
int wakeUps(TintwickProcess& program)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(program.process().processId()));
    const QByteArray key = "\nvoluntary_ctxt_switches:";
    const QByteArray text = status.open(QIODevice::ReadOnly) ? status.readAll() : QByteArray();
    return text.mid(text.indexOf(key) + key.size()).split('\n').first().trimmed().toInt();
}

QStringList layout(const char* layouts, const char* variant = "")
{
    return {QStringLiteral("-layout"), QString::fromLatin1(layouts), QStringLiteral("-variant"),
            QString::fromLatin1(variant)};
}

} // namespace

void GlobalShortcutTest::theReleaseOfTheKeyStartsThePick()
{
    Scene scene;
    QVERIFY(scene.store(Scene::preferencesWith('"' + altShiftCStored + '"') + panelByAltShiftV));
    TintwickProcess program(scene.desktop);
    QVERIFY(scene.waitUntilHeld({KEY_V, alt | shift}));
    const QPoint position(500, 400);
    scene.desktop.movePointer(position);
    scene.press(altShiftCKeys);
    // The program processes what follows the press.
    scene.keyboard.tap(KEY_V);
    QVERIFY(program.waitForPanel());
    QCOMPARE(scene.loupes.count(), 0);

    scene.keyboard.release(KEY_C);
    QVERIFY(program.waitForCenterCell(patternPixel(position.x(), position.y())));
    scene.release({KEY_LEFTSHIFT, KEY_LEFTALT});
    scene.desktop.click();
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(program.waitForClipboard(hexText(patternPixel(position.x(), position.y()))));
}

void GlobalShortcutTest::theShortcutStartsAPickAndTheTerminalDoesNotGetItsKey_data()
{
    QTest::addColumn<Keys>("lockKeys");
    QTest::addColumn<int>("locked");
    QTest::addColumn<Keys>("presses");
    QTest::addColumn<Keys>("releases");

    const Keys keyFirst{KEY_C, KEY_LEFTSHIFT, KEY_LEFTALT};
    QTest::newRow("nothing locked") << Keys{} << 0 << altShiftCKeys << keyFirst;
    QTest::newRow("Caps Lock") << Keys{KEY_CAPSLOCK} << int(lock) << altShiftCKeys << keyFirst;
    QTest::newRow("Num Lock") << Keys{KEY_NUMLOCK} << int(numLock) << altShiftCKeys << keyFirst;
    QTest::newRow("Caps Lock and Num Lock")
        << Keys{KEY_CAPSLOCK, KEY_NUMLOCK} << int(lock | numLock) << altShiftCKeys << keyFirst;
    QTest::newRow("modifiers released first")
        << Keys{} << 0 << altShiftCKeys << Keys{KEY_LEFTALT, KEY_LEFTSHIFT, KEY_C};
    QTest::newRow("key released between the modifiers")
        << Keys{} << 0 << altShiftCKeys << Keys{KEY_LEFTALT, KEY_C, KEY_LEFTSHIFT};
    QTest::newRow("Shift before Alt, on the right")
        << Keys{} << 0 << Keys{KEY_RIGHTSHIFT, KEY_RIGHTALT, KEY_C}
        << Keys{KEY_C, KEY_RIGHTALT, KEY_RIGHTSHIFT};
}

void GlobalShortcutTest::theShortcutStartsAPickAndTheTerminalDoesNotGetItsKey()
{
    QFETCH(const Keys, lockKeys);
    QFETCH(const int, locked);
    QFETCH(const Keys, presses);
    QFETCH(const Keys, releases);
    Scene scene;
    TintwickProcess program(scene.desktop);
    QVERIFY(scene.waitUntilHeld(altShiftC));
    for (const int key : lockKeys) {
        scene.keyboard.tap(key);
    }
    QCOMPARE(int(scene.keyboard.modifiers()), locked);
    QCOMPARE(scene.typed(), lockKeys);

    scene.keyboard.tap(KEY_C);
    QCOMPARE(scene.typed(), Keys{KEY_C});
    scene.keyboard.tap(KEY_A);
    scene.press(presses);
    scene.release(releases);
    QVERIFY(scene.waitForLoupe(program));
    QVERIFY(scene.cancel(program));
    QVERIFY(!scene.terminalSaw(KEY_C));
    QCOMPARE(scene.typed(), (Keys{KEY_A, presses[0], presses[1]}));
    scene.keyboard.tap(KEY_B);
    QCOMPARE(scene.typed(), Keys{KEY_B});
    QCOMPARE(scene.loupes.count(), 1);
}

void GlobalShortcutTest::aHeldKeyStartsOnePick()
{
    Scene scene;
    TintwickProcess program(scene.desktop);
    QVERIFY(scene.waitUntilHeld(altShiftC));
    const auto xset =
        scene.desktop.start(QStringLiteral("xset"), {QStringLiteral("r"), QStringLiteral("rate"),
                                                     QStringLiteral("60"), QStringLiteral("100")});
    QCOMPARE(xset->waitForEnd(), 0);
    // The usual number of repeats in two seconds.
    constexpr int repeats = 50;
    scene.keyboard.press(KEY_A);
    QVERIFY(waitUntil([&] { return std::ranges::count(scene.terminal.events(), presses(KEY_A)) > repeats; }));
    scene.keyboard.release(KEY_A);

    scene.press(altShiftCKeys);
    // No other program gets them now, but each wakes the program.
    const int before = wakeUps(program);
    QVERIFY(waitUntil([&] { return wakeUps(program) >= before + repeats; }));
    QCOMPARE(scene.loupes.count(), 0);
    scene.keyboard.release(KEY_C);
    scene.release({KEY_LEFTSHIFT, KEY_LEFTALT});
    QVERIFY(scene.waitForLoupe(program));
    QVERIFY(scene.cancel(program));
    QVERIFY(!scene.terminalSaw(KEY_C));
    scene.pressAndRelease(altShiftCKeys);
    QVERIFY(scene.waitForLoupe(program, 2));
}

void GlobalShortcutTest::theShortcutIsIgnoredWhilePicking()
{
    Scene scene;
    TintwickProcess program(scene.desktop);
    QVERIFY(scene.waitUntilHeld(altShiftC));
    scene.pressAndRelease(altShiftCKeys);
    QVERIFY(scene.waitForLoupe(program));
    scene.pressAndRelease(altShiftCKeys);
    // The pick continues unchanged.
    const QPoint position(300, 600);
    scene.desktop.movePointer(position);
    QVERIFY(program.waitForCenterCell(patternPixel(position.x(), position.y())));
    QVERIFY(scene.cancel(program));
    QVERIFY(!scene.terminalSaw(KEY_C));
    scene.pressAndRelease(altShiftCKeys);
    QVERIFY(scene.waitForLoupe(program, 2));
}

void GlobalShortcutTest::queuedInputIsProcessedInItsOrder_data()
{
    QTest::addColumn<bool>("clicksFirst");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("the shortcut, Escape, a click") << false << QByteArray("before");
    QTest::newRow("the shortcut, a click, Escape") << true << hexText(patternPixel(300, 600));
}

void GlobalShortcutTest::queuedInputIsProcessedInItsOrder()
{
    QFETCH(const bool, clicksFirst);
    QFETCH(const QByteArray, text);
    Scene scene;
    scene.desktop.takeClipboard("before");
    TintwickProcess program(scene.desktop);
    QVERIFY(scene.waitUntilHeld(altShiftC));
    scene.desktop.movePointer({300, 600});
    scene.pressAndRelease(altShiftCKeys);
    QVERIFY(scene.waitForLoupe(program));

    const auto process = static_cast<pid_t>(program.process().processId());
    ::kill(process, SIGSTOP);
    scene.pressAndRelease(altShiftCKeys);
    if (clicksFirst) {
        scene.desktop.click();
    }
    scene.desktop.typeKey(XK_Escape);
    if (!clicksFirst) {
        scene.desktop.click();
    }
    ::kill(process, SIGCONT);
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(waitUntil([&] { return scene.other.inputIsFree(); }));
    QVERIFY(program.waitForClipboard(text));
    scene.pressAndRelease(altShiftCKeys);
    QVERIFY(scene.waitForLoupe(program, 2));
}

void GlobalShortcutTest::twoQuickPressesStartOnePick()
{
    Scene scene;
    TintwickProcess program(scene.desktop);
    QVERIFY(scene.waitUntilHeld(altShiftC));
    for (int pick = 1; pick <= 5; ++pick) {
        scene.press({KEY_LEFTALT, KEY_LEFTSHIFT});
        scene.keyboard.tap(KEY_C);
        scene.keyboard.tap(KEY_C);
        scene.release({KEY_LEFTSHIFT, KEY_LEFTALT});
        QVERIFY(scene.waitForLoupe(program, pick));
        QVERIFY(scene.cancel(program));
        QVERIFY(!scene.terminalSaw(KEY_C));
    }
}

void GlobalShortcutTest::anOpenMenuClosesForThePickAndDoesNotGetTheKey_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<Keys>("keys");
    QTest::newRow("C") << altShiftCStored << altShiftCKeys;
    // If the menu got these keys, they would choose "Quit Tintwick" or move away from it.
    QTest::newRow("Return") << QByteArray(R"({\"carbonKeyCode\":36,\"carbonModifiers\":2560})")
                            << Keys{KEY_LEFTALT, KEY_LEFTSHIFT, KEY_ENTER};
    QTest::newRow("Escape") << QByteArray(R"({\"carbonKeyCode\":53,\"carbonModifiers\":256})")
                            << Keys{KEY_LEFTMETA, KEY_ESC};
}

void GlobalShortcutTest::anOpenMenuClosesForThePickAndDoesNotGetTheKey()
{
    QFETCH(const QByteArray, stored);
    QFETCH(const Keys, keys);
    Scene scene(true);
    QVERIFY(scene.store(Scene::preferencesWith('"' + stored + '"')));
    TintwickProcess program(scene.desktop);
    QVERIFY(program.openMenu());
    const QImage fresh = scene.desktop.settledScreenshot(program.menuPlace());
    scene.keyboard.tap(KEY_UP);
    QVERIFY(waitUntil([&] { return scene.desktop.settledScreenshot(program.menuPlace()) != fresh; }));
    const QImage atQuit = scene.desktop.settledScreenshot(program.menuPlace());

    scene.press(keys);
    // The menu gets the next key, so it would also have got this one.
    scene.keyboard.tap(KEY_DOWN);
    QVERIFY(waitUntil([&] { return scene.desktop.settledScreenshot(program.menuPlace()) != atQuit; }));
    QCOMPARE(scene.loupes.count(), 0);
    scene.release({keys.rbegin(), keys.rend()});
    QVERIFY(scene.waitForLoupe(program));
    QVERIFY(program.menuPlace().isEmpty());
    QVERIFY(scene.cancel(program));

    scene.pressAndRelease(keys);
    QVERIFY(scene.waitForLoupe(program, 2));
    QVERIFY(program.process().isRunning());
    QCOMPARE(program.process().standardOutput(), QByteArray());
}

void GlobalShortcutTest::theDefaultIsStoredOnAFreshStart()
{
    Scene scene;
    TintwickProcess program(scene.desktop);
    QVERIFY(scene.waitUntilHeld(altShiftC));
    QVERIFY(waitUntil([&] { return !scene.preferences().isEmpty(); }));
    QCOMPARE(scene.preferences(), Scene::preferencesWith('"' + altShiftCStored + '"'));
    QCOMPARE(program.process().standardOutput(), QByteArray());
}

void GlobalShortcutTest::aStoredShortcutIsGrabbedAtTheNextStart_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("Control, Alt and K") << QByteArray(R"({\"carbonKeyCode\":40,\"carbonModifiers\":6144})")
                                        << Keys{KEY_LEFTCTRL, KEY_LEFTALT, KEY_K} << (control | alt);
    QTest::newRow("Super and F5") << QByteArray(R"({\"carbonKeyCode\":96,\"carbonModifiers\":256})")
                                  << Keys{KEY_LEFTMETA, KEY_F5} << int(mod4);
    QTest::newRow("F12 alone, members swapped")
        << QByteArray(R"({\"carbonModifiers\":0,\"carbonKeyCode\":111})") << Keys{KEY_F12} << 0;
}

void GlobalShortcutTest::aStoredShortcutIsGrabbedAtTheNextStart()
{
    QFETCH(const QByteArray, stored);
    QFETCH(const Keys, keys);
    QFETCH(const int, modifiers);
    Scene scene;
    const QByteArray preferences = Scene::preferencesWith('"' + stored + '"');
    QVERIFY(scene.store(preferences));
    TintwickProcess program(scene.desktop);
    QVERIFY(scene.waitUntilHeld({keys.last(), static_cast<std::uint16_t>(modifiers)}));
    QVERIFY(altShiftC.isFree(scene.other));

    scene.pressAndRelease(keys);
    QVERIFY(scene.waitForLoupe(program));
    QCOMPARE(scene.preferences(), preferences);
    QCOMPARE(program.process().standardOutput(), QByteArray());
}

void GlobalShortcutTest::aDisabledShortcutIsNotGrabbed_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::newRow("removed") << QByteArray("false");
    QTest::newRow("no JSON") << QByteArray("abc");
}

void GlobalShortcutTest::aDisabledShortcutIsNotGrabbed()
{
    QFETCH(const QByteArray, stored);
    Scene scene(true);
    const QByteArray preferences = Scene::preferencesWith(stored);
    QVERIFY(scene.store(preferences));
    TintwickProcess program(scene.desktop);
    // The menu opens after the start. The grab released for it is taken again when it closes.
    QVERIFY(program.startPicking());
    QVERIFY(scene.cancel(program));
    QVERIFY(altShiftC.isFree(scene.other));
    scene.terminal.focus();
    scene.terminal.forgetEvents();
    scene.pressAndRelease(altShiftCKeys);
    QCOMPARE(scene.typed(), altShiftCKeys);
    QCOMPARE(scene.preferences(), preferences);
    QCOMPARE(program.process().standardOutput(), QByteArray());
}

void GlobalShortcutTest::aShortcutOfAnotherProgramIsReportedInOneLine_data()
{
    QTest::addColumn<QStringList>("keymap");
    QTest::addColumn<int>("key");
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QByteArray>("line");
    const QByteArray keyQ = R"({\"carbonKeyCode\":12,\"carbonModifiers\":2560})";
    const QByteArray keyZ = R"({\"carbonKeyCode\":6,\"carbonModifiers\":2560})";
    QTest::newRow("us") << layout("us") << KEY_C << altShiftCStored << altShiftCRefused;
    QTest::newRow("fr") << layout("fr") << KEY_Q << keyQ
                        << QByteArray("Error registering hotkey ⌥⇧A: -9878\n");
    QTest::newRow("de") << layout("de") << KEY_Z << keyZ
                        << QByteArray("Error registering hotkey ⌥⇧Y: -9878\n");
    QTest::newRow("dvorak") << layout("us", "dvorak") << KEY_C << altShiftCStored
                            << QByteArray("Error registering hotkey ⌥⇧J: -9878\n");
    QTest::newRow("ru with us beside it") << layout("ru,us") << KEY_C << altShiftCStored << altShiftCRefused;
    QTest::newRow("ru alone") << layout("ru") << KEY_C << altShiftCStored << altShiftCRefused;
}

void GlobalShortcutTest::aShortcutOfAnotherProgramIsReportedInOneLine()
{
    QFETCH(const QStringList, keymap);
    QFETCH(const int, key);
    QFETCH(const QByteArray, stored);
    QFETCH(const QByteArray, line);
    Scene scene(true);
    QVERIFY(scene.setLayout(keymap));
    const QByteArray preferences = Scene::preferencesWith('"' + stored + '"');
    QVERIFY(scene.store(preferences));
    const KeyCombination combination{key, alt | shift};
    QVERIFY(combination.take(scene.other));
    TintwickProcess program(scene.desktop);
    QVERIFY(waitUntil([&] { return !program.process().standardOutput().isEmpty(); }));

    QVERIFY(program.startPicking());
    QCOMPARE(scene.loupes.count(), 1);
    const QPoint position(700, 300);
    scene.desktop.movePointer(position);
    QVERIFY(program.waitForCenterCell(patternPixel(position.x(), position.y())));
    scene.desktop.click();
    QVERIFY(program.waitForPickToEnd());
    QVERIFY(program.waitForClipboard(hexText(patternPixel(position.x(), position.y()))));

    scene.pressAndRelease({KEY_LEFTALT, KEY_LEFTSHIFT, key});
    QVERIFY(program.startPicking());
    QCOMPARE(scene.loupes.count(), 2);
    QCOMPARE(program.process().standardOutput(), line);
    QCOMPARE(program.process().standardError(), QByteArray());
    QCOMPARE(scene.preferences(), preferences);
}

void GlobalShortcutTest::aShortcutTakenWhileTheMenuIsOpenIsReportedInTheCurrentLayout()
{
    Scene scene(true);
    TintwickProcess program(scene.desktop);
    QVERIFY(scene.waitUntilHeld(altShiftC));
    QVERIFY(scene.setLayout(layout("us", "dvorak")));
    QVERIFY(program.openMenu());
    QVERIFY(scene.waitUntilFree(altShiftC));
    QVERIFY(altShiftC.take(scene.other));
    program.choosePick();
    QVERIFY(scene.waitForLoupe(program));
    QCOMPARE(program.process().standardOutput(), QByteArray("Error registering hotkey ⌥⇧J: -9878\n"));
}

void GlobalShortcutTest::aCopyWithOtherDataReportsTheTakenShortcutAndRuns()
{
    Scene scene(true);
    TintwickProcess first(scene.desktop);
    QVERIFY(scene.waitUntilHeld(altShiftC));
    QProcessEnvironment otherData;
    otherData.insert(QStringLiteral("XDG_DATA_HOME"), scene.desktop.dataHome() + QStringLiteral("-2"));
    TintwickProcess second(scene.desktop, otherData);
    QVERIFY(waitUntil([&] { return !second.process().standardOutput().isEmpty(); }));

    scene.pressAndRelease(altShiftCKeys);
    QVERIFY(scene.waitForLoupe(first));
    QVERIFY(scene.cancel(first));
    QCOMPARE(scene.loupes.count(), 1);
    QCOMPARE(first.process().standardOutput(), QByteArray());

    first.process().kill();
    QVERIFY(second.startPicking());
    QVERIFY(scene.cancel(second));
    QCOMPARE(second.process().standardOutput(), altShiftCRefused);
}

void GlobalShortcutTest::theShortcutWorksOnceItsHolderIsGone_data()
{
    QTest::addColumn<bool>("holderHasAWindow");
    QTest::newRow("a program with a window, at once") << true;
    QTest::newRow("a program without a window, when a menu closes") << false;
}

void GlobalShortcutTest::theShortcutWorksOnceItsHolderIsGone()
{
    QFETCH(const bool, holderHasAWindow);
    Scene scene(true);
    auto holder = std::make_unique<DesktopConnection>(scene.desktop.display());
    auto window = std::make_unique<TestWindow>(*holder, TestWindow::Options{});
    if (!holderHasAWindow) {
        window.reset();
    }
    QVERIFY(altShiftC.take(*holder));
    TintwickProcess program(scene.desktop);
    QVERIFY(waitUntil([&] { return program.process().standardOutput() == altShiftCRefused; }));
    if (holderHasAWindow) {
        window.reset();
        holder.reset();
    } else {
        QVERIFY(program.openMenu());
        holder.reset();
        scene.desktop.typeKey(XK_Escape);
    }
    QVERIFY(scene.waitUntilHeld(altShiftC));
    scene.pressAndRelease(altShiftCKeys);
    QVERIFY(scene.waitForLoupe(program));
    QCOMPARE(program.process().standardOutput(), altShiftCRefused);
}

void GlobalShortcutTest::aShortcutEditedInTheFileIsTakenAndTheOldOneGivenBack_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("replacesTheFile");
    const QByteArray altShiftV = R"(="{\"carbonKeyCode\":9,\"carbonModifiers\":2560}")";
    QTest::newRow("in place") << altShiftV << false;
    QTest::newRow("by another file") << altShiftV << true;
    QTest::newRow("with spaces") << QByteArray(R"( = "{ \"carbonKeyCode\": 9, \"carbonModifiers\": 2560 }")")
                                 << false;
}

void GlobalShortcutTest::aShortcutEditedInTheFileIsTakenAndTheOldOneGivenBack()
{
    QFETCH(const QByteArray, line);
    QFETCH(const bool, replacesTheFile);
    constexpr KeyCombination altShiftV{KEY_V, alt | shift};
    Scene scene;
    QVERIFY(scene.store(Scene::preferencesWith('"' + altShiftCStored + '"')));
    TintwickProcess program(scene.desktop);
    QVERIFY(scene.waitUntilHeld(altShiftC));
    if (replacesTheFile) {
        QVERIFY(QFile::remove(scene.preferencesFile()));
    }
    QVERIFY(scene.store("[General]\nKeyboardShortcuts_activatePicker" + line + '\n'));
    QVERIFY(scene.waitUntilHeld(altShiftV));
    QVERIFY(scene.waitUntilFree(altShiftC));
    scene.pressAndRelease({KEY_LEFTALT, KEY_LEFTSHIFT, KEY_V});
    QVERIFY(scene.waitForLoupe(program));
}

void GlobalShortcutTest::theShortcutKeepsItsKeyInEveryLayout_data()
{
    QTest::addColumn<QStringList>("keymap");
    QTest::addColumn<int>("group");
    QTest::newRow("fr") << layout("fr") << 0;
    QTest::newRow("de") << layout("de") << 0;
    QTest::newRow("ru of ru and us") << layout("ru,us") << 0;
    QTest::newRow("us of ru and us") << layout("ru,us") << 1;
    QTest::newRow("dvorak, where another key types C") << layout("us", "dvorak") << 0;
}

void GlobalShortcutTest::theShortcutKeepsItsKeyInEveryLayout()
{
    QFETCH(const QStringList, keymap);
    QFETCH(const int, group);
    Scene scene;
    TintwickProcess program(scene.desktop);
    QVERIFY(scene.waitUntilHeld(altShiftC));
    QVERIFY(scene.setLayout(keymap));
    scene.keyboard.chooseGroup(static_cast<std::uint8_t>(group));
    const Keys keyOfDvoraksC{KEY_LEFTALT, KEY_LEFTSHIFT, KEY_I};
    scene.pressAndRelease(keyOfDvoraksC);
    QCOMPARE(scene.typed(), keyOfDvoraksC);
    scene.pressAndRelease(altShiftCKeys);
    QVERIFY(scene.waitForLoupe(program));
    QVERIFY(scene.cancel(program));
    QVERIFY(!scene.terminalSaw(KEY_C));
    QCOMPARE(scene.loupes.count(), 1);
}

void GlobalShortcutTest::theShortcutFollowsAltToAnotherModifier()
{
    Scene scene;
    TintwickProcess program(scene.desktop);
    QVERIFY(scene.waitUntilHeld(altShiftC));
    QStringList exchange;
    for (const char* command : {"clear mod1", "clear mod4", "add mod1 = Super_L", "add mod4 = Alt_L"}) {
        exchange << QStringLiteral("-e") << QString::fromLatin1(command);
    }
    QCOMPARE(scene.desktop.start(QStringLiteral("xmodmap"), exchange)->waitForEnd(), 0);
    QVERIFY(scene.waitUntilHeld({KEY_C, mod4 | shift}));
    QVERIFY(altShiftC.isFree(scene.other));
    scene.pressAndRelease(altShiftCKeys);
    QVERIFY(scene.waitForLoupe(program));
}

void GlobalShortcutTest::killingTheProgramFreesTheShortcut()
{
    Scene scene;
    {
        TintwickProcess program(scene.desktop);
        QVERIFY(scene.waitUntilHeld(altShiftC));
        // If it is killed while it writes the preferences, their lock file remains and the next copy waits for it.
        QVERIFY(waitUntil([&] { return !scene.preferences().isEmpty(); }));
        program.process().kill();
    }
    QVERIFY(scene.waitUntilFree(altShiftC));
    TintwickProcess next(scene.desktop);
    QVERIFY(scene.waitUntilHeld(altShiftC));
    scene.pressAndRelease(altShiftCKeys);
    QVERIFY(scene.waitForLoupe(next));
    QCOMPARE(next.process().standardOutput(), QByteArray());
}

QTEST_GUILESS_MAIN(GlobalShortcutTest)
#include "GlobalShortcutTest.moc"
