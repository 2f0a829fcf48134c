#include "SettingsScreen.h"

#include "Button.h"
#include "DataSettingsTab.h"
#include "Paragraph.h"
#include "Picker.h"
#include "PopUpPicker.h"
#include "SegmentedPicker.h"
#include "SettingsWindow.h"
#include "ShortcutCoding.h"
#include "ShortcutRecorder.h"
#include "Switch.h"
#include "TextField.h"
#include "ui/OwnHomeMain.h"
#include "ui/settings/SettingsFixture.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QTemporaryDir>
#include <QWindow>

using namespace tintwick;
using namespace tintwick::test;
using namespace Qt::StringLiterals;

namespace {

/// Handles URLs instead of the desktop's programs.
class AddressOpener final : public QObject
{
    Q_OBJECT

public:
    explicit AddressOpener(const QString& scheme)
        : m_scheme(scheme)
    {
        QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~AddressOpener() override { QDesktopServices::unsetUrlHandler(m_scheme); }

    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl& address) { opened.append(address); }

private:
    QString m_scheme;
};

/// Writes a project page into the user's data folder; returns its path.
QString installProjectPage()
{
    const QString folder = qEnvironmentVariable("XDG_DATA_HOME") + u"/doc/tintwick"_s;
    QFile page(folder + u"/README.md"_s);
    if (!QDir().mkpath(folder) || !page.open(QIODevice::WriteOnly) || page.write("# Tintwick\n") < 0) {
        qFatal("cannot write the project page");
    }
    return page.fileName();
}

/// Records key presses that reach a window or pass through it.
class KeysSeen final : public QObject
{
public:
    explicit KeysSeen(QWidget& window) { window.installEventFilter(this); }

    QList<int> keys;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) {
            keys.append(static_cast<QKeyEvent*>(event)->key());
        }
        return QObject::eventFilter(watched, event);
    }
};

/// The stored value as a program that starts now reads it.
QJsonObject storedData()
{
    QFile file(qEnvironmentVariable("XDG_DATA_HOME") + u"/Tintwick/data.json"_s);
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

/// The lines for the desktop's configuration and their hints, from top to bottom.
QStringList paragraphs(const SettingsFixture& fixture)
{
    QList<Paragraph*> all = fixture.view->findChildren<Paragraph*>();
    std::ranges::stable_sort(all, {},
                             [](const Paragraph* each) { return each->mapTo(each->window(), QPoint()).y(); });
    QStringList texts;
    for (const Paragraph* each : all) {
        texts.append(each->text());
    }
    return texts;
}

void click(QWidget* widget)
{
    QVERIFY(widget != nullptr);
    // Sent to the window, as the desktop does, so that the position in the window is right.
    QWidget* window = widget->window();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      widget->mapTo(window, widget->rect().center()));
}

} // namespace

class SettingsScreenTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void generalIsShownFirst();
    void tabsAreSwitchedByPointerAndKeys();
    void textsAreInOrder_data();
    void textsAreInOrder();
    void nothingIsCutOff_data();
    void nothingIsCutOff();
    void tabGoesFromTopToBottom();
    void takesTheFocusWhenShown();
    void escapeReachesThePanel();

    void tabShowsStoredValues_data();
    void tabShowsStoredValues();
    void aSwitchMovesRepeatedPicks();
    void aSwitchStartsTheProgramAtLogin();
    void theSwitchStaysWhenTheEntryCannotBeWritten();
    void choiceIsStoredAtOnce_data();
    void choiceIsStoredAtOnce();
    void nextPickUsesZoomAndSize();
    void nextPickUsesAStoredZoomThatIsNotOffered();

    void recordedShortcutIsStoredAndGrabbed();
    void aShortcutOfAnotherProgramIsMarkedInItsRowUntilItIsFree();
    void whereTheDesktopChoosesTheKeysTheyAreShownWithAButtonForItsDialog();
    void aLongTextOfTheDesktopCutsNothingElse();
    void whereOnlyTheUserBindsKeysTheLineIsShownAndCopied();
    void aHintForEachLineStandsBelowIt();
    void theLineFollowsTheKeyboardLayout();
    void rowsFollowTheKeyChoice();
    void withoutAnyShortcutsOfTheDesktopTheRecorderSaysSo();
    void tabReachesTheButtonsOfAllRows();

    void chosenFormatIsSaved();
    void formatFollowsTheState();
    void aTemplateIsEditedWithAPreview();

    void permissionIsShown_data();
    void permissionIsShown();
    void revokedPermissionIsShownAtTheNextPaint();
    void buttonOpensTheSystemSettings();

    void countFollowsTheHistory();
    void clearClearsAtOnce();
    void wholeHistoryIsExported_data();
    void wholeHistoryIsExported();
    void emptyHistoryExportsNoPicture();

    void versionIsThatOfTheBuild();
    void creditLinksToTheProjectPage();
    void noLinkWithoutAProjectPage();
    void projectPageIsTheFirstFileThatExists_data();
    void projectPageIsTheFirstFileThatExists();
    void installedProjectPageIsFound();

    void windowRefersToThePanel();
    void windowHasTheAppearanceOfThePanel();
};

void SettingsScreenTest::init()
{
    QSettings().clear();
    installProjectPage();
}

