#include "KWinCapture.h"

#include "KWinScreenshot.h"
#include "WaylandOutput.h"

#include <QCoreApplication>

#include <algorithm>
#include <optional>
#include <utility>

namespace tintwick {

namespace {

/// The same pixels as a wl_shm_format. None for formats of another depth.
std::optional<std::uint32_t> shmFormatOf(QImage::Format format)
{
    switch (format) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
        return WL_SHM_FORMAT_XRGB8888;
    case QImage::Format_RGBX8888:
    case QImage::Format_RGBA8888:
    case QImage::Format_RGBA8888_Premultiplied:
        return WL_SHM_FORMAT_XBGR8888;
    case QImage::Format_RGB30:
    case QImage::Format_A2RGB30_Premultiplied:
        return WL_SHM_FORMAT_XRGB2101010;
    case QImage::Format_BGR30:
    case QImage::Format_A2BGR30_Premultiplied:
        return WL_SHM_FORMAT_XBGR2101010;
    default:
        return std::nullopt;
    }
}

} // namespace

/// The capture of one monitor.
class KWinCapture::Monitor final
{
public:
    Monitor(KWinCapture& capture, const WaylandOutput& output)
        : m_capture(capture)
    {
        QObject::connect(&m_screenshot, &KWinScreenshot::ended, &m_screenshot,
                         [this](CaptureOutcome outcome) {
                             m_outcome = outcome;
                             if (outcome != CaptureOutcome::Taken) {
                                 m_buffer.reset();
                             }
                             m_capture.finishWhenComplete();
                         });
        m_screenshot.take(output.name(),
                          [this](const KWinScreenshot::Layout& layout) { return allocate(layout); });
    }

    /// None while the capture runs.
    [[nodiscard]] std::optional<CaptureOutcome> outcome() const { return m_outcome; }
    /// Null when the capture failed.
    [[nodiscard]] std::unique_ptr<OutputPicture> takePicture()
    {
        // KWin delivers the monitor as the user sees it.
        return m_buffer ? std::make_unique<OutputPicture>(std::move(m_buffer), WL_OUTPUT_TRANSFORM_NORMAL)
                        : nullptr;
    }

private:
    [[nodiscard]] std::span<std::byte> allocate(const KWinScreenshot::Layout& layout)
    {
        const std::optional<std::uint32_t> format = shmFormatOf(layout.format);
        if (!format || !m_capture.m_connection.showsFormat(*format)) {
            return {};
        }
        m_buffer = ShmBuffer::create(*m_capture.m_connection.shm(), {layout.size, layout.stride, *format});
        return m_buffer ? std::span(m_buffer->data(), m_buffer->length()) : std::span<std::byte>();
    }

    KWinCapture& m_capture;
    std::unique_ptr<ShmBuffer> m_buffer;
    std::optional<CaptureOutcome> m_outcome;
    /// The last member, because it writes into the buffer.
    KWinScreenshot m_screenshot;
};

KWinCapture::KWinCapture(WaylandConnection& connection)
    : m_connection(connection)
{
}

KWinCapture::~KWinCapture() = default;

void KWinCapture::start(const std::vector<WaylandOutput*>& outputs, Done done)
{
    m_done = std::move(done);
    for (const WaylandOutput* output : outputs) {
        m_monitors.push_back(std::make_unique<Monitor>(*this, *output));
    }
}

void KWinCapture::cancel()
{
    m_done = nullptr;
    m_monitors.clear();
    QCoreApplication::removePostedEvents(&m_context);
}

void KWinCapture::finishWhenComplete()
{
    if (!std::ranges::all_of(m_monitors,
                             [](const auto& monitor) { return monitor->outcome().has_value(); })) {
        return;
    }
    // Queued, because the last screenshot reports its end now and is destroyed then.
    QMetaObject::invokeMethod(
        &m_context, [this] { finish(); }, Qt::QueuedConnection);
}

void KWinCapture::finish()
{
    Pictures pictures;
    CaptureOutcome outcome = CaptureOutcome::Unavailable;
    for (const auto& monitor : std::exchange(m_monitors, {})) {
        pictures.push_back(monitor->takePicture());
        if (outcome != CaptureOutcome::Taken && monitor->outcome() != CaptureOutcome::Unavailable) {
            outcome = *monitor->outcome();
        }
    }
    const Done done = std::exchange(m_done, nullptr);
    done(outcome, outcome == CaptureOutcome::Taken ? std::move(pictures) : Pictures());
}

} // namespace tintwick
