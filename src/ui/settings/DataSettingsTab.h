#pragma once

#include "ProjectPage.h"
#include "View.h"

namespace tintwick {

class AppState;
class Preferences;

/// The tab for the history (its size, clear, repeated picks, export) and the version of the program.
class DataSettingsTab final : public View
{
    Q_OBJECT

public:
    /// Without a project page there is no link. State and preferences must outlive the view.
    DataSettingsTab(AppState& appState, Preferences& preferences,
                    const std::optional<QUrl>& projectPage = findProjectPage());

private:
    [[nodiscard]] QWidget* historySection();
    [[nodiscard]] QWidget* repeatedPickRow();
    [[nodiscard]] QWidget* exportSection();
    /// Shows an alert when no program opens the page.
    void open(const QUrl& page);
    [[nodiscard]] QWidget* aboutSection(const std::optional<QUrl>& projectPage);

    AppState& m_appState;
    Preferences& m_preferences;
};

} // namespace tintwick
