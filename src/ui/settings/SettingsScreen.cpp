#include "SettingsScreen.h"

#include "DataSettingsTab.h"
#include "GeneralSettingsTab.h"
#include "ScrollArea.h"
#include "SegmentedPicker.h"
#include "Stack.h"

#include <algorithm>

namespace tintwick {

namespace {

QStringList titles()
{
    QStringList result;
    for (const SettingsTab tab : allSettingsTabs) {
        result.append(title(tab));
    }
    return result;
}

} // namespace

/// Contains the current tab.
class SettingsScreen::Screen final : public View
{
public:
    using View::setContent;
};

SettingsScreen::SettingsScreen(AppState& appState, Preferences& preferences,
                               const RecorderServices& recording, const Platform& platform, QWidget& panel)
    : m_appState(appState)
    , m_preferences(preferences)
    , m_recording(recording)
    , m_platform(platform)
    , m_panel(panel)
    , m_tabPicker(new SegmentedPicker(tr("Tab"), titles(), 0))
    , m_screen(new Screen)
{
    setAccessibleName(tr("Settings"));
    setFocusPolicy(Qt::ClickFocus);
    showTab();
    setContent(column(row(Padding{{16, 12, 16, 0}}, m_tabPicker), m_screen));
    m_tabPicker->onSelect(
        [this](qsizetype position) { setTab(allSettingsTabs.at(static_cast<std::size_t>(position))); });
}

void SettingsScreen::setTab(SettingsTab tab)
{
    if (m_tab == tab) {
        return;
    }
    m_tab = tab;
    m_tabPicker->setSelected(std::ranges::find(allSettingsTabs, tab) - allSettingsTabs.begin());
    showTab();
}

void SettingsScreen::showTab()
{
    QWidget* tab = nullptr;
    switch (m_tab) {
    case SettingsTab::General:
        tab = new GeneralSettingsTab(m_appState, m_preferences, m_recording, m_platform, m_panel);
        break;
    case SettingsTab::Data:
        tab = new DataSettingsTab(m_appState, m_preferences);
        break;
    }
    m_screen->setContent(verticalScroll(column(Padding{{16, 12, 16, 12}}, tab, spacer())));
}

// Otherwise a control of the previous screen would keep the focus.
void SettingsScreen::showEvent(QShowEvent* event)
{
    View::showEvent(event);
    if (!isAncestorOf(window()->focusWidget())) {
        setFocus();
    }
}

} // namespace tintwick