void SettingsScreenTest::generalIsShownFirst()
{
    SettingsFixture fixture;
    QCOMPARE(fixture.selected(u"Tab"_s), u"General"_s);
    QVERIFY(fixture.texts().contains(u"Copy Format"_s));
    fixture.view->setTab(SettingsTab::Data);
    fixture.open();
    QCOMPARE(fixture.selected(u"Tab"_s), u"General"_s);
    QCOMPARE(fixture.view->tab(), SettingsTab::General);
}

void SettingsScreenTest::tabsAreSwitchedByPointerAndKeys()
{
    const SettingsFixture fixture;
    click(fixture.segment(u"Tab"_s, u"Data"_s));
    SettingsFixture::settle();
    QVERIFY(fixture.texts().contains(u"Export All History"_s));
    QVERIFY(!fixture.texts().contains(u"Copy Format"_s));

    fixture.segment(u"Tab"_s, u"Data"_s)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(fixture.panel.focusWidget(), Qt::Key_Left);
    SettingsFixture::settle();
    QVERIFY(fixture.texts().contains(u"Copy Format"_s));
    QVERIFY(!fixture.texts().contains(u"Export All History"_s));
    QVERIFY(fixture.segment(u"Tab"_s, u"General"_s)->hasFocus());
}

void SettingsScreenTest::textsAreInOrder_data()
{
    QTest::addColumn<SettingsTab>("tab");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("General") << SettingsTab::General
                             << QStringList{u"Keyboard Shortcuts"_s,
                                            u"Activate Picker"_s,
                                            u"Open Main Window"_s,
                                            u"Show keys as"_s,
                                            u"Scope / Magnifier"_s,
                                            u"Shape"_s,
                                            u"Scope Size"_s,
                                            u"Default Zoom"_s,
                                            u"Second Line"_s,
                                            u"Copy Format"_s,
                                            u"Default Format"_s,
                                            u"HEX"_s,
                                            u"Screen Recording"_s,
                                            u"Permission"_s,
                                            u"Granted"_s,
                                            u"Required to sample screen colors"_s,
                                            u"Startup"_s,
                                            u"Start at login"_s};
    QTest::newRow("Data") << SettingsTab::Data
                          << QStringList{u"History"_s,
                                         u"Colors saved"_s,
                                         u"0 / 100"_s,
                                         u"Clear all history"_s,
                                         u"Picking a color again moves it to the front"_s,
                                         u"Export All History"_s,
                                         u"CSS"_s,
                                         u"JSON"_s,
                                         u"PNG"_s,
                                         u"More"_s,
                                         u"About"_s,
                                         u"Version"_s,
                                         u"1.0.0"_s,
                                         u"Made by the Tintwick developers"_s,
                                         u"Read Me"_s};
}

void SettingsScreenTest::textsAreInOrder()
{
    QFETCH(const SettingsTab, tab);
    const SettingsFixture fixture(tab);
    QTEST(fixture.texts(), "texts");
}

void SettingsScreenTest::nothingIsCutOff_data()
{
    QTest::addColumn<SettingsTab>("tab");
    QTest::addColumn<bool>("isPermitted");
    QTest::addColumn<KeyNames>("keyNames");
    QTest::newRow("General") << SettingsTab::General << true << KeyNames::Signs;
    QTest::newRow("General, not permitted") << SettingsTab::General << false << KeyNames::Signs;
    QTest::newRow("General, with words for keys") << SettingsTab::General << true << KeyNames::Words;
    QTest::newRow("Data") << SettingsTab::Data << true << KeyNames::Signs;
}

void SettingsScreenTest::nothingIsCutOff()
{
    QFETCH(const SettingsTab, tab);
    QFETCH(const bool, isPermitted);
    QFETCH(const KeyNames, keyNames);
    constexpr int allModifiers = modifier::control | modifier::alt | modifier::shift | modifier::super;
    Preferences().setKeyNames(keyNames);
    Preferences().setShortcutText(u"openMainWindow"_s, toJson({keycode::previousTrack, allModifiers}));
    SettingsFixture fixture(tab);
    fixture.capture(100);
    fixture.platform.permission.openSettings = [] {};
    fixture.platform.permission.isGranted = isPermitted;
    fixture.draw();
    // Everything but the last two sections of General is visible without scrolling.
    const QRect room(16, 51, 380 - 2 * 16, 580 - 51);
    const QRect roomOfLast = room.adjusted(0, 0, 0, 130);
    const QStringList last{u"Startup"_s, u"Start at login"_s, u"Required to sample screen colors"_s};
    for (const QWidget* each : fixture.view->findChildren<QWidget*>()) {
        const bool isPart = qobject_cast<const Label*>(each) != nullptr ||
                            qobject_cast<const QAbstractButton*>(each) != nullptr;
        if (!isPart || !each->isVisible()) {
            continue;
        }
        QVERIFY2(each->width() >= each->minimumSizeHint().width() &&
                     each->width() >= each->sizeHint().width(),
                 qPrintable(each->accessibleName()));
        const QRect place(each->mapTo(&fixture.panel, QPoint()), each->size());
        QVERIFY2((last.contains(each->accessibleName()) ? roomOfLast : room).contains(place),
                 qPrintable(each->accessibleName()));
    }
}

void SettingsScreenTest::tabGoesFromTopToBottom()
{
    const SettingsFixture fixture;
    QStringList order;
    fixture.segment(u"Tab"_s, u"General"_s)->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 10; ++i) {
        order.append(fixture.panel.focusWidget()->accessibleName());
        QTest::keyClick(fixture.panel.focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order, (QStringList{u"General"_s, u"Activate Picker shortcut"_s, u"Clear Shortcut"_s,
                                 u"Open Main Window shortcut"_s, u"Signs"_s, u"Square"_s, u"M"_s, u"Mid"_s,
                                 u"Name"_s, u"Default Format"_s}));
}

