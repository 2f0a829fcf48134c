#include "Application.h"
#include "InstanceService.h"
#include "NoticeView.h"
#include "support/PrivateBus.h"
#include "support/ScriptedPlatform.h"
#include "ui/OwnHomeMain.h"

#include <algorithm>

namespace tintwick::test {

using namespace Qt::StringLiterals;

namespace {

const QString ofSettings = u"The settings show how to pick with a shortcut"_s;

/// A first start on a scripted desktop.
struct FirstStart
{
    explicit FirstStart(GlobalShortcuts::KeyChoice choice, bool hasLine)
    {
        auto ofApplication = std::make_unique<ScriptedPlatform>();
        shortcuts = &ofApplication->shortcuts;
        ofApplication->layout.characters[keycode::c] = u"c"_s;
        shortcuts->choice = choice;
        if (hasLine) {
            shortcuts->line = [](const QStringList&, const Shortcut&) {
                return ConfigurationLine{u"line"_s, {}};
            };
        }
        application = std::make_unique<Application>(std::move(ofApplication), instance);
        application->start(Application::SelfOpening::AsGreeting);
        [] { QTRY_VERIFY(!QApplication::topLevelWidgets().isEmpty() && panel() != nullptr); }();
    }

    [[nodiscard]] static QWidget* panel()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        const auto found = std::ranges::find_if(windows, [](const QWidget* window) {
            return window->isVisible() && window->inherits("tintwick::Panel");
        });
        return found == windows.end() ? nullptr : *found;
    }
    /// Whether the panel shows the text.
    [[nodiscard]] static bool shows(const QString& text)
    {
        const auto notices = panel()->findChildren<NoticeView*>();
        return std::ranges::any_of(notices, [&](const NoticeView* notice) {
            return notice->isVisible() && notice->text().contains(text);
        });
    }

    InstanceService instance;
    ScriptedGlobalShortcuts* shortcuts = nullptr;
    std::unique_ptr<Application> application;
};

} // namespace

class GreetingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theGreetingNamesTheKeysOfTheProgram()
    {
        const FirstStart start(GlobalShortcuts::KeyChoice::Program, false);
        QTRY_VERIFY(start.shows(u"Pick a color anywhere with ⌥⇧C (Alt+Shift+C)"_s));
    }

    void theGreetingNamesTheKeysOnceTheDesktopHasChosenThem()
    {
        const FirstStart start(GlobalShortcuts::KeyChoice::None, true);
        QTRY_VERIFY(start.shows(ofSettings));
        start.shortcuts->setChoice(GlobalShortcuts::KeyChoice::DesktopDialog);
        QTRY_VERIFY(!start.shows(ofSettings));
        Q_EMIT start.shortcuts->changed(u"activatePicker"_s, u"Meta+P"_s);
        QTRY_VERIFY(start.shows(u"Pick a color anywhere with Meta+P"_s));
    }

    void keysThatAreChosenLaterAreNotNamedInAPanelThatTheUserOpened()
    {
        const FirstStart start(GlobalShortcuts::KeyChoice::DesktopDialog, false);
        start.application->openPanel();
        Q_EMIT start.shortcuts->changed(u"activatePicker"_s, u"Meta+P"_s);
        QVERIFY(!start.shows(u"Pick a color anywhere with Meta+P"_s));
    }
};

} // namespace tintwick::test

int main(int argc, char** argv)
{
    const tintwick::test::PrivateBus bus;
    return tintwick::test::runWithOwnHome<tintwick::test::GreetingTest>(argc, argv);
}

#include "GreetingTest.moc"
