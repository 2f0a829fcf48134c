#include "support/wayland/OutputCapture.h"

#include <QTransform>

#include <algorithm>
#include <list>
#include <stdexcept>
#include <vector>

namespace tintwick {

namespace {

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

OutputCapture::OutputCapture(WaylandClient& client)
    : m_client(client)
    , m_shm(client.bind<wl_shm>(wl_shm_interface, 1))
    , m_manager(client.bind<zwlr_screencopy_manager_v1>(zwlr_screencopy_manager_v1_interface, 2))
{
    if (!m_manager) {
        throw std::runtime_error("the compositor has no screencopy");
    }
}

std::optional<OutputCapture::Picture> OutputCapture::capture(const WaylandClient::Output& output,
                                                             OutputFrame::Kind kind)
{
    const OutputFrame frame(m_manager.get(), m_shm.get(), output.handle.get(), m_buffer, kind);
    while (frame.state() == OutputFrame::State::Waiting) {
        if (!m_client.dispatch()) {
            return std::nullopt;
        }
    }
    if (frame.state() == OutputFrame::State::Failed) {
        return std::nullopt;
    }
    const QImage shared(m_buffer->pixels(), m_buffer->size().width(), m_buffer->size().height(),
                        static_cast<qsizetype>(m_buffer->stride()), imageFormat(m_buffer->format()));
    const QImage image = shared.convertToFormat(QImage::Format_RGB32);
    return Picture{turned(frame.isUpsideDown() ? image.mirrored() : image.copy(), output.transform),
                   frame.time()};
}

bool OutputCapture::captureAll()
{
    const auto& outputs = m_client.outputs();
    std::vector<std::unique_ptr<PixelBuffer>> buffers(outputs.size());
    std::list<OutputFrame> frames;
    auto buffer = buffers.begin();
    for (const auto& output : outputs) {
        frames.emplace_back(m_manager.get(), m_shm.get(), output.handle.get(), *buffer++,
                            OutputFrame::Kind::Next);
    }
    const auto have = [&](OutputFrame::State state) {
        return std::any_of(frames.begin(), frames.end(),
                           [state](const OutputFrame& frame) { return frame.state() == state; });
    };
    while (have(OutputFrame::State::Waiting)) {
        if (!m_client.dispatch()) {
            return false;
        }
    }
    return !have(OutputFrame::State::Failed);
}

} // namespace tintwick
