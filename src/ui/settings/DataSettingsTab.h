#pragma once

#include "ProjectPage.h"
#include "View.h"

namespace tintwick {

class AppState;

/// The tab for the history (its size, clear, export) and the version of the program.
class DataSettingsTab final : public View
{
    Q_OBJECT

public:
    /// Without a project page there is no link. The state must outlive the view.
    explicit DataSettingsTab(AppState& appState, const std::optional<QUrl>& projectPage = findProjectPage());

private:
    [[nodiscard]] QWidget* historySection();
    [[nodiscard]] QWidget* exportSection();
    /// Shows an alert when no program opens the page.
    void open(const QUrl& page);
    [[nodiscard]] QWidget* aboutSection(const std::optional<QUrl>& projectPage);

    AppState& m_appState;
};

} // namespace tintwick
