#pragma once

#include "AppState.h"
#include "Appearance.h"
#include "Label.h"
#include "Preferences.h"
#include "SegmentedPicker.h"
#include "SettingsScreen.h"
#include "ShortcutRegistry.h"
#include "Ticker.h"
#include "support/ScriptedPlatform.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QMenu>
#include <QTest>

#include <memory>

namespace tintwick::test {

/// The settings screen in a window of the panel's size, over an empty state and a scripted desktop.
class SettingsFixture final
{
public:
    explicit SettingsFixture(SettingsTab tab = SettingsTab::General)
        : state([](std::chrono::milliseconds, const std::function<void()>&) {})
        , shortcuts(platform.shortcuts, platform.layout, preferences)
    {
        Ticker::shared().setMode(Ticker::Mode::ByHand);
        state.setDefaultFormat(ColorFormat::Hex6);
        state.clearHistory();
        shortcuts.start();
        panel.setFixedSize(380, 580);
        open();
        view->setTab(tab);
        panel.show();
        panel.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&panel));
        settle();
    }

    /// As the panel does when settings are asked for; what was there before is gone.
    void open()
    {
        view = std::make_unique<SettingsScreen>(
            state, preferences,
            RecorderServices{shortcuts, &platform.recording, platform.layout, menu, &platform.panels},
            platform, panel);
        view->setParent(&panel);
        view->setGeometry(0, 51, 380, 529);
        view->show();
    }

    void capture(int count)
    {
        for (int i = 0; i < count; ++i) {
            state.colorCaptured(CapturedColor::capture(i / 255.0, 0, 0, 1));
        }
    }

    /// The control that a screen reader calls by this name, or null.
    template <typename Control>
    [[nodiscard]] Control* control(const QString& name) const
    {
        for (auto* each : view->findChildren<Control*>()) {
            if (each->accessibleName() == name) {
                return each;
            }
        }
        return nullptr;
    }
    /// A segment of the picker of this name.
    [[nodiscard]] QAbstractButton* segment(const QString& picker, const QString& title) const
    {
        for (auto* each : control<SegmentedPicker>(picker)->findChildren<QAbstractButton*>()) {
            if (each->accessibleName() == title) {
                return each;
            }
        }
        return nullptr;
    }
    /// The title of the segment that is said to be checked, or nothing.
    [[nodiscard]] QString selected(const QString& picker) const
    {
        QStringList titles;
        for (auto* each : control<SegmentedPicker>(picker)->findChildren<QAbstractButton*>()) {
            if (QAccessible::queryAccessibleInterface(each)->state().checked != 0) {
                titles.append(each->accessibleName());
            }
        }
        return titles.join(u'+');
    }
    /// All texts on the screen, from top to bottom.
    [[nodiscard]] QStringList texts() const
    {
        QList<Label*> labels = view->findChildren<Label*>();
        const auto top = [](const Label* label) { return label->mapTo(label->window(), QPoint()).y(); };
        std::stable_sort(labels.begin(), labels.end(),
                         [&](const Label* one, const Label* other) { return top(one) < top(other); });
        QStringList result;
        for (const Label* label : labels) {
            if (label->isVisible()) {
                result.append(label->text());
            }
        }
        return result;
    }

    /// All is laid out and at rest.
    static void settle()
    {
        QApplication::processEvents();
        Ticker::shared().advance(60);
        QApplication::processEvents();
    }
    /// Has everything drawn, and lets what that brings about happen.
    void draw()
    {
        static_cast<void>(panel.grab());
        settle();
    }

    ScriptedPlatform platform;
    AppState state;
    Preferences preferences;
    QMenu menu;
    ShortcutRegistry shortcuts;
    QWidget panel;
    Appearance appearance{panel};
    std::unique_ptr<SettingsScreen> view;
};

} // namespace tintwick::test
