#include "ShmBuffer.h"

#include <limits>
#include <utility>

#include <sys/mman.h>
#include <unistd.h>

namespace tintwick {

std::unique_ptr<ShmBuffer> ShmBuffer::create(wl_shm& shm, const ShmLayout& layout)
{
    const qint64 length = qint64{layout.stride} * layout.size.height();
    if (layout.size.isEmpty() || length <= 0 || length > std::numeric_limits<std::int32_t>::max()) {
        return nullptr;
    }
    const int file = ::memfd_create("tintwick-pixels", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (file < 0) {
        return nullptr;
    }
    const auto size = static_cast<std::size_t>(length);
    void* data = MAP_FAILED;
    if (::ftruncate(file, length) == 0) {
        data = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    }
    if (data == MAP_FAILED) {
        ::close(file);
        return nullptr;
    }
    wl_shm_pool* pool = wl_shm_create_pool(&shm, file, static_cast<std::int32_t>(length));
    WlBuffer buffer(wl_shm_pool_create_buffer(pool, 0, layout.size.width(), layout.size.height(),
                                              layout.stride, layout.format));
    wl_shm_pool_destroy(pool);
    ::close(file);
    return std::unique_ptr<ShmBuffer>(
        new ShmBuffer(std::move(buffer), layout, static_cast<std::byte*>(data), size));
}

ShmBuffer::ShmBuffer(WlBuffer buffer, const ShmLayout& layout, std::byte* data, std::size_t length)
    : m_buffer(std::move(buffer))
    , m_layout(layout)
    , m_data(data)
    , m_length(length)
{
    static constexpr wl_buffer_listener listener{
        [](void* self, wl_buffer*) { static_cast<ShmBuffer*>(self)->m_isBusy = false; }};
    wl_buffer_add_listener(m_buffer.get(), &listener, this);
}

ShmBuffer::~ShmBuffer()
{
    ::munmap(m_data, m_length);
}

void ShmBuffer::attachTo(wl_surface& surface)
{
    m_isBusy = true;
    wl_surface_attach(&surface, m_buffer.get(), 0, 0);
    wl_surface_damage_buffer(&surface, 0, 0, m_layout.size.width(), m_layout.size.height());
}

} // namespace tintwick
