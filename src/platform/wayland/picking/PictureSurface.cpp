#include "PictureSurface.h"

#include <viewporter-client-protocol.h>

#include <algorithm>
#include <cstring>

namespace tintwick {

namespace {

// One is shown, one may still be read, one is drawn.
constexpr std::size_t mostBuffers = 3;
constexpr int bytesPerPixel = 4;
// How much larger than the picture its cover can be.
constexpr int slack = 32;

/// Copies the picture to a place in the buffer, as far as it fits, and clears the rest of the area.
void paint(ShmBuffer& buffer, QSize area, const QImage& picture, QPoint place)
{
    const QRect visible = QRect(place, picture.size()) & QRect(QPoint(), area);
    for (int y = 0; y < area.height(); ++y) {
        std::byte* const line = buffer.data() + static_cast<std::ptrdiff_t>(y) * buffer.layout().stride;
        std::memset(line, 0, static_cast<std::size_t>(area.width()) * bytesPerPixel);
        if (y >= visible.top() && y <= visible.bottom() && visible.width() > 0) {
            const uchar* const source =
                picture.constScanLine(y - place.y()) +
                static_cast<std::ptrdiff_t>(visible.left() - place.x()) * bytesPerPixel;
            std::memcpy(line + static_cast<std::ptrdiff_t>(visible.left()) * bytesPerPixel, source,
                        static_cast<std::size_t>(visible.width()) * bytesPerPixel);
        }
    }
}

} // namespace

PictureSurface::PictureSurface(CoverShell& shell)
    : m_shell(shell)
    , m_surface(wl_compositor_create_surface(shell.connection().compositor()))
    , m_viewport(wp_viewporter_get_viewport(shell.viewporter(), m_surface.get()))
{
    const WlRegion none(wl_compositor_create_region(shell.connection().compositor()));
    wl_surface_set_input_region(m_surface.get(), none.get());
}

PictureSurface::~PictureSurface() = default;

std::optional<QRect> PictureSurface::attach(const QImage& picture, QPoint topLeft, const LogicalGrid& grid)
{
    const auto [logical, pixels] = grid.cover(QRect(topLeft, picture.size()));
    if (logical.isEmpty() || pixels.isEmpty()) {
        clear();
        return QRect();
    }
    ShmBuffer* const buffer = freeBuffer(picture.size() + QSize(slack, slack));
    if (!buffer) {
        return std::nullopt;
    }
    paint(*buffer, pixels.size(), picture, topLeft - pixels.topLeft());
    wp_viewport_set_source(m_viewport.get(), 0, 0, wl_fixed_from_int(pixels.width()),
                           wl_fixed_from_int(pixels.height()));
    wp_viewport_set_destination(m_viewport.get(), logical.width(), logical.height());
    buffer->attachTo(*m_surface);
    return logical;
}

void PictureSurface::clear()
{
    wl_surface_attach(m_surface.get(), nullptr, 0, 0);
}

ShmBuffer* PictureSurface::freeBuffer(QSize size)
{
    std::erase_if(m_buffers, [size](const auto& buffer) { return buffer->layout().size != size; });
    const auto found = std::ranges::find_if(m_buffers, [](const auto& buffer) { return !buffer->isBusy(); });
    if (found != m_buffers.end()) {
        return found->get();
    }
    if (m_buffers.size() == mostBuffers) {
        return nullptr;
    }
    auto buffer = ShmBuffer::create(*m_shell.connection().shm(),
                                    {size, size.width() * bytesPerPixel, WL_SHM_FORMAT_ARGB8888});
    return buffer ? m_buffers.emplace_back(std::move(buffer)).get() : nullptr;
}

} // namespace tintwick
