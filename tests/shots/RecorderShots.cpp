#include "shots/RecorderShots.h"

#include "Label.h"
#include "Preferences.h"
#include "SettingsLayout.h"
#include "ShortcutRecorder.h"
#include "ShortcutRegistry.h"
#include "Stack.h"
#include "Theme.h"
#include "View.h"
#include "shots/Shooting.h"
#include "support/ScriptedGlobalShortcuts.h"
#include "support/ScriptedKeyRecording.h"
#include "support/ScriptedKeyboardLayout.h"

#include <QMenu>
#include <QTemporaryDir>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int keyC = 8, keyD = 2, keyQ = 12;

/// A panel with the two recorder rows of the settings, on a desktop where Super+D is taken.
class DemoRecorders final : public View
{
public:
    enum class Keyboard { CanBeTaken, CannotBeTaken };

    explicit DemoRecorders(Keyboard keyboard)
    {
        m_layout.characters = {{keyC, u"c"_s}, {keyD, u"d"_s}, {keyQ, u"q"_s}};
        m_desktop.taken = {{keyD, modifier::super}};
        m_registry.start();
        m_menu.addAction(u"Quit Tintwick"_s)->setShortcut(Qt::CTRL | Qt::Key_Q);
        const RecorderServices services{m_registry, keyboard == Keyboard::CanBeTaken ? &m_keys : nullptr,
                                        m_layout, m_menu};
        m_recorder = new ShortcutRecorder(services, ShortcutAction::ActivatePicker, *this);
        m_empty = new ShortcutRecorder(services, ShortcutAction::OpenMainWindow, *this);
        setContent(column(
            gap(12), padding(16), fixedSize(380, 260), Across::Leading, ground(theme::bg, theme::panelRadius),
            label(u"Keyboard Shortcuts"_s, theme::headline()), settingsRow(u"Activate Picker"_s, m_recorder),
            settingsRow(u"Open Main Window"_s, m_empty), spacer()));
    }

    /// The recorders use the members below, which are destroyed before the children of a widget.
    ~DemoRecorders() override
    {
        delete m_recorder;
        delete m_empty;
    }

    [[nodiscard]] ShortcutRecorder& recorder() const { return *m_recorder; }
    [[nodiscard]] ShortcutRecorder& empty() const { return *m_empty; }
    void press(int keyCode, int modifiers) { m_keys.press(keyCode, modifiers); }

private:
    QTemporaryDir m_folder;
    Preferences m_preferences{m_folder.filePath(u"settings.conf"_s)};
    test::ScriptedGlobalShortcuts m_desktop;
    test::ScriptedKeyboardLayout m_layout;
    test::ScriptedKeyRecording m_keys;
    ShortcutRegistry m_registry{m_desktop, m_layout, m_preferences};
    QMenu m_menu;
    ShortcutRecorder* m_recorder = nullptr;
    ShortcutRecorder* m_empty = nullptr;
};

} // namespace

void shootRecorder(const QDir& folder)
{
    const auto shootState = [&](const QString& name, const std::function<void(DemoRecorders&)>& arrange,
                                DemoRecorders::Keyboard keyboard = DemoRecorders::Keyboard::CanBeTaken) {
        shoot(
            folder, u"recorder-"_s + name, [keyboard] { return std::make_unique<DemoRecorders>(keyboard); },
            [&](QWidget& widget) {
                widget.activateWindow();
                widget.setFocus();
                arrange(static_cast<DemoRecorders&>(widget));
            });
    };
    shootState(u"idle"_s, [](DemoRecorders&) {});
    shootState(
        u"unavailable"_s, [](DemoRecorders&) {}, DemoRecorders::Keyboard::CannotBeTaken);
    shootState(u"focus"_s, [](DemoRecorders& demo) { demo.recorder().setFocus(Qt::TabFocusReason); });
    shootState(u"keypad"_s, [](DemoRecorders& demo) {
        demo.recorder().startRecording();
        demo.press(keycode::keypad5, modifier::control | modifier::alt);
    });
    shootState(u"recording"_s, [](DemoRecorders& demo) { demo.recorder().startRecording(); });
    shootState(u"recording-empty"_s, [](DemoRecorders& demo) { demo.empty().startRecording(); });
    shootState(u"alert-menu"_s, [](DemoRecorders& demo) {
        demo.recorder().startRecording();
        demo.press(keyQ, modifier::control);
    });
    shootState(u"alert-common"_s, [](DemoRecorders& demo) {
        demo.recorder().startRecording();
        demo.press(keyC, modifier::control);
    });
    shootState(u"alert-system"_s, [](DemoRecorders& demo) {
        demo.recorder().startRecording();
        demo.press(keyD, modifier::super);
    });
}

} // namespace tintwick
