#include "support/wayland/OutputCapture.h"

#include <QTransform>

#include <stdexcept>

namespace tintwick {

namespace {

enum class State { Waiting, Ready, Failed };

QImage::Format imageFormat(std::uint32_t format)
{
    switch (format) {
    case WL_SHM_FORMAT_XRGB8888:
    case WL_SHM_FORMAT_ARGB8888:
        return QImage::Format_RGB32;
    case WL_SHM_FORMAT_XBGR8888:
    case WL_SHM_FORMAT_ABGR8888:
        return QImage::Format_RGBX8888;
    default:
        throw std::runtime_error("a screenshot has an unknown format");
    }
}

/// From the output's own orientation to that of the user.
QImage turned(const QImage& picture, wl_output_transform transform)
{
    const int quarters = static_cast<int>(transform) & 3;
    const QImage upright =
        quarters == 0 ? picture : picture.transformed(QTransform().rotate(90.0 * quarters));
    return (transform & WL_OUTPUT_TRANSFORM_FLIPPED) == 0 ? upright : upright.mirrored(true, false);
}

} // namespace

struct OutputCapture::Frame
{
    State state = State::Waiting;
    QSize size;
    std::uint32_t format = 0;
    std::uint32_t stride = 0;
    bool isUpsideDown = false;
};

OutputCapture::OutputCapture(WaylandClient& client)
    : m_client(client)
    , m_shm(client.bind<wl_shm>(wl_shm_interface, 1))
    , m_manager(client.bind<zwlr_screencopy_manager_v1>(zwlr_screencopy_manager_v1_interface, 2))
{
    if (!m_manager) {
        throw std::runtime_error("the compositor has no screencopy");
    }
}

OutputCapture::~OutputCapture() = default;

bool OutputCapture::capture(const WaylandClient::Output& output)
{
    static constexpr zwlr_screencopy_frame_v1_listener listener{
        .buffer =
            [](void* data, zwlr_screencopy_frame_v1*, std::uint32_t format, std::uint32_t width,
               std::uint32_t height, std::uint32_t stride) {
                auto& frame = *static_cast<Frame*>(data);
                frame.size = QSize(static_cast<int>(width), static_cast<int>(height));
                frame.format = format;
                frame.stride = stride;
            },
        .flags =
            [](void* data, zwlr_screencopy_frame_v1*, std::uint32_t flags) {
                static_cast<Frame*>(data)->isUpsideDown =
                    (flags & ZWLR_SCREENCOPY_FRAME_V1_FLAGS_Y_INVERT) != 0;
            },
        .ready = [](void* data, zwlr_screencopy_frame_v1*, std::uint32_t, std::uint32_t,
                    std::uint32_t) { static_cast<Frame*>(data)->state = State::Ready; },
        .failed = [](void* data,
                     zwlr_screencopy_frame_v1*) { static_cast<Frame*>(data)->state = State::Failed; },
        .damage = [](void*, zwlr_screencopy_frame_v1*, std::uint32_t, std::uint32_t, std::uint32_t,
                     std::uint32_t) {},
        .linux_dmabuf = [](void*, zwlr_screencopy_frame_v1*, std::uint32_t, std::uint32_t, std::uint32_t) {},
        .buffer_done = [](void*, zwlr_screencopy_frame_v1*) {}};
    Frame frame;
    const ClientHandle<zwlr_screencopy_frame_v1> handle(
        zwlr_screencopy_manager_v1_capture_output(m_manager.get(), 0, output.handle.get()));
    zwlr_screencopy_frame_v1_add_listener(handle.get(), &listener, &frame);
    while (frame.state == State::Waiting && frame.size.isEmpty()) {
        if (!m_client.dispatch()) {
            return false;
        }
    }
    if (frame.state == State::Failed) {
        return false;
    }
    if (!m_buffer || m_buffer->size() != frame.size || m_buffer->stride() != frame.stride ||
        m_buffer->format() != frame.format) {
        m_buffer = std::make_unique<PixelBuffer>(m_shm.get(), frame.size, frame.stride, frame.format);
    }
    zwlr_screencopy_frame_v1_copy(handle.get(), m_buffer->buffer());
    while (frame.state == State::Waiting) {
        if (!m_client.dispatch()) {
            return false;
        }
    }
    m_isUpsideDown = frame.isUpsideDown;
    return frame.state == State::Ready;
}

QImage OutputCapture::picture(const WaylandClient::Output& output)
{
    if (!capture(output)) {
        return {};
    }
    const QImage shared(m_buffer->pixels(), m_buffer->size().width(), m_buffer->size().height(),
                        static_cast<qsizetype>(m_buffer->stride()), imageFormat(m_buffer->format()));
    const QImage picture = shared.convertToFormat(QImage::Format_RGB32);
    return turned(m_isUpsideDown ? picture.mirrored() : picture.copy(), output.transform);
}

} // namespace tintwick
