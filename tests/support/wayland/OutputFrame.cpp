#include "support/wayland/OutputFrame.h"

namespace tintwick {

OutputFrame::OutputFrame(zwlr_screencopy_manager_v1* manager, wl_shm* shm, wl_output* output,
                         std::unique_ptr<PixelBuffer>& buffer, Kind kind)
    : m_shm(shm)
    , m_buffer(buffer)
    , m_kind(kind)
    , m_frame(zwlr_screencopy_manager_v1_capture_output(manager, 0, output))
{
    static constexpr zwlr_screencopy_frame_v1_listener listener{
        .buffer =
            [](void* self, zwlr_screencopy_frame_v1*, std::uint32_t format, std::uint32_t width,
               std::uint32_t height, std::uint32_t stride) {
                static_cast<OutputFrame*>(self)->copyInto(
                    format, QSize(static_cast<int>(width), static_cast<int>(height)), stride);
            },
        .flags =
            [](void* self, zwlr_screencopy_frame_v1*, std::uint32_t flags) {
                static_cast<OutputFrame*>(self)->m_isUpsideDown =
                    (flags & ZWLR_SCREENCOPY_FRAME_V1_FLAGS_Y_INVERT) != 0;
            },
        .ready =
            [](void* self, zwlr_screencopy_frame_v1*, std::uint32_t highSeconds, std::uint32_t seconds,
               std::uint32_t nanoseconds) {
                auto& frame = *static_cast<OutputFrame*>(self);
                frame.m_state = State::Ready;
                frame.m_time = std::chrono::steady_clock::time_point(
                    std::chrono::seconds(std::int64_t{highSeconds} << 32U | std::int64_t{seconds}) +
                    std::chrono::nanoseconds(nanoseconds));
            },
        .failed = [](void* self,
                     zwlr_screencopy_frame_v1*) { static_cast<OutputFrame*>(self)->m_state = State::Failed; },
        .damage = [](void*, zwlr_screencopy_frame_v1*, std::uint32_t, std::uint32_t, std::uint32_t,
                     std::uint32_t) {},
        .linux_dmabuf = [](void*, zwlr_screencopy_frame_v1*, std::uint32_t, std::uint32_t, std::uint32_t) {},
        .buffer_done = [](void*, zwlr_screencopy_frame_v1*) {}};
    zwlr_screencopy_frame_v1_add_listener(m_frame.get(), &listener, this);
}

void OutputFrame::copyInto(std::uint32_t format, QSize size, std::uint32_t stride)
{
    if (!m_buffer || m_buffer->size() != size || m_buffer->stride() != stride ||
        m_buffer->format() != format) {
        m_buffer = std::make_unique<PixelBuffer>(m_shm, size, stride, format);
    }
    if (m_kind == Kind::Changed) {
        zwlr_screencopy_frame_v1_copy_with_damage(m_frame.get(), m_buffer->buffer());
    } else {
        zwlr_screencopy_frame_v1_copy(m_frame.get(), m_buffer->buffer());
    }
}

} // namespace tintwick