void SettingsScreenTest::takesTheFocusWhenShown()
{
    SettingsFixture fixture;
    QLineEdit before(&fixture.panel);
    before.show();
    before.setFocus();
    QVERIFY(before.hasFocus());
    fixture.open();
    QVERIFY(fixture.view->hasFocus());

    // The focused control keeps the focus while the panel is hidden.
    QAbstractButton* reached = fixture.segment(u"Scope Size"_s, u"M"_s);
    reached->setFocus(Qt::TabFocusReason);
    fixture.panel.hide();
    fixture.panel.show();
    QCOMPARE(fixture.panel.focusWidget(), reached);
}

void SettingsScreenTest::escapeReachesThePanel()
{
    SettingsFixture fixture;
    KeysSeen seen(fixture.panel);
    QTest::keyClick(fixture.panel.focusWidget(), Qt::Key_Escape);
    QCOMPARE(seen.keys, QList<int>{Qt::Key_Escape});
    fixture.segment(u"Shape"_s, u"Square"_s)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(fixture.panel.focusWidget(), Qt::Key_Escape);
    QCOMPARE(seen.keys, (QList<int>{Qt::Key_Escape, Qt::Key_Escape}));
}

void SettingsScreenTest::tabShowsStoredValues_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("picker");
    QTest::addColumn<QString>("selected");
    const auto row = [](const char* name, const QString& key, const QVariant& value, const QString& picker,
                        const QString& selected) {
        QTest::newRow(name) << key << value << picker << selected;
    };
    const QString shape = u"scopeShape"_s;
    const QString size = u"scopePhysicalSize"_s;
    const QString radius = u"scopeDefaultRadius"_s;
    row("no shape", u"none"_s, 0, u"Shape"_s, u"Square"_s);
    row("square", shape, u"square"_s, u"Shape"_s, u"Square"_s);
    row("circle", shape, u"circle"_s, u"Shape"_s, u"Circle"_s);
    // Reads as square.
    row("a shape in another case", shape, u"Circle"_s, u"Shape"_s, u"Square"_s);
    row("no names of keys", u"none"_s, 0, u"Show keys as"_s, u"Signs"_s);
    row("words", u"keyNames"_s, u"words"_s, u"Show keys as"_s, u"Words"_s);
    row("no size", u"none"_s, 0, u"Scope Size"_s, u"M"_s);
    row("small", size, u"small"_s, u"Scope Size"_s, u"S"_s);
    row("medium", size, u"medium"_s, u"Scope Size"_s, u"M"_s);
    row("large", size, u"large"_s, u"Scope Size"_s, u"L"_s);
    row("an unknown size", size, u"huge"_s, u"Scope Size"_s, u"M"_s);
    row("no radius", u"none"_s, 0, u"Default Zoom"_s, u"Mid"_s);
    row("radius 4", radius, 4, u"Default Zoom"_s, u"Close"_s);
    row("radius 7", radius, 7, u"Default Zoom"_s, u"Mid"_s);
    row("radius 11", radius, 11, u"Default Zoom"_s, u"Far"_s);
    row("radius 9", radius, 9, u"Default Zoom"_s, QString());
    row("radius 40", radius, 40, u"Default Zoom"_s, QString());
    // Reads as 7.
    row("radius 0", radius, 0, u"Default Zoom"_s, u"Mid"_s);
    row("a negative radius", radius, -4, u"Default Zoom"_s, u"Mid"_s);
}

void SettingsScreenTest::tabShowsStoredValues()
{
    QFETCH(const QString, key);
    QFETCH(const QVariant, value);
    QFETCH(const QString, picker);
    QSettings().setValue(key, value);
    const SettingsFixture fixture;
    QTEST(fixture.selected(picker), "selected");
}

void SettingsScreenTest::choiceIsStoredAtOnce_data()
{
    QTest::addColumn<QString>("picker");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const QString& picker, const QString& title, const QString& key,
                        const QVariant& value) {
        QTest::addRow("%s", qPrintable(title)) << picker << title << key << value;
    };
    row(u"Show keys as"_s, u"Signs"_s, u"keyNames"_s, u"signs"_s);
    row(u"Show keys as"_s, u"Words"_s, u"keyNames"_s, u"words"_s);
    row(u"Second Line"_s, u"Name"_s, u"scopeCaption"_s, u"name"_s);
    row(u"Second Line"_s, u"Text"_s, u"scopeCaption"_s, u"text"_s);
    row(u"Second Line"_s, u"Both"_s, u"scopeCaption"_s, u"both"_s);
    row(u"Shape"_s, u"Square"_s, u"scopeShape"_s, u"square"_s);
    row(u"Shape"_s, u"Circle"_s, u"scopeShape"_s, u"circle"_s);
    row(u"Scope Size"_s, u"S"_s, u"scopePhysicalSize"_s, u"small"_s);
    row(u"Scope Size"_s, u"M"_s, u"scopePhysicalSize"_s, u"medium"_s);
    row(u"Scope Size"_s, u"L"_s, u"scopePhysicalSize"_s, u"large"_s);
    row(u"Default Zoom"_s, u"Close"_s, u"scopeDefaultRadius"_s, 4);
    row(u"Default Zoom"_s, u"Mid"_s, u"scopeDefaultRadius"_s, 7);
    row(u"Default Zoom"_s, u"Far"_s, u"scopeDefaultRadius"_s, 11);
}

