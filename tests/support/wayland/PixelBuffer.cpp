#include "support/wayland/PixelBuffer.h"

#include <stdexcept>

#include <sys/mman.h>
#include <unistd.h>

namespace tintwick {

PixelBuffer::PixelBuffer(wl_shm* shm, QSize size, std::uint32_t stride, std::uint32_t format)
    : m_size(size)
    , m_stride(stride)
    , m_format(format)
    , m_length(std::size_t{stride} * static_cast<std::size_t>(size.height()))
{
    const int file = ::memfd_create("tintwick-test", MFD_CLOEXEC);
    void* memory = MAP_FAILED;
    if (file >= 0 && ::ftruncate(file, static_cast<off_t>(m_length)) == 0) {
        memory = ::mmap(nullptr, m_length, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    }
    if (memory == MAP_FAILED) {
        ::close(file);
        throw std::runtime_error("no shared memory");
    }
    m_pixels = static_cast<std::uint8_t*>(memory);
    wl_shm_pool* pool = wl_shm_create_pool(shm, file, static_cast<std::int32_t>(m_length));
    m_buffer.reset(wl_shm_pool_create_buffer(pool, 0, size.width(), size.height(),
                                             static_cast<std::int32_t>(stride), format));
    wl_shm_pool_destroy(pool);
    ::close(file);
}

PixelBuffer::~PixelBuffer()
{
    m_buffer.reset();
    ::munmap(m_pixels, m_length);
}

} // namespace tintwick
