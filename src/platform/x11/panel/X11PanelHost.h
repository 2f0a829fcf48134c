#pragma once

#include "PanelHost.h"
#include "X11PanelShadow.h"
#include "XcbConnection.h"

#include <optional>

namespace tintwick {

class X11PanelHost final : public PanelHost
{
public:
    explicit X11PanelHost(XcbConnection& connection);

    void prepareToShow(QWindow& window) override;
    [[nodiscard]] bool blendsWindows() const override;
    void showShadow(const QWindow& window, const QImage& picture, const QMargins& margins) override;
    void hideShadow() override;

private:
    XcbConnection& m_connection;
    std::optional<X11PanelShadow> m_shadow;
};

} // namespace tintwick