void SettingsScreenTest::choiceIsStoredAtOnce()
{
    QFETCH(const QString, picker);
    QFETCH(const QString, title);
    QFETCH(const QString, key);
    const SettingsFixture fixture;
    // Starts with another choice, because selecting the current one does nothing.
    for (auto* other : fixture.control<SegmentedPicker>(picker)->findChildren<QAbstractButton*>()) {
        if (other->accessibleName() != title) {
            click(other);
        }
    }
    click(fixture.segment(picker, title));
    QCOMPARE(fixture.selected(picker), title);
    QTEST(QSettings().value(key), "value");
}

void SettingsScreenTest::nextPickUsesZoomAndSize()
{
    SettingsFixture fixture;
    ScriptedDesktop& desktop = fixture.platform.desktop;
    Picker picker(fixture.platform, fixture.preferences, [](QRgb) { return QString(); });
    const auto side = [&] { return desktop.grabs.back().pixels.width(); };
    // Without 22 pixels of shadow on both sides.
    const auto loupeWidth = [&] { return desktop.frames.back().picture.width() - 44; };

    picker.start();
    QCoreApplication::processEvents();
    QCOMPARE(side(), 15);
    QCOMPARE(loupeWidth(), 130);
    click(fixture.segment(u"Default Zoom"_s, u"Far"_s));
    click(fixture.segment(u"Scope Size"_s, u"L"_s));
    picker.cancel();

    picker.start();
    QCoreApplication::processEvents();
    QCOMPARE(side(), 23);
    QCOMPARE(loupeWidth(), 160);
}

void SettingsScreenTest::nextPickUsesAStoredZoomThatIsNotOffered()
{
    QSettings().setValue(u"scopeDefaultRadius"_s, 9);
    SettingsFixture fixture;
    QCOMPARE(fixture.selected(u"Default Zoom"_s), QString());
    Picker picker(fixture.platform, fixture.preferences, [](QRgb) { return QString(); });
    picker.start();
    QCoreApplication::processEvents();
    QCOMPARE(fixture.platform.desktop.grabs.back().pixels.width(), 19);
}

void SettingsScreenTest::recordedShortcutIsStoredAndGrabbed()
{
    SettingsFixture fixture;
    fixture.platform.shortcuts.journal.clear();
    auto* recorder = fixture.control<ShortcutRecorder>(u"Activate Picker shortcut"_s);
    click(recorder);
    QVERIFY(recorder->isRecording());
    fixture.platform.recording.press(keycode::f5);
    QVERIFY(!recorder->isRecording());
    QCOMPARE(QSettings().value(u"KeyboardShortcuts_activatePicker"_s).toString(),
             uR"({"carbonKeyCode":96,"carbonModifiers":0})"_s);
    QCOMPARE(fixture.platform.shortcuts.journal, QStringList{u"bind activatePicker 96+0"_s});

    QVERIFY(fixture.control<ShortcutRecorder>(u"Open Main Window shortcut"_s) != nullptr);
}

void SettingsScreenTest::aShortcutOfAnotherProgramIsMarkedInItsRowUntilItIsFree()
{
    SettingsFixture fixture;
    const QStringList before = fixture.texts();
    const Shortcut superC{keycode::c, modifier::super};
    fixture.platform.shortcuts.taken = {superC};
    fixture.shortcuts.setShortcut(ShortcutAction::OpenMainWindow, superC);
    SettingsFixture::settle();
    QStringList marked = before;
    marked.insert(before.indexOf(u"Open Main Window"_s) + 1, u"Taken by another program"_s);
    QCOMPARE(fixture.texts(), marked);

    fixture.platform.shortcuts.taken.clear();
    fixture.shortcuts.retryRefused();
    SettingsFixture::settle();
    QCOMPARE(fixture.texts(), before);
}

void SettingsScreenTest::whereTheDesktopChoosesTheKeysTheyAreShownWithAButtonForItsDialog()
{
    SettingsFixture fixture;
    ScriptedGlobalShortcuts& desktop = fixture.platform.shortcuts;
    desktop.setChoice(GlobalShortcuts::KeyChoice::DesktopDialog);
    SettingsFixture::settle();
    QCOMPARE(fixture.texts().mid(1, 6), (QStringList{u"Activate Picker"_s, u"Not set"_s, u"Change…"_s,
                                                     u"Open Main Window"_s, u"Not set"_s, u"Change…"_s}));
    QVERIFY(!fixture.texts().contains(u"Show keys as"_s));
    QVERIFY(fixture.view->findChildren<ShortcutRecorder*>().isEmpty());

    Q_EMIT desktop.changed(u"activatePicker"_s, u"Meta+Shift+C"_s);
    SettingsFixture::settle();
    QCOMPARE(fixture.texts().at(2), u"Meta+Shift+C"_s);
    QCOMPARE(fixture.texts().at(5), u"Not set"_s);

    fixture.platform.panels.handle = u"wayland:12"_s;
    click(fixture.control<QAbstractButton>(u"Change the shortcut for Open Main Window"_s));
    QCOMPARE(desktop.dialogs, QStringList{u"wayland:12"_s});
}

