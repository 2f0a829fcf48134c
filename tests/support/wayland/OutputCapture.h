#pragma once

#include "support/wayland/PixelBuffer.h"
#include "support/wayland/WaylandClient.h"

#include <QImage>

#include <memory>

namespace tintwick {

/// Pictures of a compositor's outputs by wlr-screencopy.
class OutputCapture final
{
public:
    /// The client must outlive the object. Throws std::runtime_error when the compositor lacks the protocol.
    explicit OutputCapture(WaylandClient& client);
    ~OutputCapture();

    /// The picture as the compositor delivers it, without a copy: valid until the next call, not turned. Returns false
    /// when the compositor delivers none.
    [[nodiscard]] bool capture(const WaylandClient::Output& output);
    /// The picture right way up in physical pixels (Format_RGB32); null when the compositor delivers none.
    [[nodiscard]] QImage picture(const WaylandClient::Output& output);

private:
    struct Frame;

    WaylandClient& m_client;
    ClientHandle<wl_shm> m_shm;
    ClientHandle<zwlr_screencopy_manager_v1> m_manager;
    std::unique_ptr<PixelBuffer> m_buffer;
    bool m_isUpsideDown = false;
};

} // namespace tintwick
