#include "shots/SettingsShots.h"

#include "AppState.h"
#include "Appearance.h"
#include "Button.h"
#include "ConfigurationFormat.h"
#include "PanelView.h"
#include "PopUpPicker.h"
#include "Preferences.h"
#include "ScrollArea.h"
#include "SegmentedPicker.h"
#include "SettingsScreen.h"
#include "SettingsWindow.h"
#include "ShortcutRecorder.h"
#include "ShortcutRegistry.h"
#include "Theme.h"
#include "shots/Scene.h"
#include "shots/Shooting.h"
#include "support/ScriptedPlatform.h"

#include <QApplication>
#include <QMenu>
#include <QScrollBar>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// The panel with the settings open and some colours in the history.
class DemoSettings final : public QWidget
{
public:
    explicit DemoSettings(SettingsTab tab)
        : m_appState([](std::chrono::milliseconds, const std::function<void()>&) {})
        , m_shortcuts(m_platform.shortcuts, m_platform.layout, m_preferences)
    {
        m_platform.layout.characters[keycode::c] = u"c"_s;
        m_shortcuts.start();
        // The scenes share one data file.
        m_appState.clearHistory();
        m_appState.setDefaultFormat(ColorFormat::Hex6);
        for (int i = 0; i < 12; ++i) {
            m_appState.colorCaptured(CapturedColor::capture(i / 12.0, 0.5, 0.5, 1));
        }
        m_view = new PanelView(m_appState, m_preferences, [this, tab](QWidget& panel) {
            auto* settings = new SettingsScreen(
                m_appState, m_preferences, {m_shortcuts, &m_platform.recording, m_platform.layout, m_menu},
                m_platform, panel);
            settings->setTab(tab);
            return settings;
        });
        m_view->setParent(this);
        m_view->setShowingSettings(true);
        setFixedSize(theme::panelSize);
    }

    /// The view uses the members below, which are destroyed before the children of a widget.
    ~DemoSettings() override { delete m_view; }

    [[nodiscard]] PanelView& view() { return *m_view; }
    [[nodiscard]] test::ScriptedPlatform& platform() { return m_platform; }
    [[nodiscard]] AppState& state() { return m_appState; }
    [[nodiscard]] ShortcutRegistry& shortcuts() { return m_shortcuts; }

private:
    test::ScriptedPlatform m_platform;
    AppState m_appState;
    Preferences m_preferences;
    QMenu m_menu;
    ShortcutRegistry m_shortcuts;
    PanelView* m_view;
};

void showLines(DemoSettings& view, ConfigurationFormat format)
{
    view.platform().shortcuts.line = [format](const QStringList& command, const Shortcut& keys) {
        return configurationLine(format, {u"tintwick"_s, command.at(1)},
                                 {keys.keyCode == keycode::c ? u"c"_s : u"p"_s, keys.modifiers});
    };
    view.platform().shortcuts.setChoice(GlobalShortcuts::KeyChoice::None);
}

} // namespace