void SettingsScreenTest::aLongTextOfTheDesktopCutsNothingElse()
{
    SettingsFixture fixture;
    fixture.platform.shortcuts.setChoice(GlobalShortcuts::KeyChoice::DesktopDialog);
    const QString text = u"Press <Control><Shift><Alt><Super>Print"_s;
    Q_EMIT fixture.platform.shortcuts.changed(u"openMainWindow"_s, text);
    SettingsFixture::settle();
    for (const Label* each : fixture.view->findChildren<Label*>()) {
        const bool isWhole = each->width() >= each->sizeHint().width();
        QVERIFY2(isWhole == (each->text() != text), qPrintable(each->text()));
        QCOMPARE(each->toolTip(), isWhole ? QString() : text);
    }
}

void SettingsScreenTest::whereOnlyTheUserBindsKeysTheLineIsShownAndCopied()
{
    SettingsFixture fixture;
    fixture.platform.shortcuts.line = [](const QStringList& command, const Shortcut& keys) {
        return ConfigurationLine{u"bind %1 %2 %3"_s.arg(keys.keyCode).arg(keys.modifiers).arg(command.at(1)),
                                 u"Add a line to ~/.config/desktop."_s};
    };
    fixture.platform.shortcuts.setChoice(GlobalShortcuts::KeyChoice::None);
    SettingsFixture::settle();
    // Alt+Shift+C, and Alt+Shift+P as an example for the action that has no keys.
    QCOMPARE(paragraphs(fixture), (QStringList{u"bind 8 2560 pick"_s, u"bind 35 2560 panel"_s,
                                               u"Add a line to ~/.config/desktop."_s}));
    QVERIFY(fixture.view->findChildren<ShortcutRecorder*>().isEmpty());
    QVERIFY(!fixture.texts().contains(u"Show keys as"_s));
    QVERIFY(!fixture.texts().contains(u"Copied"_s));

    auto* copy = fixture.control<QAbstractButton>(u"Copy the line for Open Main Window"_s);
    click(copy);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"bind 35 2560 panel"_s);
    QCOMPARE(copy->findChild<Label*>()->text(), u"Copied"_s);
    QCOMPARE(fixture.texts().count(u"Copy"_s), 1);
    QTRY_COMPARE(copy->findChild<Label*>()->text(), u"Copy"_s);

    fixture.shortcuts.setShortcut(ShortcutAction::ActivatePicker, Shortcut{96, 0});
    SettingsFixture::settle();
    QCOMPARE(paragraphs(fixture).first(), u"bind 96 0 pick"_s);
}

void SettingsScreenTest::aHintForEachLineStandsBelowIt()
{
    SettingsFixture fixture;
    fixture.platform.shortcuts.line = [](const QStringList& command, const Shortcut& keys) {
        return ConfigurationLine{command.at(1), u"For example key %1."_s.arg(keys.keyCode)};
    };
    fixture.platform.shortcuts.setChoice(GlobalShortcuts::KeyChoice::None);
    SettingsFixture::settle();
    QCOMPARE(paragraphs(fixture),
             (QStringList{u"pick"_s, u"For example key 8."_s, u"panel"_s, u"For example key 35."_s}));
}

void SettingsScreenTest::theLineFollowsTheKeyboardLayout()
{
    SettingsFixture fixture;
    QString key = u"c"_s;
    fixture.platform.shortcuts.line = [&key](const QStringList&, const Shortcut&) {
        return ConfigurationLine{key, {}};
    };
    fixture.platform.shortcuts.setChoice(GlobalShortcuts::KeyChoice::None);
    QCOMPARE(paragraphs(fixture).first(), u"c"_s);
    key = u"j"_s;
    Q_EMIT fixture.platform.layout.changed();
    QCOMPARE(paragraphs(fixture).first(), u"j"_s);
}

void SettingsScreenTest::rowsFollowTheKeyChoice()
{
    SettingsFixture fixture;
    QCOMPARE(fixture.view->findChildren<ShortcutRecorder*>().size(), 2);
    fixture.platform.shortcuts.setChoice(GlobalShortcuts::KeyChoice::DesktopDialog);
    QCOMPARE(fixture.view->findChildren<ShortcutRecorder*>().size(), 0);
    fixture.platform.shortcuts.setChoice(GlobalShortcuts::KeyChoice::Program);
    QCOMPARE(fixture.view->findChildren<ShortcutRecorder*>().size(), 2);
}

void SettingsScreenTest::withoutAnyShortcutsOfTheDesktopTheRecorderSaysSo()
{
    SettingsFixture fixture;
    fixture.platform.shortcuts.setChoice(GlobalShortcuts::KeyChoice::None);
    const auto recorders = fixture.view->findChildren<ShortcutRecorder*>();
    QCOMPARE(recorders.size(), 2);
    QCOMPARE(recorders.first()->text(), QString());
    QCOMPARE(recorders.first()->placeholder(), u"Not Available"_s);
}

