#pragma once

#include "WaylandHandle.h"

#include <QSize>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tintwick {

/// The layout of the pixels in a buffer.
struct ShmLayout
{
    /// In pixels.
    QSize size;
    /// Bytes from one row to the next.
    int stride = 0;
    /// A wl_shm_format.
    std::uint32_t format = WL_SHM_FORMAT_XRGB8888;

    friend bool operator==(const ShmLayout&, const ShmLayout&) = default;
};

/// A wl_buffer in memory that this process shares with the compositor.
class ShmBuffer final
{
public:
    /// Null when there is no memory for it or the layout has no pixels.
    [[nodiscard]] static std::unique_ptr<ShmBuffer> create(wl_shm& shm, const ShmLayout& layout);
    ~ShmBuffer();
    ShmBuffer(const ShmBuffer&) = delete;
    ShmBuffer& operator=(const ShmBuffer&) = delete;

    [[nodiscard]] const ShmLayout& layout() const { return m_layout; }
    [[nodiscard]] wl_buffer* get() const { return m_buffer.get(); }
    [[nodiscard]] std::byte* data() { return m_data; }
    [[nodiscard]] const std::byte* data() const { return m_data; }
    /// In bytes.
    [[nodiscard]] std::size_t length() const { return m_length; }

    /// True from an attach until the compositor has read the buffer.
    [[nodiscard]] bool isBusy() const { return m_isBusy; }
    /// Attaches the whole buffer to the surface and marks all of it as new. The next commit of the surface shows it.
    void attachTo(wl_surface& surface);

private:
    ShmBuffer(WlBuffer buffer, const ShmLayout& layout, std::byte* data, std::size_t length);

    WlBuffer m_buffer;
    ShmLayout m_layout;
    std::byte* m_data;
    std::size_t m_length;
    bool m_isBusy = false;
};

} // namespace tintwick
