#pragma once

#include "ProjectPage.h"
#include "View.h"

namespace tintwick {

class AppState;

/// How many colours are kept, the ways to be rid of them and to take them elsewhere, and what the program is.
class DataSettingsTab final : public View
{
    Q_OBJECT

public:
    /// Without a page of the project there is no link to it. The state must outlive the view.
    explicit DataSettingsTab(AppState& appState, const std::optional<QUrl>& projectPage = findProjectPage());

private:
    [[nodiscard]] QWidget* historySection();
    [[nodiscard]] QWidget* exportSection();
    [[nodiscard]] QWidget* aboutSection(const std::optional<QUrl>& projectPage);

    AppState& m_appState;
};

} // namespace tintwick
