#pragma once

#include "SwatchView.h"

namespace tintwick {

/// A recent colour on the dashboard.
class DashboardSwatchView final : public SwatchView
{
    Q_OBJECT

public:
    explicit DashboardSwatchView(AppState& appState);

protected:
    [[nodiscard]] QList<MenuEntry> contextMenu() const override;
};

} // namespace tintwick