void SettingsScreenTest::tabReachesTheButtonsOfAllRows()
{
    SettingsFixture fixture;
    const auto order = [&fixture] {
        QStringList names;
        fixture.segment(u"Tab"_s, u"General"_s)->setFocus(Qt::TabFocusReason);
        for (int i = 0; i < 3; ++i) {
            QTest::keyClick(fixture.panel.focusWidget(), Qt::Key_Tab);
            names.append(fixture.panel.focusWidget()->accessibleName());
        }
        return names;
    };
    fixture.platform.shortcuts.setChoice(GlobalShortcuts::KeyChoice::DesktopDialog);
    SettingsFixture::settle();
    QCOMPARE(order(), (QStringList{u"Change the shortcut for Activate Picker"_s,
                                   u"Change the shortcut for Open Main Window"_s, u"Square"_s}));
    QTest::keyClick(fixture.control<QAbstractButton>(u"Change the shortcut for Activate Picker"_s),
                    Qt::Key_Return);
    QCOMPARE(fixture.platform.shortcuts.dialogs.size(), 1);
    fixture.platform.shortcuts.line = [](const QStringList&, const Shortcut&) {
        return ConfigurationLine{u"line"_s, u"hint"_s};
    };
    fixture.platform.shortcuts.setChoice(GlobalShortcuts::KeyChoice::None);
    SettingsFixture::settle();
    QCOMPARE(order(), (QStringList{u"Copy the line for Activate Picker"_s,
                                   u"Copy the line for Open Main Window"_s, u"Square"_s}));
}

void SettingsScreenTest::chosenFormatIsSaved()
{
    SettingsFixture fixture;
    auto* picker = fixture.control<PopUpPicker>(u"Default Format"_s);
    QCOMPARE(picker->selectedTitle(), u"HEX"_s);
    click(picker);
    QStringList titles;
    for (const QAction* action : picker->menu()->actions()) {
        titles.append(action->text());
    }
    QCOMPARE(titles,
             (QStringList{u"HEX"_s, u"HEX+A"_s, u"RGB"_s, u"RGBA"_s, u"HSL"_s, u"HSLA"_s, u"CSS Var"_s,
                          u"Tailwind"_s, u"Name"_s, u"OKLCH"_s, u"RGB modern"_s, u"HSV"_s, u"CMYK naive"_s,
                          u"HEX lower"_s, u"HEX bare"_s, u"0xAARRGGBB"_s, u"Floats"_s, u"Template"_s}));
    QTest::keyClick(picker->menu(), Qt::Key_Down);
    QTest::keyClick(picker->menu(), Qt::Key_Down);
    QTest::keyClick(picker->menu(), Qt::Key_Return);
    QTRY_COMPARE(fixture.state.defaultFormat(), ColorFormat::Rgb);
    QCOMPARE(picker->selectedTitle(), u"RGB"_s);
    fixture.state.flush();
    QCOMPARE(storedData().value("defaultFormat"_L1).toString(), u"RGB"_s);
    QVERIFY(QSettings().allKeys().filter(u"ormat"_s).isEmpty());
    QCOMPARE(AppState().defaultFormat(), ColorFormat::Rgb);
}

void SettingsScreenTest::aTemplateIsEditedWithAPreview()
{
    SettingsFixture fixture;
    QVERIFY(!fixture.texts().contains(u"Dodger Blue: #1E90FF"_s));
    fixture.state.setDefaultFormat(ColorFormat::Template);
    SettingsFixture::settle();
    auto* field = fixture.control<TextField>(u"Template"_s);
    QVERIFY(field->isVisible());
    QCOMPARE(field->text(), u"{name}: #{hex}"_s);
    QVERIFY(fixture.texts().contains(u"Dodger Blue: #1E90FF"_s));

    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, u"{r}-{h:.1}"_s);
    QVERIFY(fixture.texts().contains(u"30-209.6"_s));
    QCOMPARE(fixture.state.colorTemplate(), u"{r}-{h:.1}"_s);
    QTest::keyClicks(field, u"{x}"_s);
    QVERIFY(fixture.texts().contains(u"{x} is not a field"_s));
    // The last one that was valid.
    QCOMPARE(fixture.state.colorTemplate(), u"{r}-{h:.1}"_s);
    fixture.state.flush();
    QCOMPARE(storedData().value("defaultFormat"_L1).toString(), u"HEX"_s);
    QCOMPARE(AppState().defaultFormat(), ColorFormat::Template);
    QCOMPARE(AppState().colorTemplate(), u"{r}-{h:.1}"_s);
}

void SettingsScreenTest::formatFollowsTheState()
{
    SettingsFixture fixture;
    fixture.state.setDefaultFormat(ColorFormat::ColorName);
    QCOMPARE(fixture.control<PopUpPicker>(u"Default Format"_s)->selectedTitle(), u"Name"_s);
}

void SettingsScreenTest::permissionIsShown_data()
{
    QTest::addColumn<bool>("isPermitted");
    QTest::addColumn<bool>("hasSettings");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("hasButton");
    QTest::newRow("granted") << true << true << u"Granted"_s << false;
    QTest::newRow("granted, nothing to change it") << true << false << u"Granted"_s << false;
    QTest::newRow("not granted") << false << true << QString() << true;
    QTest::newRow("not granted, nothing to change it") << false << false << u"Not granted"_s << false;
}

void SettingsScreenTest::permissionIsShown()
{
    QFETCH(const bool, isPermitted);
    QFETCH(const bool, hasSettings);
    QFETCH(const QString, text);
    SettingsFixture fixture;
    fixture.platform.permission.isGranted = isPermitted;
    if (hasSettings) {
        fixture.platform.permission.openSettings = [] {};
    }
    fixture.open();
    SettingsFixture::settle();
    QStringList answers;
    for (const QString& each : fixture.texts()) {
        if (each.contains(u"ranted"_s)) {
            answers.append(each);
        }
    }
    QCOMPARE(answers.join(u' '), text);
    QTEST(fixture.control<TextButton>(u"Open System Settings"_s) != nullptr, "hasButton");
}

