#include "ShortcutRecorder.h"
#include "Button.h"
#include "Label.h"
#include "Overlay.h"
#include "Preferences.h"
#include "ShortcutRegistry.h"
#include "Ticker.h"
#include "support/OutputOf.h"
#include "support/ScriptedGlobalShortcuts.h"
#include "support/ScriptedKeyRecording.h"
#include "support/ScriptedKeyboardLayout.h"

#include <QAccessible>
#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

namespace tintwick::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int super = 0x100, shift = 0x200, alt = 0x800, control = 0x1000;
constexpr int keyC = 8, keyD = 2, keyQ = 12, tab = 48, escape = 53, backspace = 51, f5 = 96;

enum class Keyboard { CanBeTaken, CannotBeTaken };

/// A panel with two recorders and a button below them, on a desktop that holds ⌘D.
struct Scene
{
    QTemporaryDir folder;
    Preferences preferences{folder.filePath(u"settings.conf"_s)};
    ScriptedGlobalShortcuts desktop;
    ScriptedKeyboardLayout layout;
    ScriptedKeyRecording keys;
    ShortcutRegistry registry{desktop, layout, preferences};
    QMenu menu;
    /// The id of each action whose shortcut changed.
    QStringList changes;
    int picks = 0;

    QWidget panel;
    ShortcutRecorder* recorder = nullptr;
    ShortcutRecorder* other = nullptr;
    TextButton* button = nullptr;

    explicit Scene(Keyboard keyboard = Keyboard::CanBeTaken)
    {
        Ticker::shared().setMode(Ticker::Mode::ByHand);
        layout.characters = {{keyC, u"c"_s}, {keyD, u"d"_s}, {keyQ, u"q"_s}};
        desktop.taken = {{keyD, super}};
        menu.addAction(u"Quit Tintwick"_s)->setShortcut(Qt::CTRL | Qt::Key_Q);
        QObject::connect(&registry, &ShortcutRegistry::deactivated, &registry, [this] { ++picks; });
        registry.start();
        QObject::connect(&registry, &ShortcutRegistry::shortcutChanged, &registry,
                         [this](ShortcutAction action) { changes << idOf(action); });

        const RecorderServices services{registry, keyboard == Keyboard::CanBeTaken ? &keys : nullptr, layout,
                                        menu};
        recorder = new ShortcutRecorder(services, ShortcutAction::ActivatePicker, panel);
        other = new ShortcutRecorder(services, ShortcutAction::OpenMainWindow, panel);
        button = borderedButton(u"Done"_s, [] {});
        panel.resize(380, 580);
        int y = 40;
        for (QWidget* child :
             {static_cast<QWidget*>(recorder), static_cast<QWidget*>(other), static_cast<QWidget*>(button)}) {
            child->setParent(&panel);
            child->move(100, y);
            y += 60;
        }
        // Without this the active window gives the focus to its first control.
        panel.setFocus();
        panel.show();
        panel.activateWindow();
        [&] { QVERIFY(QTest::qWaitForWindowActive(&panel)); }();
    }

    void click(QPoint place)
    {
        QTest::mouseClick(panel.windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    }
    void click(const QWidget& widget) { click(widget.mapTo(&panel, widget.rect().center())); }

    [[nodiscard]] std::optional<Shortcut> stored() const
    {
        return registry.shortcut(ShortcutAction::ActivatePicker);
    }
    [[nodiscard]] PlainButton& clearButton() const { return *recorder->findChild<PlainButton*>(); }
    [[nodiscard]] Overlay* alert() const { return Overlay::of(panel); }
    [[nodiscard]] QStringList alertTexts() const
    {
        QStringList texts;
        for (const auto* label : alert()->findChildren<Label*>()) {
            texts << label->text().replace(u'\n', u' ');
        }
        return texts;
    }
    [[nodiscard]] TextButton* alertButton(const QString& title) const
    {
        for (auto* candidate : alert()->findChildren<TextButton*>()) {
            if (candidate->accessibleName() == title) {
                return candidate;
            }
        }
        return nullptr;
    }
};

[[nodiscard]] QAccessibleInterface& accessible(QWidget& widget)
{
    return *QAccessible::queryAccessibleInterface(&widget);
}

const Shortcut altShiftC{keyC, alt | shift};

} // namespace

class ShortcutRecorderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFieldShowsTheShortcut()
    {
        const Scene scene;
        QCOMPARE(scene.recorder->text(), u"⌥⇧C"_s);
        QCOMPARE(scene.recorder->placeholder(), u"Record Shortcut"_s);
        QCOMPARE(scene.other->text(), QString());
        QVERIFY(!scene.recorder->isRecording());
    }

    void theFieldIsAsWideAsItsTextButNotNarrowerThanTheMinimum()
    {
        Scene scene;
        QCOMPARE(scene.recorder->size(), QSize(130, 24));
        QCOMPARE(scene.recorder->sizeHint(), QSize(130, 24));
        constexpr int space = 49;
        scene.registry.setShortcut(ShortcutAction::ActivatePicker,
                                   Shortcut{space, control | alt | shift | super});
        QCOMPARE(scene.recorder->text(), u"⌃⌥⇧⌘Space"_s);
        QVERIFY(scene.recorder->sizeHint().width() > 130);
        QCOMPARE(scene.recorder->sizeHint().height(), 24);
    }

    void aLongTextStaysBesideTheClearButton()
    {
        Scene scene;
        constexpr int keypadEnter = 76;
        scene.preferences.setKeyNames(KeyNames::Words);
        scene.registry.setShortcut(ShortcutAction::ActivatePicker,
                                   Shortcut{keypadEnter, control | alt | shift | super});
        scene.recorder->resize(170, 24);
        scene.clearButton().setVisible(true);
        const QImage image = scene.recorder->grab().toImage();
        const QColor ground = image.pixelColor(151, 6);
        for (int y = 3; y < 21; ++y) {
            QCOMPARE(image.pixelColor(149, y), ground);
        }
    }

    void theClearButtonIsVisibleWhileThereIsAShortcut()
    {
        Scene scene;
        QVERIFY(scene.clearButton().isVisible());
        QVERIFY(!scene.other->findChild<PlainButton*>()->isVisible());
        scene.registry.setShortcut(ShortcutAction::ActivatePicker, std::nullopt);
        QVERIFY(!scene.clearButton().isVisible());
        scene.registry.setShortcut(ShortcutAction::ActivatePicker, Shortcut{f5, 0});
        QVERIFY(scene.clearButton().isVisible());
        QCOMPARE(scene.recorder->text(), u"F5"_s);
    }

    void aChangeOfAnotherActionIsNotShown()
    {
        Scene scene;
        scene.registry.setShortcut(ShortcutAction::OpenMainWindow, Shortcut{f5, 0});
        QCOMPARE(scene.other->text(), u"F5"_s);
        QCOMPARE(scene.recorder->text(), u"⌥⇧C"_s);
    }

    void aShortcutOfAnotherProgramIsGreyedWithAMessageUntilItIsFree()
    {
        Scene scene;
        scene.desktop.taken = {altShiftC};
        const QImage working = scene.recorder->grab().toImage();
        const QByteArray line =
            outputOf([&] { scene.registry.setShortcut(ShortcutAction::ActivatePicker, altShiftC); });
        QCOMPARE(line, QByteArray("Error registering hotkey ⌥⇧C: -9878\n"));
        QCOMPARE(scene.recorder->message(), u"Taken by another program"_s);
        QCOMPARE(accessible(*scene.recorder).text(QAccessible::Description), u"Taken by another program"_s);
        QCOMPARE(scene.recorder->text(), u"⌥⇧C"_s);
        QVERIFY(scene.recorder->grab().toImage() != working);
        QCOMPARE(scene.other->message(), QString());

        scene.desktop.taken.clear();
        scene.panel.hide();
        scene.panel.show();
        QCOMPARE(scene.recorder->message(), QString());
        QCOMPARE(scene.recorder->grab().toImage(), working);
    }

    void theTextFollowsTheLayout()
    {
        Scene scene;
        scene.layout.characters[keyC] = u"j"_s;
        Q_EMIT scene.layout.changed();
        QCOMPARE(scene.recorder->text(), u"⌥⇧J"_s);
    }

    void aClickStartsRecordingAndTheTextStays()
    {
        Scene scene;
        scene.click(*scene.recorder);
        QVERIFY(scene.recorder->isRecording());
        QVERIFY(scene.recorder->hasFocus());
        QVERIFY(scene.keys.isOn());
        QVERIFY(scene.registry.isPaused());
        QCOMPARE(scene.recorder->text(), u"⌥⇧C"_s);
        QCOMPARE(scene.recorder->placeholder(), u"Press Shortcut"_s);
        QVERIFY(scene.clearButton().isVisible());
    }

    void theRightButtonDoesNotStartRecording()
    {
        Scene scene;
        QTest::mouseClick(scene.recorder, Qt::RightButton);
        QVERIFY(!scene.recorder->isRecording());
    }

    void tabFocusesTheFieldAndSpaceOrReturnStartsRecording_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("Space") << int(Qt::Key_Space);
        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("Enter") << int(Qt::Key_Enter);
    }
    void tabFocusesTheFieldAndSpaceOrReturnStartsRecording()
    {
        QFETCH(const int, key);
        Scene scene;
        scene.recorder->setFocus(Qt::TabFocusReason);
        QVERIFY(!scene.recorder->isRecording());
        QTest::keyClick(scene.recorder, static_cast<Qt::Key>(key));
        QVERIFY(scene.recorder->isRecording());
        scene.keys.press(escape);
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(scene.recorder->hasFocus());
    }

    void aHiddenFieldDoesNotRecord()
    {
        Scene scene;
        scene.recorder->hide();
        scene.recorder->startRecording();
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.keys.isOn());
    }

    void recordingDoesNotStartWhenTheKeyboardIsRefused()
    {
        Scene scene;
        scene.keys.outcome = KeyRecording::Outcome::Refused;
        scene.click(*scene.recorder);
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.recorder->hasFocus());
        QVERIFY(!scene.registry.isPaused());
    }

    void anAcceptedShortcutIsStoredAndEndsRecording()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.desktop.journal.clear();
        scene.keys.press(keyC, super);
        QCOMPARE(scene.stored(), (Shortcut{keyC, super}));
        QCOMPARE(scene.recorder->text(), u"⌘C"_s);
        QCOMPARE(scene.desktop.journal, QStringList{u"bind activatePicker 8+256"_s});
        QCOMPARE(scene.changes, QStringList{u"activatePicker"_s});
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.recorder->hasFocus());
        QVERIFY(!scene.keys.isOn());
        QVERIFY(!scene.registry.isPaused());
    }

    void aFunctionKeyNeedsNoModifier()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.keys.press(f5);
        QCOMPARE(scene.stored(), (Shortcut{f5, 0}));
    }

    void aRefusedKeyChangesNothingAndRecordingContinues()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.keys.press(keyC);
        scene.keys.press(keyC, shift);
        scene.keys.press(-1, control);
        QVERIFY(scene.recorder->isRecording());
        QCOMPARE(scene.stored(), altShiftC);
        QCOMPARE(scene.alert(), nullptr);
        scene.keys.press(f5);
        QCOMPARE(scene.stored(), (Shortcut{f5, 0}));
    }

    void theMessageSaysWhyAKeyIsRefused()
    {
        Scene scene;
        scene.click(*scene.recorder);
        QCOMPARE(scene.recorder->message(), QString());
        scene.keys.press(keyC, shift);
        QCOMPARE(scene.recorder->message(), u"This key needs Ctrl, Alt or Super"_s);
        QCOMPARE(accessible(*scene.recorder).text(QAccessible::Description),
                 u"This key needs Ctrl, Alt or Super"_s);
        scene.keys.press({.keyCode = -1, .hasOtherModifier = true});
        QCOMPARE(scene.recorder->message(), u"Only Ctrl, Alt, Shift and Super can be part of a shortcut"_s);
        scene.keys.press(-1, control);
        QCOMPARE(scene.recorder->message(), u"This key cannot be part of a shortcut"_s);
        scene.keys.press(escape);
        QCOMPARE(scene.recorder->message(), QString());
    }

    void theMessageSaysThatTheKeyboardIsHeld()
    {
        Scene scene;
        scene.keys.outcome = KeyRecording::Outcome::Refused;
        scene.click(*scene.recorder);
        QCOMPARE(scene.recorder->message(), u"Another program holds the keyboard"_s);
        scene.keys.outcome = KeyRecording::Outcome::Started;
        scene.click(*scene.recorder);
        QCOMPARE(scene.recorder->message(), QString());
    }

    void recordingEndsAfterAWhileWithoutAKey()
    {
        Scene scene;
        scene.recorder->setPatience(std::chrono::milliseconds(200));
        scene.click(*scene.recorder);
        QVERIFY(scene.recorder->isRecording());
        QTRY_VERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.keys.isOn());
        QVERIFY(!scene.registry.isPaused());
        QCOMPARE(scene.stored(), altShiftC);
    }

    void anAlertWaitsForItsAnswer()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.keys.press(keyD, super);
        QVERIFY(scene.alert());
        scene.recorder->setPatience(std::chrono::milliseconds(0));
        QApplication::processEvents();
        QVERIFY(scene.alert());
        QVERIFY(scene.recorder->isRecording());
    }

    void theToolTipAndScreenReadersHaveWords()
    {
        Scene scene;
        QCOMPARE(scene.recorder->toolTip(), u"Alt+Shift+C"_s);
        QCOMPARE(accessible(*scene.recorder).text(QAccessible::Value), u"Alt+Shift+C"_s);
        QCOMPARE(scene.other->toolTip(), QString());
    }

    void theFieldShowsWordsWhenTheUserPrefersThem()
    {
        Scene scene;
        scene.preferences.setKeyNames(KeyNames::Words);
        QCOMPARE(scene.recorder->text(), u"Alt+Shift+C"_s);
        scene.preferences.setKeyNames(KeyNames::Signs);
        QCOMPARE(scene.recorder->text(), u"⌥⇧C"_s);
    }

    void aHeldKeyIsNotRecorded()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.keys.repeat(f5);
        QVERIFY(scene.recorder->isRecording());
        QCOMPARE(scene.stored(), altShiftC);
    }

    void escapeEndsRecordingWithoutAChange()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.keys.press(escape);
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.recorder->hasFocus());
        QCOMPARE(scene.stored(), altShiftC);
        QCOMPARE(scene.changes, QStringList());
    }

    void deleteRemovesTheShortcut_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::newRow("Backspace") << backspace;
        QTest::newRow("Forward Delete") << 117;
    }
    void deleteRemovesTheShortcut()
    {
        QFETCH(const int, keyCode);
        Scene scene;
        scene.click(*scene.recorder);
        scene.keys.press(keyCode);
        QVERIFY(!scene.recorder->isRecording());
        QCOMPARE(scene.stored(), std::nullopt);
        QCOMPARE(scene.recorder->text(), QString());
        QCOMPARE(scene.changes, QStringList{u"activatePicker"_s});
        QCOMPARE(scene.preferences.shortcutText(u"activatePicker"_s), std::optional(u"false"_s));
    }

    void tabMovesTheFocusAndRecordsNothing_data()
    {
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("startsByKey");
        QTest::newRow("forwards from a click") << 0 << false;
        QTest::newRow("backwards from a click") << shift << false;
        QTest::newRow("forwards") << 0 << true;
        QTest::newRow("backwards") << shift << true;
    }
    void tabMovesTheFocusAndRecordsNothing()
    {
        QFETCH(const int, modifiers);
        QFETCH(const bool, startsByKey);
        Scene scene;
        if (startsByKey) {
            scene.recorder->setFocus(Qt::TabFocusReason);
            QTest::keyClick(scene.recorder, Qt::Key_Space);
        } else {
            scene.click(*scene.recorder);
        }
        scene.keys.press(tab, modifiers);
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.keys.isOn());
        QVERIFY(!scene.registry.isPaused());
        QWidget* const expected =
            modifiers == shift ? static_cast<QWidget*>(scene.button) : &scene.clearButton();
        QCOMPARE(QApplication::focusWidget(), expected);
        QCOMPARE(scene.stored(), altShiftC);
    }

    void theClearButtonRemovesTheShortcut()
    {
        Scene scene;
        scene.click(scene.clearButton());
        QCOMPARE(scene.stored(), std::nullopt);
        QCOMPARE(scene.changes, QStringList{u"activatePicker"_s});
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.recorder->hasFocus());
    }

    void theClearButtonEndsRecording()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.click(scene.clearButton());
        QCOMPARE(scene.stored(), std::nullopt);
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.recorder->hasFocus());
    }

    void theFieldGetsTheFocusOfTheClearButton()
    {
        Scene scene;
        scene.clearButton().setFocus(Qt::TabFocusReason);
        QTest::keyClick(&scene.clearButton(), Qt::Key_Space);
        QCOMPARE(scene.stored(), std::nullopt);
        QVERIFY(scene.recorder->hasFocus());
        QVERIFY(!scene.recorder->isRecording());
    }

    void aClickMoreThanThreePointsOutsideEndsRecording_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<bool>("ends");
        // The field is at 100, 40 and measures 130 by 24.
        QTest::newRow("on it") << QPoint(110, 50) << false;
        QTest::newRow("three to the left") << QPoint(97, 50) << false;
        QTest::newRow("four to the left") << QPoint(96, 50) << true;
        QTest::newRow("three above") << QPoint(110, 37) << false;
        QTest::newRow("four above") << QPoint(110, 36) << true;
        QTest::newRow("three to the right") << QPoint(232, 50) << false;
        QTest::newRow("four to the right") << QPoint(233, 50) << true;
        QTest::newRow("three below") << QPoint(110, 66) << false;
        QTest::newRow("four below") << QPoint(110, 67) << true;
    }
    void aClickMoreThanThreePointsOutsideEndsRecording()
    {
        QFETCH(const QPoint, place);
        QFETCH(const bool, ends);
        for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
            Scene scene;
            // As the settings screen, whose focus would end the recording.
            scene.panel.setFocusPolicy(Qt::ClickFocus);
            scene.click(*scene.recorder);
            QTest::mouseClick(scene.panel.windowHandle(), button, Qt::NoModifier, place);
            QCOMPARE(scene.recorder->isRecording(), !ends);
            QCOMPARE(scene.keys.isOn(), !ends);
        }
    }

    void aMiddleClickDoesNotEndRecording()
    {
        Scene scene;
        scene.panel.setFocusPolicy(Qt::ClickFocus);
        scene.click(*scene.recorder);
        for (const QPoint place : {QPoint(110, 50), QPoint(98, 50), QPoint(300, 400)}) {
            QTest::mouseClick(scene.panel.windowHandle(), Qt::MiddleButton, Qt::NoModifier, place);
            QVERIFY(scene.recorder->isRecording());
        }
    }

    void theClickThatEndsRecordingReachesItsControl()
    {
        Scene scene;
        int presses = 0;
        scene.button->onClick([&presses] { ++presses; });
        scene.click(*scene.recorder);
        scene.click(*scene.button);
        QCOMPARE(presses, 1);
        QVERIFY(!scene.recorder->isRecording());
    }

    void onlyOneFieldRecords()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.click(*scene.other);
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(scene.other->isRecording());
        QVERIFY(scene.registry.isPaused());
        scene.keys.press(f5);
        QCOMPARE(scene.stored(), altShiftC);
        QCOMPARE(scene.other->text(), u"F5"_s);
        QVERIFY(!scene.registry.isPaused());
    }

    void recordingEndsWhenTheWindowIsDeactivated()
    {
        Scene scene;
        scene.click(*scene.recorder);
        QWidget window;
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.keys.isOn());
        QVERIFY(!scene.registry.isPaused());
    }

    void recordingEndsWhenAnotherControlGetsTheFocus()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.button->setFocus(Qt::OtherFocusReason);
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.keys.isOn());
        QVERIFY(scene.button->hasFocus());
    }

    void recordingStartsInAWindowThatIsNotActiveYet()
    {
        Scene scene;
        QWidget window;
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        scene.recorder->startRecording();
        QVERIFY(scene.recorder->isRecording());
        scene.panel.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&scene.panel));
        QVERIFY(scene.recorder->isRecording());
        QVERIFY(scene.recorder->hasFocus());
        scene.keys.press(f5);
        QCOMPARE(scene.stored(), (Shortcut{f5, 0}));
        QVERIFY(!scene.recorder->hasFocus());
    }

    void theClearButtonEndsRecordingInAnInactiveWindow()
    {
        Scene scene;
        QWidget window;
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        scene.recorder->startRecording();
        scene.clearButton().click();
        QCOMPARE(scene.stored(), std::nullopt);
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.keys.isOn());
    }

    void recordingEndsWhenTheFieldIsHidden_data()
    {
        QTest::addColumn<bool>("hidesPanel");
        QTest::newRow("itself") << false;
        QTest::newRow("with the panel") << true;
    }
    void recordingEndsWhenTheFieldIsHidden()
    {
        QFETCH(const bool, hidesPanel);
        Scene scene;
        scene.click(*scene.recorder);
        (hidesPanel ? &scene.panel : static_cast<QWidget*>(scene.recorder))->hide();
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.keys.isOn());
        QVERIFY(!scene.registry.isPaused());
    }

    void recordingEndsWhenTheFieldIsDestroyed()
    {
        Scene scene;
        scene.click(*scene.recorder);
        delete scene.recorder;
        QVERIFY(!scene.keys.isOn());
        QVERIFY(!scene.registry.isPaused());
    }

    void theGlobalShortcutDoesNothingWhileRecording()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.desktop.pressAndRelease(altShiftC);
        QCOMPARE(scene.picks, 0);
        scene.keys.press(escape);
        scene.desktop.pressAndRelease(altShiftC);
        QCOMPARE(scene.picks, 1);
    }

    void aShortcutOfTheMenuIsRefusedWithAnAlertAndRecordingContinues()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.keys.press(keyQ, control);
        QVERIFY(scene.alert());
        QCOMPARE(scene.alertTexts(),
                 QStringList{u"This shortcut belongs to the menu item “Quit Tintwick”."_s});
        QCOMPARE(scene.alert()->findChildren<TextButton*>().size(), 1);
        QVERIFY(!scene.keys.isOn());
        QVERIFY(scene.registry.isPaused());
        QVERIFY(scene.alertButton(u"OK"_s)->hasFocus());

        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(scene.alert(), nullptr);
        QVERIFY(scene.recorder->isRecording());
        QVERIFY(scene.recorder->hasFocus());
        QVERIFY(scene.keys.isOn());
        QCOMPARE(scene.stored(), altShiftC);
        scene.keys.press(f5);
        QCOMPARE(scene.stored(), (Shortcut{f5, 0}));
        QVERIFY(!scene.recorder->hasFocus());
    }

    void noRecordingStartsBelowAnAlert()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.keys.press(keyQ, control);
        scene.other->startRecording();
        QVERIFY(!scene.other->isRecording());
        QVERIFY(scene.alertButton(u"OK"_s)->hasFocus());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(scene.recorder->isRecording());
        QVERIFY(scene.registry.isPaused());
        scene.keys.press(f5);
        QCOMPARE(scene.stored(), (Shortcut{f5, 0}));
        QVERIFY(!scene.registry.isPaused());
    }

    void aShortcutOfTheDesktopNeedsAConfirmation_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("OK") << "OK" << false;
        QTest::newRow("Return") << "Return" << false;
        QTest::newRow("Escape") << "Escape" << false;
        QTest::newRow("Use Anyway") << "Use Anyway" << true;
    }
    void aShortcutOfTheDesktopNeedsAConfirmation()
    {
        QFETCH(const QString, answer);
        QFETCH(const bool, accepted);
        Scene scene;
        scene.click(*scene.recorder);
        scene.keys.press(keyD, super);
        QVERIFY(scene.alert());
        QCOMPARE(scene.alertTexts(),
                 (QStringList{u"The desktop or another program uses this shortcut."_s,
                              u"Most shortcuts of the desktop can be changed in its keyboard settings."_s}));
        QVERIFY(scene.alertButton(u"Use Anyway"_s));
        QVERIFY(!scene.keys.isOn());

        const auto output = outputOf([&] {
            if (auto* button = scene.alertButton(answer)) {
                Ticker::shared().advance(60);
                scene.click(*button);
            } else {
                QTest::keyClick(QApplication::focusWidget(),
                                answer == u"Return"_s ? Qt::Key_Return : Qt::Key_Escape);
            }
        });
        QCOMPARE(output, accepted ? QByteArray("Error registering hotkey ⌘D: -9878\n") : QByteArray());
        QCOMPARE(scene.alert(), nullptr);
        QCOMPARE(scene.stored(), (accepted ? Shortcut{keyD, super} : altShiftC));
        QCOMPARE(scene.recorder->text(), accepted ? u"⌘D"_s : u"⌥⇧C"_s);
        QCOMPARE(scene.recorder->isRecording(), !accepted);
        QCOMPARE(scene.keys.isOn(), !accepted);
        QCOMPARE(scene.changes.size(), accepted ? 1 : 0);
        QCOMPARE(scene.registry.isPaused(), !accepted);
    }

    void aShortcutWithAnotherUseNeedsAConfirmation_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("copying") << keyC << control
                                 << QStringList{
                                        u"Other programs use ⌃C to copy."_s,
                                        u"They would no longer get these keys while Tintwick runs."_s};
        QTest::newRow("switching windows")
            << tab << alt
            << QStringList{u"Other programs use ⌥⇥ to switch windows."_s,
                           u"They would no longer get these keys while Tintwick runs."_s};
        QTest::newRow("the other action")
            << f5 << 0
            << QStringList{u"“Open Main Window” has this shortcut too."_s, u"One press would do both."_s};
    }
    void aShortcutWithAnotherUseNeedsAConfirmation()
    {
        QFETCH(const int, keyCode);
        QFETCH(const int, modifiers);
        QFETCH(const QStringList, texts);
        Scene scene;
        scene.registry.setShortcut(ShortcutAction::OpenMainWindow, Shortcut{f5, 0});
        scene.click(*scene.recorder);
        scene.keys.press(keyCode, modifiers);
        QVERIFY(scene.alert());
        QCOMPARE(scene.alertTexts(), texts);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(scene.stored(), altShiftC);
        QVERIFY(scene.recorder->isRecording());

        scene.keys.press(keyCode, modifiers);
        Ticker::shared().advance(60);
        scene.click(*scene.alertButton(u"Use Anyway"_s));
        QCOMPARE(scene.stored(), (Shortcut{keyCode, modifiers}));
        QVERIFY(!scene.recorder->isRecording());
    }

    void anAlertClosesWhenRecordingEnds()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.keys.press(keyD, super);
        const QPointer<Overlay> alert = scene.alert();
        scene.recorder->hide();
        QVERIFY(!alert->isVisible());
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.keys.isOn());
        QVERIFY(!scene.registry.isPaused());
    }

    void anAlertClosesWhenTheWindowIsDeactivated()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.keys.press(keyD, super);
        const QPointer<Overlay> alert = scene.alert();
        QWidget window;
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY(!alert || !alert->isVisible());
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.keys.isOn());
        QVERIFY(!scene.registry.isPaused());
    }

    void recordingEndsAfterAnAlertWhenTheKeyboardIsRefused()
    {
        Scene scene;
        scene.click(*scene.recorder);
        scene.keys.press(keyD, super);
        scene.keys.outcome = KeyRecording::Outcome::Refused;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.registry.isPaused());
    }

    void aScreenReaderGetsAHotKeyField()
    {
        Scene scene;
        auto& interface = accessible(*scene.recorder);
        QCOMPARE(interface.role(), QAccessible::HotkeyField);
        QCOMPARE(interface.text(QAccessible::Name), u"Activate Picker shortcut"_s);
        QCOMPARE(interface.text(QAccessible::Value), u"Alt+Shift+C"_s);
        QCOMPARE(interface.text(QAccessible::Description), u"Record Shortcut"_s);
        QCOMPARE(accessible(*scene.other).text(QAccessible::Value), QString());
        QCOMPARE(accessible(scene.clearButton()).text(QAccessible::Name), u"Clear Shortcut"_s);

        auto* const actions = interface.actionInterface();
        QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
        actions->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(scene.recorder->isRecording());
        QCOMPARE(interface.text(QAccessible::Description), u"Press Shortcut"_s);
        scene.keys.press(f5);
        QCOMPARE(interface.text(QAccessible::Value), u"F5"_s);
    }

    void whereTheKeyboardCannotBeTakenTheShortcutIsShownAndCannotBeChanged()
    {
        Scene scene(Keyboard::CannotBeTaken);
        QCOMPARE(scene.recorder->text(), u"⌥⇧C"_s);
        QCOMPARE(scene.recorder->placeholder(), u"Not Available"_s);
        QCOMPARE(scene.recorder->toolTip(), u"This desktop does not let Tintwick record shortcuts."_s);
        QCOMPARE(accessible(*scene.recorder).text(QAccessible::Description), u"Not Available"_s);
        QVERIFY(!scene.clearButton().isVisible());
        scene.click(*scene.recorder);
        QVERIFY(!scene.recorder->isRecording());
        QVERIFY(!scene.registry.isPaused());
        QCOMPARE(scene.stored(), altShiftC);
    }

    void recordingChangesThePicture()
    {
        Scene scene;
        const QImage idle = scene.recorder->grab().toImage();
        scene.click(*scene.recorder);
        const QImage recording = scene.recorder->grab().toImage();
        QVERIFY(idle != recording);
        // The ring runs along the edge.
        QCOMPARE(QColor(recording.pixel(60, 0)).hue(), QColor(0x4B, 0x50, 0xDC).hue());
        scene.keys.press(escape);
        QCOMPARE(scene.recorder->grab().toImage(), idle);
    }

    void theFocusRingIsDrawnForKeyboardFocus()
    {
        Scene scene;
        const QImage idle = scene.recorder->grab().toImage();
        scene.recorder->setFocus(Qt::TabFocusReason);
        QVERIFY(scene.recorder->grab().toImage() != idle);
    }
};

} // namespace tintwick::test

QTEST_MAIN(tintwick::test::ShortcutRecorderTest)
#include "ShortcutRecorderTest.moc"
