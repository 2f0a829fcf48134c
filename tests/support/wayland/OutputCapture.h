#pragma once

#include "support/wayland/OutputFrame.h"
#include "support/wayland/PixelBuffer.h"
#include "support/wayland/WaylandClient.h"

#include <QImage>

#include <chrono>
#include <memory>
#include <optional>

namespace tintwick {

/// Pictures of a compositor's outputs by wlr-screencopy.
class OutputCapture final
{
public:
    struct Picture
    {
        /// Right way up in physical pixels (Format_RGB32).
        QImage image;
        /// When the compositor has shown it.
        std::chrono::steady_clock::time_point time;
    };

    /// The client must outlive the object. Throws std::runtime_error when the compositor lacks the protocol.
    explicit OutputCapture(WaylandClient& client);

    /// Nothing when the compositor delivers no picture.
    [[nodiscard]] std::optional<Picture> capture(const WaylandClient::Output& output,
                                                 OutputFrame::Kind kind = OutputFrame::Kind::Next);
    /// Copies all outputs at once, into new memory, and drops the pictures. Returns false when the compositor does not deliver them.
    [[nodiscard]] bool captureAll();

private:
    WaylandClient& m_client;
    ClientHandle<wl_shm> m_shm;
    ClientHandle<zwlr_screencopy_manager_v1> m_manager;
    std::unique_ptr<PixelBuffer> m_buffer;
};

} // namespace tintwick