void SettingsScreenTest::revokedPermissionIsShownAtTheNextPaint()
{
    SettingsFixture fixture;
    fixture.platform.permission.openSettings = [] {};
    fixture.draw();
    QVERIFY(fixture.texts().contains(u"Granted"_s));
    fixture.platform.permission.isGranted = false;
    fixture.draw();
    QVERIFY(!fixture.texts().contains(u"Granted"_s));
    QVERIFY(fixture.control<TextButton>(u"Open System Settings"_s)->isVisible());
    fixture.platform.permission.isGranted = true;
    fixture.draw();
    QVERIFY(fixture.texts().contains(u"Granted"_s));
    QVERIFY(fixture.control<TextButton>(u"Open System Settings"_s) == nullptr);
}

void SettingsScreenTest::buttonOpensTheSystemSettings()
{
    int opened = 0;
    SettingsFixture fixture;
    fixture.platform.permission.openSettings = [&opened] { ++opened; };
    fixture.platform.permission.isGranted = false;
    fixture.draw();
    click(fixture.control<TextButton>(u"Open System Settings"_s));
    QCOMPARE(opened, 1);
}

void SettingsScreenTest::countFollowsTheHistory()
{
    SettingsFixture fixture(SettingsTab::Data);
    QVERIFY(fixture.texts().contains(u"0 / 100"_s));
    fixture.capture(12);
    QVERIFY(fixture.texts().contains(u"12 / 100"_s));
    fixture.capture(100);
    QVERIFY(fixture.texts().contains(u"100 / 100"_s));
    fixture.state.deleteColor(fixture.state.history().first().id);
    QVERIFY(fixture.texts().contains(u"99 / 100"_s));
}

void SettingsScreenTest::clearClearsAtOnce()
{
    SettingsFixture fixture(SettingsTab::Data);
    fixture.capture(100);
    click(fixture.control<TextButton>(u"Clear all history"_s));
    QVERIFY(fixture.texts().contains(u"0 / 100"_s));
    QVERIFY(fixture.state.history().isEmpty());
    fixture.state.flush();
    QVERIFY(storedData().value("history"_L1).isArray());
    QVERIFY(AppState().history().isEmpty());
}

void SettingsScreenTest::wholeHistoryIsExported_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("suggestedName");
    QTest::addColumn<QByteArray>("beginning");
    QTest::newRow("CSS") << u"Export CSS"_s << u"history-palette.css"_s
                         << QByteArray("/* History \xE2\x80\x94 generated by Tintwick */\n:root {\n  --");
    QTest::newRow("JSON") << u"Export JSON"_s << u"palette.json"_s << QByteArray("[");
    QTest::newRow("PNG") << u"Export PNG"_s << u"palette.png"_s << QByteArray("\x89PNG");
}

void SettingsScreenTest::wholeHistoryIsExported()
{
    QFETCH(const QString, button);
    QFETCH(const QString, suggestedName);
    QFETCH(const QByteArray, beginning);
    const QTemporaryDir folder;
    SettingsFixture fixture(SettingsTab::Data);
    fixture.capture(2);
    click(fixture.control<PlainButton>(button));
    const auto dialog = [] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<QFileDialog*>(window); found != nullptr && found->isVisible()) {
                return found;
            }
        }
        return static_cast<QFileDialog*>(nullptr);
    };
    QTRY_VERIFY(dialog() != nullptr);
    QCOMPARE(QFileInfo(dialog()->selectedFiles().value(0)).fileName(), suggestedName);
    const QString path = folder.filePath(suggestedName);
    dialog()->selectFile(path);
    QVERIFY(QMetaObject::invokeMethod(dialog(), "accept"));
    QTRY_VERIFY(dialog() == nullptr);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    QCOMPARE(content.left(beginning.size()), beginning);
    // Both colours, newest first.
    if (button == u"Export CSS"_s) {
        QVERIFY(content.indexOf("#010000") > 0);
        QVERIFY(content.indexOf("#000000") > content.indexOf("#010000"));
    }
}

void SettingsScreenTest::emptyHistoryExportsNoPicture()
{
    const SettingsFixture fixture(SettingsTab::Data);
    auto* button = fixture.control<PlainButton>(u"Export PNG"_s);
    QVERIFY(button->isEnabled());
    click(button);
    SettingsFixture::settle();
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        QVERIFY(qobject_cast<const QFileDialog*>(window) == nullptr || !window->isVisible());
    }
}

void SettingsScreenTest::versionIsThatOfTheBuild()
{
    QApplication::setApplicationVersion(u"7.8.9"_s);
    const SettingsFixture fixture(SettingsTab::Data);
    QVERIFY(fixture.texts().contains(u"7.8.9"_s));
    QApplication::setApplicationVersion(u"1.0.0"_s);
}

void SettingsScreenTest::creditLinksToTheProjectPage()
{
    AddressOpener opener(u"file"_s);
    const SettingsFixture fixture(SettingsTab::Data);
    click(fixture.control<PlainButton>(u"Read Me"_s));
    QCOMPARE(opener.opened.size(), 1);
    QFile page(opener.opened.first().toLocalFile());
    QVERIFY(page.open(QIODevice::ReadOnly));
    QCOMPARE(page.readLine().trimmed(), QByteArray("# Tintwick"));
}

