#pragma once

#include "View.h"

#include <optional>

namespace tintwick {

class ScreenGrabber;

/// Whether the program may read the screen, and the way to change it where the desktop has one. The desktop is asked
/// each time this is drawn, because the answer is changed elsewhere.
class PermissionStatus final : public View
{
    Q_OBJECT

public:
    /// The grabber must outlive the view.
    explicit PermissionStatus(const ScreenGrabber& grabber);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void ask();
    [[nodiscard]] QWidget* granted();
    [[nodiscard]] QWidget* denied();

    const ScreenGrabber& m_grabber;
    std::optional<bool> m_isPermitted;
};

} // namespace tintwick
