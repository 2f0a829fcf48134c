#include "Picker.h"
#include "KeyCode.h"
#include "Preferences.h"
#include "support/ScriptedPlatform.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace tintwick;
using namespace tintwick::test;

namespace {

using namespace Qt::StringLiterals;

ScreenPosition at(double x, double y, int screen = 0)
{
    return {screen, QPointF(x, y)};
}

/// In a picture of the medium loupe, which has room for shadows: 22 pixels on both sides and above.
constexpr QPoint centerOfLens(22 + 65, 22 + 65);

QString textOf(QRgb color)
{
    return QColor(color).name();
}

/// A scripted desktop with the pointer at (500, 400), and a picker on it.
struct Desk
{
    QTemporaryDir folder;
    Preferences preferences{folder.filePath(u"preferences.conf"_s)};
    ScriptedPlatform platform;
    ScriptedDesktop& desktop = platform.desktop;
    std::unique_ptr<Picker> picker = std::make_unique<Picker>(platform, preferences, textOf);
    QList<QRgb> picked;
    QStringList failures;
    int cancellations = 0;
    int ends = 0;

    Desk()
    {
        desktop.pointer = at(500, 400);
        QObject::connect(picker.get(), &Picker::picked, [this](QRgb color) {
            desktop.journal << u"picked"_s;
            picked << color;
        });
        QObject::connect(picker.get(), &Picker::ended, [this](const PickOutcome& outcome) {
            ++ends;
            if (outcome.kind == PickOutcome::Kind::Cancelled) {
                ++cancellations;
            } else if (outcome.kind == PickOutcome::Kind::Failed) {
                failures << outcome.reason;
            }
        });
    }

    void start()
    {
        picker->start();
        QCoreApplication::processEvents();
    }

    void key(int keyCode, int modifiers = 0) const
    {
        desktop.key({.keyCode = keyCode, .modifiers = modifiers});
    }
    void click(const ScreenPosition& position) const { desktop.press(PointerButton::Primary, position); }
    [[nodiscard]] int grabs() const { return static_cast<int>(desktop.grabs.size()); }
    [[nodiscard]] int shown() const { return static_cast<int>(desktop.frames.size()); }
    /// The side of the last grab; 1 after a colour was picked.
    [[nodiscard]] int side() const { return desktop.grabs.back().pixels.width(); }
    /// Whether the desktop has everything back.
    [[nodiscard]] bool isReleased() const
    {
        return (!picker || !picker->isPicking()) && !desktop.isPicking() &&
               desktop.journal.count(u"start"_s) == desktop.journal.count(u"end"_s);
    }
};

} // namespace

class PickerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPickCopiesItsTextAndReturnsTheDesktopBeforeItIsReported()
    {
        Desk desk;
        desk.picker->start();
        QVERIFY(desk.picker->isPicking());
        QVERIFY(desk.desktop.journal.isEmpty());
        QCoreApplication::processEvents();
        QCOMPARE(desk.desktop.journal, (QStringList{u"start"_s, u"grab"_s, u"show loupe"_s}));

        desk.desktop.journal.clear();
        desk.click(at(500, 400));
        // 500 is 0x1F4, 400 is 0x190.
        QCOMPARE(desk.desktop.journal, (QStringList{u"grab"_s, u"copy #f49064"_s, u"end"_s, u"picked"_s}));
        QVERIFY(!desk.picker->isPicking());
        QCOMPARE(desk.picked, (QList<QRgb>{0xfff49064}));
    }

    void cancellingCopiesNothing()
    {
        Desk desk;
        desk.start();
        desk.key(keycode::escape);
        QVERIFY(desk.isReleased());
        QCOMPARE(desk.cancellations, 1);
        QVERIFY(desk.picked.isEmpty());
        QVERIFY(desk.desktop.journal.filter(u"copy"_s).isEmpty());
    }

    void withShiftAColorIsTakenAndThePickGoesOn_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("click") << false;
        QTest::newRow("Return") << true;
    }
    void withShiftAColorIsTakenAndThePickGoesOn()
    {
        QFETCH(const bool, byKey);
        Desk desk;
        desk.start();
        const auto take = [&](int x, int modifiers) {
            desk.desktop.move(at(x, 400));
            if (byKey) {
                desk.key(keycode::returnKey, modifiers);
            } else {
                desk.desktop.press(PointerButton::Primary, at(x, 400), modifiers);
            }
        };
        take(500, modifier::shift);
        take(501, modifier::shift);
        QVERIFY(desk.picker->isPicking());
        QCOMPARE(desk.picked, (QList<QRgb>{0xfff49064, 0xfff59065}));
        QCOMPARE(desk.ends, 0);
        take(502, 0);
        QVERIFY(desk.isReleased());
        QCOMPARE(desk.picked, (QList<QRgb>{0xfff49064, 0xfff59065, 0xfff69066}));
        QCOMPARE(desk.ends, 1);
        QCOMPARE(desk.cancellations, 0);
        QCOMPARE(desk.desktop.journal.filter(u"copy"_s),
                 (QStringList{u"copy #f49064"_s, u"copy #f49064\n#f59065"_s,
                              u"copy #f49064\n#f59065\n#f69066"_s}));
    }

    void endingAPickOfManyKeepsWhatWasTaken_data()
    {
        QTest::addColumn<bool>("byButton");
        QTest::newRow("Escape") << false;
        QTest::newRow("right click") << true;
    }
    void endingAPickOfManyKeepsWhatWasTaken()
    {
        QFETCH(const bool, byButton);
        Desk desk;
        desk.start();
        desk.desktop.press(PointerButton::Primary, at(500, 400), modifier::shift);
        desk.desktop.journal.clear();
        if (byButton) {
            desk.desktop.press(PointerButton::Secondary, at(500, 400));
        } else {
            desk.key(keycode::escape);
        }
        QCOMPARE(desk.desktop.journal, (QStringList{u"end"_s}));
        QCOMPARE(desk.picked, (QList<QRgb>{0xfff49064}));
        QCOMPARE(desk.cancellations, 0);
        QCOMPARE(desk.ends, 1);
    }

    void aPickOfACountEndsWithTheLastColorAlsoWithShift()
    {
        Desk desk;
        desk.picker->start({.count = 3});
        QCoreApplication::processEvents();
        desk.click(at(500, 400));
        desk.desktop.press(PointerButton::Primary, at(501, 400), modifier::shift);
        QVERIFY(desk.picker->isPicking());
        desk.desktop.press(PointerButton::Primary, at(502, 400), modifier::shift);
        QVERIFY(desk.isReleased());
        QCOMPARE(desk.picked.size(), 3);
        QCOMPARE(desk.desktop.journal.count(u"start"_s), 1);
    }

    void thePillShowsWhatAPickCopiesIfTheUserWantsIt()
    {
        Desk desk;
        QImage pictures[3];
        for (const LoupeCaption caption : allLoupeCaptions) {
            desk.preferences.setLoupeCaption(caption);
            desk.start();
            pictures[static_cast<int>(caption)] = desk.desktop.frames.back().picture;
            desk.key(keycode::escape);
        }
        const auto& [name, text, both] = pictures;
        QCOMPARE(text.size(), name.size());
        QVERIFY(text != name);
        // 13 points for the further line.
        QCOMPARE(both.size(), name.size() + QSize(0, 13));
    }

    void thePillCountsTheTakenColors()
    {
        Desk desk;
        desk.start();
        QImage before = desk.desktop.frames.back().picture;
        for (int count = 1; count <= 3; ++count) {
            desk.desktop.press(PointerButton::Primary, at(500, 400), modifier::shift);
            const QImage after = desk.desktop.frames.back().picture;
            QVERIFY(after != before);
            before = after;
        }
        desk.key(keycode::escape);
        desk.start();
        desk.desktop.press(PointerButton::Primary, at(500, 400), modifier::shift);
        desk.desktop.press(PointerButton::Primary, at(500, 400), modifier::shift);
        desk.desktop.press(PointerButton::Primary, at(500, 400), modifier::shift);
        QCOMPARE(desk.desktop.frames.back().picture, before);
    }

    void aClipboardThatIsNotOursIsReported_data()
    {
        QTest::addColumn<bool>("accepts");
        QTest::newRow("copied") << true;
        QTest::newRow("not copied") << false;
    }
    void aClipboardThatIsNotOursIsReported()
    {
        QFETCH(const bool, accepts);
        Desk desk;
        desk.desktop.acceptsClipboard = accepts;
        const QSignalSpy picked(desk.picker.get(), &Picker::picked);
        desk.start();
        desk.click(at(500, 400));
        QCOMPARE(picked.size(), 1);
        QCOMPARE(picked.at(0).at(1).toBool(), accepts);
    }

    void aPickCanStartFrozen()
    {
        Desk desk;
        desk.picker->start({.startsFrozen = true});
        QCOMPARE(desk.desktop.journal, (QStringList{u"freeze"_s}));
        QCoreApplication::processEvents();
        QCOMPARE(desk.desktop.journal, (QStringList{u"freeze"_s, u"start"_s, u"grab"_s, u"show loupe"_s}));
    }

    void theFKeyFreezesAndThaws_data()
    {
        QTest::addColumn<KeyPress>("press");
        QTest::newRow("by its letter") << KeyPress{.keyCode = keycode::u, .character = U'f'};
        QTest::newRow("with Shift") << KeyPress{.keyCode = keycode::f, .character = U'F'};
        QTest::newRow("by its place") << KeyPress{.keyCode = keycode::f, .character = U'а'};
    }
    void theFKeyFreezesAndThaws()
    {
        QFETCH(const KeyPress, press);
        Desk desk;
        desk.start();
        desk.desktop.journal.clear();
        desk.desktop.key(press);
        QCOMPARE(desk.desktop.journal, (QStringList{u"freeze"_s}));
        KeyPress held = press;
        held.isRepeat = true;
        desk.desktop.key(held);
        QCOMPARE(desk.desktop.journal, (QStringList{u"freeze"_s}));
        desk.desktop.key(press);
        QCOMPARE(desk.desktop.journal, (QStringList{u"freeze"_s, u"thaw"_s}));
    }

    void aKeyThatTypesAnotherLetterAtThePlaceOfFDoesNothing()
    {
        Desk desk;
        desk.start();
        desk.desktop.journal.clear();
        desk.desktop.key({.keyCode = keycode::f, .character = U'u'});
        QVERIFY(desk.desktop.journal.isEmpty());
    }

    void aFrozenPictureIsTakenAgain_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::newRow("R") << int{keycode::r};
        QTest::newRow("F5") << int{keycode::f5};
    }
    void aFrozenPictureIsTakenAgain()
    {
        QFETCH(const int, keyCode);
        Desk desk;
        desk.desktop.canThaw = false;
        desk.desktop.isFrozen = true;
        desk.start();
        desk.desktop.journal.clear();
        desk.key(keyCode);
        QCOMPARE(desk.desktop.journal, (QStringList{u"retake"_s}));
        desk.key(keycode::f);
        QCOMPARE(desk.desktop.journal, (QStringList{u"retake"_s}));
    }

    void thePillSaysThatThePictureIsFrozenAndDeep()
    {
        Desk desk;
        desk.start();
        const QImage live = desk.desktop.frames.back().picture;
        desk.key(keycode::f);
        desk.desktop.move(at(501, 400));
        desk.desktop.move(at(500, 400));
        const QImage frozen = desk.desktop.frames.back().picture;
        QVERIFY(frozen != live);
        desk.key(keycode::f);
        desk.desktop.screens[0].bitsPerChannel = 10;
        desk.desktop.move(at(501, 400));
        desk.desktop.move(at(500, 400));
        QVERIFY(desk.desktop.frames.back().picture != live);
        QVERIFY(desk.desktop.frames.back().picture != frozen);
    }

    void aSecondStartDuringAPickIsIgnored()
    {
        Desk desk;
        desk.start();
        const QStringList journal = desk.desktop.journal;
        desk.start();
        QCOMPARE(desk.desktop.journal, journal);
    }

    void cancellingWithoutAPickDoesNothing()
    {
        Desk desk;
        desk.picker->cancel();
        QVERIFY(desk.desktop.journal.isEmpty());
        QCOMPARE(desk.cancellations, 0);
    }

    void aPickCanBeCancelledBeforeItHasBegun()
    {
        Desk desk;
        desk.picker->start();
        desk.picker->cancel();
        QCoreApplication::processEvents();
        QCOMPARE(desk.desktop.journal, QStringList{u"end"_s});
        QCOMPARE(desk.cancellations, 1);
        desk.start();
        QVERIFY(desk.desktop.isPicking());
    }

    void aClickPicksThePixelUnderIt_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<QPoint>("pixel");
        QTest::newRow("whole") << QPointF(123, 45) << QPoint(123, 45);
        QTest::newRow("first pixel") << QPointF(0, 0) << QPoint(0, 0);
        QTest::newRow("last pixel") << QPointF(1919.75, 1079.5) << QPoint(1919, 1079);
        QTest::newRow("just before the next pixel") << QPointF(123.99, 45.99) << QPoint(123, 45);
        QTest::newRow("smallest fraction of 16.16") << QPointF(123 + 1 / 65536.0, 45.5) << QPoint(123, 45);
    }

    void aClickPicksThePixelUnderIt()
    {
        QFETCH(const QPointF, point);
        QFETCH(const QPoint, pixel);
        const QRgb expected = worldColor(0, pixel.x(), pixel.y());
        for (const int radius : {1, 4, 7, 15}) {
            Desk desk;
            desk.preferences.setLoupeRadius(radius);
            desk.start();
            desk.desktop.move({0, point});
            QCOMPARE(desk.desktop.grabs.back().pixels,
                     QRect(pixel.x() - radius, pixel.y() - radius, 2 * radius + 1, 2 * radius + 1));
            const QImage& frame = desk.desktop.frames.back().picture;
            QCOMPARE(frame.pixel(centerOfLens), expected);
            desk.click({0, point});
            QCOMPARE(desk.picked, QList<QRgb>{expected});
        }
    }

    void onlyThePrimaryButtonPicksAndTheSecondaryCancels_data()
    {
        QTest::addColumn<PointerButton>("button");
        QTest::addColumn<int>("picks");
        QTest::addColumn<int>("cancels");
        QTest::newRow("primary") << PointerButton::Primary << 1 << 0;
        QTest::newRow("secondary") << PointerButton::Secondary << 0 << 1;
        QTest::newRow("middle") << PointerButton::Middle << 0 << 0;
        QTest::newRow("other") << PointerButton::Other << 0 << 0;
    }

    void onlyThePrimaryButtonPicksAndTheSecondaryCancels()
    {
        QFETCH(const PointerButton, button);
        Desk desk;
        desk.start();
        desk.desktop.press(button, at(500, 400));
        QTEST(static_cast<int>(desk.picked.size()), "picks");
        QTEST(desk.cancellations, "cancels");
        QCOMPARE(desk.picker->isPicking(), desk.picked.isEmpty() && desk.cancellations == 0);
    }

    void aClickWhereNoScreenIsPicksNothing_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::newRow("left") << QPointF(-0.5, 400);
        QTest::newRow("above") << QPointF(500, -1);
        QTest::newRow("right") << QPointF(1920, 400);
        QTest::newRow("below") << QPointF(500, 1080);
    }

    void aClickWhereNoScreenIsPicksNothing()
    {
        QFETCH(const QPointF, point);
        Desk desk;
        desk.start();
        desk.desktop.move({0, point});
        desk.click({0, point});
        desk.key(keycode::returnKey);
        QVERIFY(desk.picker->isPicking());
        desk.click(at(500, 400));
        QCOMPARE(desk.picked, QList<QRgb>{worldColor(0, 500, 400)});
    }

    void keysZoomMovePickAndCancel_data()
    {
        QTest::addColumn<KeyPress>("press");
        QTest::addColumn<int>("side");
        QTest::addColumn<QPointF>("pointer");
        QTest::addColumn<bool>("picks");
        QTest::addColumn<bool>("cancels");

        using namespace keycode;
        constexpr int none = 0;
        constexpr int super = modifier::super;
        constexpr int control = modifier::control;
        constexpr int shift = modifier::shift;
        constexpr int alt = modifier::alt;
        constexpr char32_t silent = 0;
        const QPointF here(500, 400);
        const auto cancels = [here](const char* name, const KeyPress& press) {
            QTest::newRow(name) << press << 15 << here << false << true;
        };
        const auto picks = [here](const char* name, const KeyPress& press) {
            QTest::newRow(name) << press << 1 << here << true << false;
        };
        const auto zooms = [here](const char* name, const KeyPress& press, int side) {
            QTest::newRow(name) << press << side << here << false << false;
        };
        const auto moves = [](const char* name, const KeyPress& press, QPointF pointer) {
            QTest::newRow(name) << press << 15 << pointer << false << false;
        };
        const auto ignored = [here](const char* name, const KeyPress& press) {
            QTest::newRow(name) << press << 15 << here << false << false;
        };

        cancels("Escape", {escape, none, false, U'\u001B'});
        cancels("Escape with a modifier", {escape, shift, false, U'\u001B'});
        cancels("Escape's position, with another meaning", {escape, none, false, silent});
        cancels("Caps Lock that types Escape", {capsLock, none, false, U'\u001B'});
        ignored("Escape held down", {escape, none, true, U'\u001B'});
        zooms("Super =", {equal, super, false, U'='}, 13);
        zooms("Super -", {minus, super, false, U'-'}, 17);
        zooms("Control =", {equal, control, false, U'='}, 13);
        zooms("Control -", {minus, control, false, U'-'}, 17);
        zooms("Super Shift =", {equal, super | shift, false, U'+'}, 13);
        zooms("Super = held down", {equal, super, true, U'='}, 13);
        zooms("Super keypad +", {keypadPlus, super, false, U'+'}, 13);
        zooms("Control keypad -", {keypadMinus, control, false, U'-'}, 17);
        zooms("keypad + that types nothing", {keypadPlus, control, false, silent}, 13);
        zooms("German +", {rightBracket, control, false, U'+'}, 13);
        zooms("German -", {slash, control, false, U'-'}, 17);
        zooms("the position of = on a German keyboard", {equal, control, false, U'´'}, 13);
        zooms("the position of - on a German keyboard", {minus, control, false, U'ß'}, 17);
        zooms("French -", {six, control, false, U'-'}, 17);
        zooms("Dvorak =", {rightBracket, control, false, U'='}, 13);
        zooms("Dvorak -", {quote, control, false, U'-'}, 17);
        zooms("what the key types counts before its position", {equal, control, false, U'-'}, 17);
        ignored("= alone", {equal, none, false, U'='});
        ignored("- with Alt", {minus, alt, false, U'-'});
        ignored("keypad + alone", {keypadPlus, none, false, U'+'});
        moves("left", {leftArrow, none, false, silent}, {499, 400});
        moves("right", {rightArrow, none, false, silent}, {501, 400});
        moves("up", {upArrow, none, false, silent}, {500, 399});
        moves("down", {downArrow, none, false, silent}, {500, 401});
        moves("right held down", {rightArrow, none, true, silent}, {501, 400});
        moves("Shift left", {leftArrow, shift, false, silent}, {490, 400});
        moves("Shift right", {rightArrow, shift, false, silent}, {510, 400});
        moves("Shift up", {upArrow, shift, false, silent}, {500, 390});
        moves("Shift down", {downArrow, shift, false, silent}, {500, 410});
        picks("Return", {returnKey, none, false, silent});
        picks("keypad Enter", {keypadEnter, none, false, silent});
        picks("Space", {space, none, false, U' '});
        ignored("Return held down", {returnKey, none, true, silent});
        ignored("Space held down", {space, none, true, U' '});
        ignored("a letter", {c, none, false, U'c'});
        ignored("a letter with Super", {c, super, false, U'c'});
        ignored("a key without a number", {-1, super, false, silent});
    }

    void keysZoomMovePickAndCancel()
    {
        QFETCH(const KeyPress, press);
        QFETCH(const bool, picks);
        QFETCH(const bool, cancels);
        Desk desk;
        desk.start();
        desk.desktop.key(press);
        QTEST(desk.side(), "side");
        QTEST(desk.desktop.pointer.point, "pointer");
        QCOMPARE(desk.picked, picks ? QList<QRgb>{worldColor(0, 500, 400)} : QList<QRgb>());
        QCOMPARE(desk.cancellations, cancels ? 1 : 0);
        QCOMPARE(desk.picker->isPicking(), !picks && !cancels);
        QVERIFY(desk.picker->isPicking() || desk.isReleased());
    }

    void arrowKeysMoveThePickedPixelWhetherOrNotThePointerFollows_data()
    {
        QTest::addColumn<bool>("canWarp");
        QTest::newRow("the pointer follows") << true;
        QTest::newRow("the pointer stays") << false;
    }

    void arrowKeysMoveThePickedPixelWhetherOrNotThePointerFollows()
    {
        QFETCH(const bool, canWarp);
        Desk desk;
        desk.desktop.canWarp = canWarp;
        desk.start();
        desk.desktop.move(at(500.75, 400.5));
        desk.key(keycode::rightArrow);
        QCOMPARE(desk.desktop.grabs.back().pixels, QRect(494, 393, 15, 15));
        QCOMPARE(desk.desktop.pointer, canWarp ? at(501, 400) : at(500.75, 400.5));
        desk.key(keycode::downArrow, modifier::shift);
        desk.key(keycode::space);
        QCOMPARE(desk.picked, QList<QRgb>{worldColor(0, 501, 410)});
    }

    void theReportOfAWarpDrawsNothingAgain()
    {
        Desk desk;
        desk.start();
        desk.key(keycode::rightArrow);
        QCOMPARE(desk.shown(), 2);
        desk.desktop.move(at(501, 400));
        QCOMPARE(desk.shown(), 2);
    }

    void arrowKeysStopAtTheEdgeOrGoOnToTheNextScreen_data()
    {
        QTest::addColumn<ScreenPosition>("from");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<ScreenPosition>("to");
        QTest::newRow("left edge") << at(3, 400) << keycode::leftArrow << modifier::shift << at(0, 400);
        QTest::newRow("top edge") << at(500, 0) << keycode::upArrow << 0 << at(500, 0);
        QTest::newRow("bottom edge") << at(500, 1075) << keycode::downArrow << modifier::shift
                                     << at(500, 1079);
        QTest::newRow("to the right screen") << at(1919, 400) << keycode::rightArrow << 0 << at(0, 200, 1);
        QTest::newRow("back from it, by ten")
            << at(4, 200, 1) << keycode::leftArrow << modifier::shift << at(1914, 400);
        QTest::newRow("beside the right screen")
            << at(1919, 100) << keycode::rightArrow << 0 << at(1919, 100);
    }

    void arrowKeysStopAtTheEdgeOrGoOnToTheNextScreen()
    {
        QFETCH(const ScreenPosition, from);
        QFETCH(const int, key);
        QFETCH(const int, modifiers);
        QFETCH(const ScreenPosition, to);
        Desk desk;
        desk.desktop.screens = {{{1920, 1080}, 1}, {{1280, 800}, 1}};
        desk.desktop.origins = {{0, 0}, {1920, 200}};
        desk.start();
        desk.desktop.move(from);
        desk.key(key, modifiers);
        QCOMPARE(desk.desktop.pointer, to);
        desk.key(keycode::returnKey);
        QCOMPARE(desk.picked, QList<QRgb>{worldColor(to.screen, to.pixel().x(), to.pixel().y())});
    }

    void scrollingZoomsAndKeepsTheRest()
    {
        Desk desk;
        desk.start();
        desk.desktop.scroll({2.0, true});
        desk.desktop.scroll({2.0, true});
        QCOMPARE(desk.shown(), 1);
        desk.desktop.scroll({2.0, true});
        QCOMPARE(desk.side(), 13);
        QCOMPARE(desk.shown(), 2);
        desk.desktop.scroll({4.0, true});
        QCOMPARE(desk.side(), 11);
        desk.desktop.scroll({-1.0, false});
        desk.desktop.scroll({-1.0, false});
        QCOMPARE(desk.side(), 13);
    }

    void zoomingBeyondABoundDrawsNothing_data()
    {
        QTest::addColumn<int>("radius");
        QTest::addColumn<int>("key");
        QTest::addColumn<double>("scroll");
        QTest::newRow("nearest") << 3 << keycode::equal << 5.0;
        QTest::newRow("farthest") << 15 << keycode::minus << -5.0;
    }

    void zoomingBeyondABoundDrawsNothing()
    {
        QFETCH(const int, radius);
        QFETCH(const int, key);
        QFETCH(const double, scroll);
        Desk desk;
        desk.preferences.setLoupeRadius(radius);
        desk.start();
        desk.key(key, modifier::super);
        desk.desktop.scroll({scroll, true});
        QCOMPARE(desk.grabs(), 1);
        QCOMPARE(desk.shown(), 1);
        QVERIFY(desk.picker->isPicking());
    }

    void aScrollBeyondABoundKeepsOnlyItsRest()
    {
        Desk desk;
        desk.preferences.setLoupeRadius(3);
        desk.start();
        desk.desktop.scroll({54.0, true});
        desk.desktop.scroll({-9.0, true});
        QCOMPARE(desk.side(), 9);
    }

    void everyPickBeginsWithTheStoredZoomAndTheFirstStepEntersTheBounds_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("sideAtStart");
        QTest::addColumn<int>("sideZoomedIn");
        QTest::addColumn<int>("sideZoomedOut");
        QTest::newRow("close") << 4 << 9 << 7 << 11;
        QTest::newRow("below the bounds") << 1 << 3 << 7 << 7;
        QTest::newRow("above the bounds") << 40 << 81 << 31 << 31;
    }

    void everyPickBeginsWithTheStoredZoomAndTheFirstStepEntersTheBounds()
    {
        QFETCH(const int, stored);
        Desk desk;
        desk.preferences.setLoupeRadius(stored);
        desk.start();
        QTEST(desk.side(), "sideAtStart");
        desk.key(keycode::equal, modifier::super);
        QTEST(desk.side(), "sideZoomedIn");
        desk.key(keycode::escape);

        desk.start();
        QTEST(desk.side(), "sideAtStart");
        desk.desktop.scroll({-5.0, true});
        QTEST(desk.side(), "sideZoomedOut");
    }

    void highContrastAppliesToTheNextLoupe()
    {
        Desk desk;
        desk.picker->setHighContrast(true);
        desk.start();
        const QImage& frame = desk.desktop.frames.back().picture;
        // The first column of cells ends at 12. The colours around (500, 400) are light.
        QCOMPARE(frame.pixel(22 + 11, 22 + 62), qRgb(0, 0, 0));
    }

    void theLoupeFollowsThePointerWithinItsScreen_data()
    {
        QTest::addColumn<Screen>("screen");
        QTest::addColumn<LoupeSize>("size");
        QTest::addColumn<QPointF>("pointer");
        QTest::addColumn<QSize>("loupe");
        QTest::addColumn<QPoint>("topLeft");

        const Screen plain{{1920, 1080}, 1};
        const Screen dense{{3840, 2160}, 2};
        const Screen tiny{{100, 100}, 1};
        const QSize medium(130, 186);
        const auto row = [](const char* name, const Screen& screen, LoupeSize size, QPointF pointer,
                            QSize loupe, QPoint topLeft) {
            QTest::newRow(name) << screen << size << pointer << loupe << topLeft;
        };
        row("middle", plain, LoupeSize::Medium, {960, 540}, medium, {895, 475});
        row("small", plain, LoupeSize::Small, {960, 540}, {100, 156}, {910, 490});
        row("large", plain, LoupeSize::Large, {960, 540}, {160, 216}, {880, 460});
        row("bottom left", plain, LoupeSize::Medium, {0, 1079}, medium, {4, 890});
        row("bottom right", plain, LoupeSize::Medium, {1919, 1079}, medium, {1786, 890});
        row("top left", plain, LoupeSize::Medium, {0, 0}, medium, {4, 4});
        row("top right", plain, LoupeSize::Medium, {1919, 0}, medium, {1786, 4});
        row("a fraction", plain, LoupeSize::Medium, {960.75, 540.25}, medium, {896, 475});
        row("beside the screen", plain, LoupeSize::Medium, {-300, 540}, medium, {4, 475});
        row("dense screen", dense, LoupeSize::Medium, {1920, 1080}, {260, 372}, {1790, 950});
        row("dense screen, top left", dense, LoupeSize::Medium, {0, 0}, {260, 372}, {8, 8});
        row("no room: the left and the bottom margin win", tiny, LoupeSize::Medium, {50, 50}, medium,
            {4, -90});
    }

    void theLoupeFollowsThePointerWithinItsScreen()
    {
        QFETCH(const Screen, screen);
        QFETCH(const LoupeSize, size);
        QFETCH(const QPointF, pointer);
        Desk desk;
        desk.preferences.setLoupeSize(size);
        desk.desktop.screens = {{{1280, 1024}, 1}, screen};
        desk.desktop.origins = {{0, 0}, {1280, 0}};
        desk.start();
        desk.desktop.move({1, pointer});
        QCOMPARE(desk.shown(), 2);
        const ScriptedDesktop::Frame& frame = desk.desktop.frames.back();
        QCOMPARE(frame.screen, 1);
        // Without the room for the shadows
        const QMarginsF shadows = QMarginsF(22, 22, 22, 14) * screen.scale;
        const QRect loupe = QRect(frame.topLeft, frame.picture.size()).marginsRemoved(shadows.toMargins());
        QTEST(loupe.size(), "loupe");
        QTEST(loupe.topLeft(), "topLeft");
    }

    void withoutAPictureTheLoupeIsDarkAndNothingIsPicked()
    {
        Desk desk;
        const auto world = std::exchange(desk.desktop.picture, [](const auto&) { return QImage(); });
        desk.start();
        QCOMPARE(desk.desktop.frames.back().picture.pixelColor(38, 38), QColor(0x55, 0x55, 0x55));
        desk.click(at(500, 400));
        desk.key(keycode::returnKey);
        QVERIFY(desk.picker->isPicking());

        desk.desktop.picture = world;
        desk.click(at(500, 400));
        QCOMPARE(desk.picked, QList<QRgb>{worldColor(0, 500, 400)});
        QVERIFY(desk.isReleased());
    }

    void aRefusedPickReportsTheReasonAndShowsNothing()
    {
        Desk desk;
        desk.desktop.refusal = u"The desktop is busy."_s;
        desk.start();
        QCOMPARE(desk.desktop.journal, QStringList{u"refuse"_s});
        QCOMPARE(desk.failures, QStringList{u"The desktop is busy."_s});
        QVERIFY(!desk.picker->isPicking());

        desk.desktop.refusal.reset();
        desk.start();
        QVERIFY(desk.picker->isPicking());
    }

    void aLostSessionIsCancelled()
    {
        Desk desk;
        desk.start();
        desk.desktop.lose();
        QVERIFY(desk.isReleased());
        QCOMPARE(desk.cancellations, 1);
    }

    void aNewPickMayStartFromTheSignalOfTheLast()
    {
        Desk desk;
        QObject::connect(desk.picker.get(), &Picker::ended, desk.picker.get(), [&] {
            if (desk.picked.size() == 1) {
                desk.picker->start();
            }
        });
        desk.start();
        desk.click(at(500, 400));
        QVERIFY(desk.picker->isPicking());
        QCoreApplication::processEvents();
        desk.click(at(7, 9));
        QCOMPARE(desk.picked, (QList<QRgb>{worldColor(0, 500, 400), worldColor(0, 7, 9)}));
        QVERIFY(desk.isReleased());
    }

    void aPickerDestroyedDuringAPickReturnsTheDesktop()
    {
        Desk desk;
        desk.start();
        desk.desktop.reportChange();
        desk.desktop.journal.clear();
        desk.picker.reset();
        QCOMPARE(desk.desktop.journal, QStringList{u"end"_s});
        QCoreApplication::processEvents();
        QVERIFY(desk.picked.isEmpty());
        QCOMPARE(desk.grabs(), 1);
    }

    void changesOfTheContentAreFollowed()
    {
        Desk desk;
        desk.start();
        for (int change = 1; change <= 3; ++change) {
            desk.desktop.reportChange();
            desk.desktop.reportChange();
            QCOMPARE(desk.shown(), change);
            QTRY_COMPARE(desk.shown(), change + 1);
            QCOMPARE(desk.desktop.grabs.back(), (ScriptedDesktop::Grab{0, {493, 393, 15, 15}}));
            QCoreApplication::processEvents();
            QCOMPARE(desk.shown(), change + 1);
        }
    }

    void changesWithoutPauseAreFollowedOnceAFrame()
    {
        Desk desk;
        desk.start();
        QElapsedTimer time;
        time.start();
        while (desk.shown() < 4) {
            desk.desktop.reportChange();
            QCoreApplication::processEvents();
        }
        // The first change may be followed at once, when the start lies a frame back.
        QVERIFY2(time.elapsed() >= 2 * 15, qPrintable(QString::number(time.elapsed())));
    }

    void aMoveShowsAWaitingChangeToo()
    {
        Desk desk;
        desk.start();
        desk.desktop.reportChange();
        desk.desktop.move(at(501, 400));
        QCOMPARE(desk.shown(), 2);
        QCoreApplication::processEvents();
        QCOMPARE(desk.shown(), 2);
    }

    void theLoupeStaysAtTheFractionOfTheLastMove()
    {
        Desk desk;
        desk.start();
        desk.desktop.move(at(100.75, 100.25));
        const QPoint place = desk.desktop.frames.back().topLeft;
        desk.desktop.reportChange();
        QCoreApplication::processEvents();
        desk.key(keycode::equal, modifier::super);
        QCOMPARE(desk.desktop.frames.back().topLeft, place);
        QCOMPARE(desk.desktop.grabs.back().pixels, QRect(94, 94, 13, 13));
    }

    void aScreenThatVanishesMovesTheLoupe()
    {
        Desk desk;
        desk.desktop.screens = {{{1920, 1080}, 1}, {{1280, 1024}, 1}};
        desk.desktop.origins = {{0, 0}, {1920, 0}};
        desk.start();
        desk.desktop.move(at(580, 500, 1));
        QCOMPARE(desk.desktop.frames.back().topLeft + QPoint(22, 22), QPoint(515, 435));

        desk.desktop.screens.resize(1);
        desk.desktop.origins.resize(1);
        // Until the desktop reports where the pointer is now, nothing is read from the screen that is gone.
        desk.key(keycode::returnKey);
        desk.desktop.reportChange();
        QCoreApplication::processEvents();
        QCOMPARE(desk.shown(), 2);
        QVERIFY(desk.picked.isEmpty());

        desk.desktop.move(at(1919, 300));
        QCOMPARE(desk.desktop.frames.back().screen, 0);
        QCOMPARE(desk.desktop.frames.back().topLeft + QPoint(22, 22), QPoint(1786, 235));
    }

    void withoutAnyScreenNoLoupeIsShownAndEscapeCancels()
    {
        Desk desk;
        desk.desktop.screens.clear();
        desk.start();
        QVERIFY(desk.picker->isPicking());
        desk.key(keycode::rightArrow);
        desk.key(keycode::returnKey);
        QCOMPARE(desk.grabs(), 0);
        QCOMPARE(desk.shown(), 0);
        desk.key(keycode::escape);
        QVERIFY(desk.isReleased());
    }
};

QTEST_MAIN(PickerTest)
#include "PickerTest.moc"
