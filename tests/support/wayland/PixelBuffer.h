#pragma once

#include "support/wayland/ClientHandle.h"

#include <QSize>

#include <cstddef>
#include <cstdint>

namespace tintwick {

/// A picture in memory that is shared with the compositor.
class PixelBuffer final
{
public:
    /// `stride` is in bytes. Throws std::runtime_error when there is no memory.
    PixelBuffer(wl_shm* shm, QSize size, std::uint32_t stride, std::uint32_t format);
    ~PixelBuffer();
    PixelBuffer(const PixelBuffer&) = delete;
    PixelBuffer& operator=(const PixelBuffer&) = delete;

    [[nodiscard]] wl_buffer* buffer() const { return m_buffer.get(); }
    [[nodiscard]] std::uint8_t* pixels() const { return m_pixels; }
    [[nodiscard]] QSize size() const { return m_size; }
    [[nodiscard]] std::uint32_t stride() const { return m_stride; }
    [[nodiscard]] std::uint32_t format() const { return m_format; }

private:
    QSize m_size;
    std::uint32_t m_stride;
    std::uint32_t m_format;
    std::size_t m_length;
    std::uint8_t* m_pixels = nullptr;
    ClientHandle<wl_buffer> m_buffer;
};

} // namespace tintwick
