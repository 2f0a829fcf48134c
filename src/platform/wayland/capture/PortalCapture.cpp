#include "PortalCapture.h"

#include "ScreenshotPermission.h"
#include "ScreenshotRequest.h"
#include "WaylandOutput.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace tintwick {

PortalCapture::PortalCapture(WaylandConnection& connection, const ScreenshotPermission* permission)
    : m_connection(connection)
    , m_permission(permission)
{
}

PortalCapture::~PortalCapture()
{
    delete m_request;
}

void PortalCapture::start(const std::vector<WaylandOutput*>& outputs, Done done)
{
    m_done = std::move(done);
    m_monitors.clear();
    m_wanted.clear();
    const auto& all = m_connection.outputs();
    for (const auto& output : all) {
        m_monitors.push_back({output->logical(), output->pixels()});
    }
    for (const WaylandOutput* wanted : outputs) {
        const auto found =
            std::ranges::find_if(all, [wanted](const auto& output) { return output.get() == wanted; });
        m_wanted.push_back(static_cast<std::size_t>(found - all.begin()));
    }

    auto* request = new ScreenshotRequest;
    m_request = request;
    QObject::connect(request, &ScreenshotRequest::taken, request,
                     [this](const QImage& desktop) { take(desktop); });
    QObject::connect(request, &ScreenshotRequest::cancelled, request,
                     [this] { finish(CaptureOutcome::Cancelled); });
    QObject::connect(request, &ScreenshotRequest::failed, request, [this] {
        const bool isDenied = m_permission && m_permission->isDenied();
        finish(isDenied ? CaptureOutcome::Denied : CaptureOutcome::Failed);
    });
    QObject::connect(request, &ScreenshotRequest::unavailable, request,
                     [this] { finish(CaptureOutcome::Unavailable); });
    request->takeScreenshot();
}

void PortalCapture::cancel()
{
    m_done = nullptr;
    delete std::exchange(m_request, nullptr);
}

void PortalCapture::take(const QImage& desktop)
{
    const std::vector<QImage> images = cutDesktopPicture(desktop, m_monitors);
    if (images.empty()) {
        finish(CaptureOutcome::Failed);
        return;
    }
    Pictures pictures;
    for (const std::size_t index : m_wanted) {
        pictures.push_back(index < images.size() ? pictureOf(images[index]) : nullptr);
    }
    const bool hasAny = std::ranges::any_of(pictures, [](const auto& picture) { return picture != nullptr; });
    finish(hasAny ? CaptureOutcome::Taken : CaptureOutcome::Failed,
           hasAny ? std::move(pictures) : Pictures());
}

std::unique_ptr<OutputPicture> PortalCapture::pictureOf(const QImage& image) const
{
    const ShmLayout layout{image.size(), static_cast<int>(image.bytesPerLine()), WL_SHM_FORMAT_XRGB8888};
    auto buffer = ShmBuffer::create(*m_connection.shm(), layout);
    if (!buffer) {
        return nullptr;
    }
    std::memcpy(buffer->data(), image.constBits(), buffer->length());
    return std::make_unique<OutputPicture>(std::move(buffer), WL_OUTPUT_TRANSFORM_NORMAL);
}

void PortalCapture::finish(CaptureOutcome outcome, Pictures pictures)
{
    std::exchange(m_request, nullptr)->deleteLater();
    const Done done = std::exchange(m_done, nullptr);
    done(outcome, std::move(pictures));
}

} // namespace tintwick
