#pragma once

#include "support/wayland/ClientHandle.h"
#include "support/wayland/PixelBuffer.h"

#include <QSize>

#include <chrono>
#include <cstdint>
#include <memory>

namespace tintwick {

/// One picture of an output that is on its way from the compositor by wlr-screencopy.
class OutputFrame final
{
public:
    enum class Kind : std::uint8_t {
        Next,
        /// The next one that differs from the last picture of this client.
        Changed
    };
    enum class State : std::uint8_t { Waiting, Ready, Failed };

    /// Draws into `buffer`, which is replaced if it does not fit. All must outlive the object.
    OutputFrame(zwlr_screencopy_manager_v1* manager, wl_shm* shm, wl_output* output,
                std::unique_ptr<PixelBuffer>& buffer, Kind kind);
    OutputFrame(const OutputFrame&) = delete;
    OutputFrame& operator=(const OutputFrame&) = delete;

    /// Changes while the client dispatches events.
    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] bool isUpsideDown() const { return m_isUpsideDown; }
    /// When the compositor has shown the picture.
    [[nodiscard]] std::chrono::steady_clock::time_point time() const { return m_time; }

private:
    void copyInto(std::uint32_t format, QSize size, std::uint32_t stride);

    wl_shm* m_shm;
    std::unique_ptr<PixelBuffer>& m_buffer;
    Kind m_kind;
    State m_state = State::Waiting;
    bool m_isUpsideDown = false;
    std::chrono::steady_clock::time_point m_time;
    ClientHandle<zwlr_screencopy_frame_v1> m_frame;
};

} // namespace tintwick
