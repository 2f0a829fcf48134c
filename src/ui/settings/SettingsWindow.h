#pragma once

#include "Appearance.h"

#include <QWidget>

namespace tintwick {

/// The separate window that points to the settings in the panel.
class SettingsWindow final : public QWidget
{
    Q_OBJECT

public:
    /// Wears what another one wears, which must outlive the window.
    explicit SettingsWindow(const Appearance& like);

    /// Opens the window, or brings it to the front, and gives it the keyboard.
    void present();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    Appearance m_appearance;
};

} // namespace tintwick
