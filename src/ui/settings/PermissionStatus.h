#pragma once

#include "View.h"

#include <optional>

namespace tintwick {

class Platform;

/// Shows whether the program may read the screen, and a button to change that where the desktop has one. Asks the
/// desktop at every paint, because the permission changes outside the program.
class PermissionStatus final : public View
{
    Q_OBJECT

public:
    /// The platform must outlive the view.
    explicit PermissionStatus(const Platform& platform);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void ask();
    [[nodiscard]] QWidget* granted();
    [[nodiscard]] QWidget* denied();

    const Platform& m_platform;
    std::optional<bool> m_isPermitted;
};

} // namespace tintwick
