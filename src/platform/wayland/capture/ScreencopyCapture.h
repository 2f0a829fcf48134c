#pragma once

#include "ScreenCapture.h"
#include "WaylandConnection.h"

#include <memory>
#include <vector>

struct zwlr_screencopy_manager_v1;

namespace tintwick {

template <>
struct WaylandDelete<zwlr_screencopy_manager_v1>
{
    void operator()(zwlr_screencopy_manager_v1* manager) const;
};

/// Pictures by zwlr_screencopy_manager_v1: the compositor fills the buffer that is shown later.
class ScreencopyCapture final : public ScreenCapture
{
public:
    /// Null when the compositor does not offer the protocol. The connection must outlive the object.
    [[nodiscard]] static std::unique_ptr<ScreencopyCapture> create(WaylandConnection& connection);
    ~ScreencopyCapture() override;

    void start(const std::vector<WaylandOutput*>& outputs, Done done) override;
    void cancel() override;

private:
    class Frame;

    ScreencopyCapture(WaylandConnection& connection, WaylandHandle<zwlr_screencopy_manager_v1> manager);

    void finishWhenComplete();

    WaylandConnection& m_connection;
    WaylandHandle<zwlr_screencopy_manager_v1> m_manager;
    std::vector<std::unique_ptr<Frame>> m_frames;
    Done m_done;
};

} // namespace tintwick
