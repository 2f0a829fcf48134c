#pragma once

#include "RecorderServices.h"
#include "View.h"

namespace tintwick {

class Preferences;
class Stack;

/// The settings of the global shortcuts: recorders where the program chooses the keys; the keys and a button for the
/// desktop's dialog where the user chooses them there; otherwise a line for the configuration of the desktop.
class ShortcutsSection final : public View
{
    Q_OBJECT

public:
    /// Alerts open over `panel`. All arguments must outlive the view.
    ShortcutsSection(const RecorderServices& services, Preferences& preferences, QWidget& panel);

private:
    void rebuild();
    [[nodiscard]] Stack* rows();
    [[nodiscard]] Stack* recorderRows();
    [[nodiscard]] Stack* dialogRows();
    [[nodiscard]] Stack* lineRows();

    RecorderServices m_services;
    Preferences& m_preferences;
    QWidget& m_panel;
};

} // namespace tintwick
