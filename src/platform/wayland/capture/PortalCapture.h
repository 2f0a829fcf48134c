#pragma once

#include "DesktopPicture.h"
#include "ScreenCapture.h"
#include "WaylandConnection.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace tintwick {

class ScreenshotPermission;
class ScreenshotRequest;

/// Pictures by the Screenshot portal, which asks the user for the permission once.
class PortalCapture final : public ScreenCapture
{
public:
    /// Both must outlive the object. Without a permission, a denial is a failure.
    PortalCapture(WaylandConnection& connection, const ScreenshotPermission* permission);
    ~PortalCapture() override;

    void start(const std::vector<WaylandOutput*>& outputs, Done done) override;
    void cancel() override;

private:
    void take(const QImage& desktop);
    [[nodiscard]] std::unique_ptr<OutputPicture> pictureOf(const QImage& image) const;
    void finish(CaptureOutcome outcome, Pictures pictures = {});

    WaylandConnection& m_connection;
    const ScreenshotPermission* m_permission;
    /// Deleted later, because it ends within its own signal.
    ScreenshotRequest* m_request = nullptr;
    /// All monitors of the desktop, and which of them were asked for.
    std::vector<MonitorPlace> m_monitors;
    std::vector<std::size_t> m_wanted;
    Done m_done;
};

} // namespace tintwick