void shootSettings(const QDir& folder)
{
    const auto shootTab = [&](const QString& name, SettingsTab tab,
                              const std::function<void(DemoSettings&)>& arrange = {}) {
        shoot(
            folder, u"settings-"_s + name, [&] { return std::make_unique<DemoSettings>(tab); },
            [&](QWidget& widget) {
                auto& settings = static_cast<DemoSettings&>(widget);
                settings.view().setSystemScheme(Appearance::of(&settings));
                if (arrange) {
                    arrange(settings);
                }
            });
    };

    shootTab(u"general"_s, SettingsTab::General);
    shootTab(u"general-hover"_s, SettingsTab::General, [](DemoSettings& view) {
        hover(button(view, u"L"_s));
        hover(button(view, u"Default Format"_s));
    });
    shootTab(u"general-focus"_s, SettingsTab::General, [](DemoSettings& view) {
        view.activateWindow();
        button(view, u"Mid"_s).setFocus(Qt::TabFocusReason);
    });
    shootTab(u"general-focus-format"_s, SettingsTab::General, [](DemoSettings& view) {
        view.activateWindow();
        button(view, u"Default Format"_s).setFocus(Qt::TabFocusReason);
    });
    shootTab(u"general-format-menu"_s, SettingsTab::General, [](DemoSettings& view) {
        // Wide enough for the menu, which starts left of its control.
        view.move(100, 100);
        view.state().setDefaultFormat(ColorFormat::Hsl);
        auto& picker = *view.findChild<PopUpPicker*>();
        picker.click();
        showMenu(view, *picker.menu(), view.mapFromGlobal(picker.menu()->pos()));
    });
    shootTab(u"general-template"_s, SettingsTab::General, [](DemoSettings& view) {
        view.state().setDefaultFormat(ColorFormat::Template);
        view.state().setColorTemplate(u"{name}: {r} {g:02x} {h:.1}"_s);
        QApplication::processEvents();
        auto& area = *view.findChild<ScrollArea*>();
        area.verticalScrollBar()->setValue(area.verticalScrollBar()->maximum());
    });
    shootTab(u"general-recording"_s, SettingsTab::General, [](DemoSettings& view) {
        view.activateWindow();
        view.findChildren<ShortcutRecorder*>().first()->startRecording();
    });
    shootTab(u"general-refused"_s, SettingsTab::General, [](DemoSettings& view) {
        view.platform().shortcuts.refuse(idOf(ShortcutAction::ActivatePicker));
        QApplication::processEvents();
    });
    shootTab(u"general-refused-key"_s, SettingsTab::General, [](DemoSettings& view) {
        view.activateWindow();
        view.findChildren<ShortcutRecorder*>().first()->startRecording();
        view.platform().recording.press(keycode::c);
    });
    shootTab(u"general-denied"_s, SettingsTab::General, [](DemoSettings& view) {
        view.platform().permission.openSettings = [] {};
        view.platform().permission.isGranted = false;
        view.grab();
        QApplication::processEvents();
    });
    shootTab(u"general-denied-for-good"_s, SettingsTab::General, [](DemoSettings& view) {
        view.platform().permission.isGranted = false;
        view.grab();
        QApplication::processEvents();
    });
    for (const auto& [name, format] : {std::pair(u"sway"_s, ConfigurationFormat::Sway),
                                       {u"labwc"_s, ConfigurationFormat::Labwc},
                                       {u"gnome"_s, ConfigurationFormat::Gnome},
                                       {u"unknown"_s, ConfigurationFormat::Unknown}}) {
        shootTab(u"keys-"_s + name, SettingsTab::General,
                 [format = format](DemoSettings& view) { showLines(view, format); });
    }
    shootTab(u"keys-copied"_s, SettingsTab::General, [](DemoSettings& view) {
        showLines(view, ConfigurationFormat::Sway);
        QAbstractButton& copy = button(view, u"Copy the line for Activate Picker"_s);
        view.activateWindow();
        copy.setFocus(Qt::TabFocusReason);
        copy.click();
    });
    shootTab(u"keys-dialog"_s, SettingsTab::General, [](DemoSettings& view) {
        view.platform().shortcuts.setChoice(GlobalShortcuts::KeyChoice::DesktopDialog);
        Q_EMIT view.platform().shortcuts.changed(u"activatePicker"_s, u"Alt+Shift+C"_s);
        view.activateWindow();
        button(view, u"Change the shortcut for Activate Picker"_s).setFocus(Qt::TabFocusReason);
    });
    shootTab(u"keys-dialog-long"_s, SettingsTab::General, [](DemoSettings& view) {
        view.platform().shortcuts.setChoice(GlobalShortcuts::KeyChoice::DesktopDialog);
        Q_EMIT view.platform().shortcuts.changed(u"activatePicker"_s, u"Press <Shift><Alt>c"_s);
        Q_EMIT view.platform().shortcuts.changed(u"openMainWindow"_s, u"Ctrl+Alt+Shift+Print"_s);
    });
    Preferences preferences;
    preferences.setLoupeRadius(9);
    preferences.setLoupeShape(LoupeShape::Circle);
    shootTab(u"general-radius-9"_s, SettingsTab::General);
    QSettings().clear();
    preferences.setKeyNames(KeyNames::Words);
    shootTab(u"general-words"_s, SettingsTab::General, [](DemoSettings& view) {
        view.shortcuts().setShortcut(
            ShortcutAction::OpenMainWindow,
            Shortcut{keycode::keypadEnter, modifier::control | modifier::alt | modifier::shift});
    });
    QSettings().clear();

    shootTab(u"data"_s, SettingsTab::Data);
    shootTab(u"data-empty"_s, SettingsTab::Data, [](DemoSettings& view) { view.state().clearHistory(); });
    shootTab(u"data-hover"_s, SettingsTab::Data,
             [](DemoSettings& view) { hover(button(view, u"Export JSON"_s)); });
    shootTab(u"data-focus"_s, SettingsTab::Data, [](DemoSettings& view) {
        view.activateWindow();
        button(view, u"Export CSS"_s).setFocus(Qt::TabFocusReason);
    });

    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        QWidget panel;
        const Appearance appearance(panel, scheme);
        const QString word = scheme == Scheme::Light ? u"light"_s : u"dark"_s;
        SettingsWindow(appearance).grab().save(folder.filePath(u"settings-window-%1.png"_s.arg(word)));
    }
}

} // namespace tintwick
