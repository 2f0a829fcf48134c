#pragma once

#include "platform/PanelHost.h"
#include "platform/x11/XcbConnection.h"

namespace tintwick {

class X11PanelHost final : public PanelHost
{
public:
    explicit X11PanelHost(XcbConnection& connection);

    void prepareToShow(QWindow& window) override;
    [[nodiscard]] bool blendsWindows() const override;

private:
    XcbConnection& m_connection;
};

} // namespace tintwick
