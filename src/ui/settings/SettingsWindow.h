#pragma once

#include "Appearance.h"

#include <QWidget>

namespace tintwick {

/// The window of the tray menu's "Settings…". It tells the user that the settings are in the panel.
class SettingsWindow final : public QWidget
{
    Q_OBJECT

public:
    /// Follows an appearance, which must outlive the window.
    explicit SettingsWindow(const Appearance& like);

    /// Shows and raises the window and gives it the keyboard.
    void present();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    Appearance m_appearance;
};

} // namespace tintwick
