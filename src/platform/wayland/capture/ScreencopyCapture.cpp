#include "ScreencopyCapture.h"

#include "BufferTransform.h"

#include <wlr-screencopy-unstable-v1-client-protocol.h>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

constexpr std::uint32_t managerVersion = 3;

} // namespace

void WaylandDelete<zwlr_screencopy_manager_v1>::operator()(zwlr_screencopy_manager_v1* manager) const
{
    zwlr_screencopy_manager_v1_destroy(manager);
}

/// The capture of one output.
class ScreencopyCapture::Frame final
{
public:
    Frame(ScreencopyCapture& capture, wl_output& output, int transform)
        : m_capture(capture)
        , m_frame(zwlr_screencopy_manager_v1_capture_output(capture.m_manager.get(), 0, &output))
        , m_transform(transform)
    {
        static constexpr zwlr_screencopy_frame_v1_listener handlers{
            .buffer =
                [](void* self, zwlr_screencopy_frame_v1*, std::uint32_t format, std::uint32_t width,
                   std::uint32_t height, std::uint32_t stride) {
                    of(self).handleBuffer({{static_cast<int>(width), static_cast<int>(height)},
                                           static_cast<int>(stride),
                                           format});
                },
            .flags =
                [](void* self, zwlr_screencopy_frame_v1*, std::uint32_t flags) {
                    of(self).m_isUpsideDown = (flags & ZWLR_SCREENCOPY_FRAME_V1_FLAGS_Y_INVERT) != 0;
                },
            .ready = [](void* self, zwlr_screencopy_frame_v1*, std::uint32_t, std::uint32_t,
                        std::uint32_t) { of(self).handleReady(); },
            .failed = [](void* self, zwlr_screencopy_frame_v1*) { of(self).end(); },
            .damage = [](void*, zwlr_screencopy_frame_v1*, std::uint32_t, std::uint32_t, std::uint32_t,
                         std::uint32_t) {},
            .linux_dmabuf = [](void*, zwlr_screencopy_frame_v1*, std::uint32_t, std::uint32_t,
                               std::uint32_t) {},
            .buffer_done = [](void* self, zwlr_screencopy_frame_v1*) { of(self).copy(); }};
        zwlr_screencopy_frame_v1_add_listener(m_frame, &handlers, this);
    }
    ~Frame() { zwlr_screencopy_frame_v1_destroy(m_frame); }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

    [[nodiscard]] bool hasEnded() const { return m_hasEnded; }
    /// Null when the capture failed.
    [[nodiscard]] std::unique_ptr<OutputPicture> takePicture() { return std::move(m_picture); }

private:
    static Frame& of(void* self) { return *static_cast<Frame*>(self); }

    void handleBuffer(const ShmLayout& layout)
    {
        if (!m_buffer && pixelFormatOf(layout.format)) {
            m_buffer = ShmBuffer::create(*m_capture.m_connection.shm(), layout);
        }
        // Later versions report all kinds of buffers first.
        if (zwlr_screencopy_frame_v1_get_version(m_frame) <
            ZWLR_SCREENCOPY_FRAME_V1_BUFFER_DONE_SINCE_VERSION) {
            copy();
        }
    }

    void copy()
    {
        if (m_buffer) {
            zwlr_screencopy_frame_v1_copy(m_frame, m_buffer->get());
        } else {
            end();
        }
    }

    void handleReady()
    {
        m_picture = std::make_unique<OutputPicture>(std::move(m_buffer),
                                                    m_isUpsideDown ? upsideDown(m_transform) : m_transform);
        end();
    }

    void end()
    {
        m_hasEnded = true;
        m_capture.finishWhenComplete();
    }

    ScreencopyCapture& m_capture;
    zwlr_screencopy_frame_v1* m_frame;
    int m_transform;
    bool m_isUpsideDown = false;
    bool m_hasEnded = false;
    std::unique_ptr<ShmBuffer> m_buffer;
    std::unique_ptr<OutputPicture> m_picture;
};

std::unique_ptr<ScreencopyCapture> ScreencopyCapture::create(WaylandConnection& connection)
{
    WaylandHandle<zwlr_screencopy_manager_v1> manager(
        connection.bind<zwlr_screencopy_manager_v1>(zwlr_screencopy_manager_v1_interface, managerVersion));
    return manager ? std::unique_ptr<ScreencopyCapture>(new ScreencopyCapture(connection, std::move(manager)))
                   : nullptr;
}

ScreencopyCapture::ScreencopyCapture(WaylandConnection& connection,
                                     WaylandHandle<zwlr_screencopy_manager_v1> manager)
    : m_connection(connection)
    , m_manager(std::move(manager))
{
}

ScreencopyCapture::~ScreencopyCapture() = default;

void ScreencopyCapture::start(const std::vector<WaylandOutput*>& outputs, Done done)
{
    m_done = std::move(done);
    for (const WaylandOutput* output : outputs) {
        m_frames.push_back(std::make_unique<Frame>(*this, *output->get(), output->transform()));
    }
    m_connection.flush();
}

void ScreencopyCapture::cancel()
{
    m_done = nullptr;
    m_frames.clear();
}

void ScreencopyCapture::finishWhenComplete()
{
    if (!std::ranges::all_of(m_frames, [](const auto& frame) { return frame->hasEnded(); })) {
        return;
    }
    Pictures pictures;
    for (const auto& frame : std::exchange(m_frames, {})) {
        pictures.push_back(frame->takePicture());
    }
    const bool hasAny = std::ranges::any_of(pictures, [](const auto& picture) { return picture != nullptr; });
    const Done done = std::exchange(m_done, nullptr);
    done(hasAny ? CaptureOutcome::Taken : CaptureOutcome::Failed, hasAny ? std::move(pictures) : Pictures());
}

} // namespace tintwick