void SettingsScreenTest::noLinkWithoutAProjectPage()
{
    SettingsFixture fixture;
    const DataSettingsTab tab(fixture.state, fixture.preferences, std::nullopt);
    for (const auto* button : tab.findChildren<QAbstractButton*>()) {
        QVERIFY(button->accessibleName() != u"Read Me"_s);
    }
    QStringList texts;
    for (const auto* label : tab.findChildren<Label*>()) {
        texts.append(label->text());
    }
    QVERIFY(texts.contains(u"Made by the Tintwick developers"_s));
}

void SettingsScreenTest::projectPageIsTheFirstFileThatExists_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("found");
    QTest::newRow("both") << QStringList{u"one.md"_s, u"two.md"_s} << u"one.md"_s;
    QTest::newRow("second") << QStringList{u"two.md"_s} << u"two.md"_s;
    QTest::newRow("none") << QStringList{} << QString();
}

void SettingsScreenTest::projectPageIsTheFirstFileThatExists()
{
    QFETCH(const QStringList, present);
    QFETCH(const QString, found);
    const QTemporaryDir folder;
    for (const QString& name : present) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    // A folder is not a page.
    const auto page =
        findProjectPage({folder.path(), folder.filePath(u"one.md"_s), folder.filePath(u"two.md"_s)});
    QCOMPARE(page.has_value(), !found.isEmpty());
    if (page) {
        QCOMPARE(*page, QUrl::fromLocalFile(folder.filePath(found)));
    }
}

void SettingsScreenTest::installedProjectPageIsFound()
{
    const QString page = installProjectPage();
    QVERIFY(projectPagePlaces().contains(page));
    QCOMPARE(findProjectPage(), QUrl::fromLocalFile(page));
}

void SettingsScreenTest::windowRefersToThePanel()
{
    QWidget panel;
    const Appearance appearance(panel, Scheme::Light);
    SettingsWindow window(appearance);
    window.present();
    QVERIFY(window.isVisible());
    QVERIFY(window.isWindow());
    QCOMPARE(window.windowTitle(), u"Tintwick Settings"_s);
    QCOMPARE(window.width(), 320);
    const auto* text = window.findChild<QLabel*>();
    QCOMPARE(text->text(), u"Settings are available inside the Tintwick panel."_s);
    QCOMPARE(text->geometry(), window.rect().adjusted(40, 40, -40, -40));
    QVERIFY(text->height() >= text->heightForWidth(text->width()));

    QTest::keyClick(&window, Qt::Key_Escape);
    QVERIFY(!window.isVisible());
    window.present();
    QVERIFY(window.isVisible());
}

void SettingsScreenTest::windowHasTheAppearanceOfThePanel()
{
    QWidget panel;
    Appearance appearance(panel, Scheme::Dark);
    SettingsWindow window(appearance);
    QCOMPARE(window.grab().toImage().pixelColor(5, 5), QColor(0x1F, 0x1F, 0x23));
    appearance.setScheme(Scheme::Light);
    QCOMPARE(window.grab().toImage().pixelColor(5, 5), QColor(0xF5, 0xF5, 0xF7));
}

void SettingsScreenTest::aSwitchMovesRepeatedPicks()
{
    SettingsFixture fixture(SettingsTab::Data);
    const QString title = u"Picking a color again moves it to the front"_s;
    QVERIFY(!fixture.control<Switch>(title)->isChecked());
    fixture.control<Switch>(title)->click();
    QCOMPARE(Preferences().repeatedPick(), RepeatedPick::Move);
    fixture.open();
    fixture.view->setTab(SettingsTab::Data);
    QVERIFY(fixture.control<Switch>(title)->isChecked());
    fixture.control<Switch>(title)->click();
    QCOMPARE(Preferences().repeatedPick(), RepeatedPick::Add);
}

void SettingsScreenTest::aSwitchStartsTheProgramAtLogin()
{
    const QString entry =
        qEnvironmentVariable("XDG_CONFIG_HOME") + u"/autostart/org.tintwick.Tintwick.desktop"_s;
    SettingsFixture fixture;
    const auto* before = fixture.control<Switch>(u"Start at login"_s);
    QVERIFY(!before->isChecked());
    fixture.control<Switch>(u"Start at login"_s)->click();
    QVERIFY(QFileInfo(entry).isFile());
    QVERIFY(before->isChecked());

    fixture.open();
    auto* after = fixture.control<Switch>(u"Start at login"_s);
    QVERIFY(after->isChecked());
    after->click();
    QVERIFY(!QFileInfo::exists(entry));
}

void SettingsScreenTest::theSwitchStaysWhenTheEntryCannotBeWritten()
{
    const QString folder = qEnvironmentVariable("XDG_CONFIG_HOME") + u"/autostart"_s;
    QDir(folder).removeRecursively();
    QFile inTheWay(folder);
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    {
        const SettingsFixture fixture;
        auto* atLogin = fixture.control<Switch>(u"Start at login"_s);
        atLogin->click();
        QVERIFY(!atLogin->isChecked());
        QVERIFY(fixture.texts().contains(u"Could not be changed: Not a directory"_s));
    }
    QVERIFY(inTheWay.remove());
}

int main(int argc, char** argv)
{
    return tintwick::test::runWithOwnHome<SettingsScreenTest>(argc, argv);
}
#include "SettingsScreenTest.moc"
