#pragma once

#include <xcb/composite.h>
#include <xcb/damage.h>
#include <xcb/render.h>
#include <xcb/xcb.h>

#include <cstdint>
#include <utility>

namespace tintwick {

/// A resource on the X server, freed by the destructor. Freeing sends a request without waiting.
template <auto freeRequest>
class XcbHandle final
{
public:
    XcbHandle() = default;
    XcbHandle(xcb_connection_t* connection, std::uint32_t id)
        : m_connection(connection)
        , m_id(id)
    {
    }
    XcbHandle(XcbHandle&& other) noexcept
        : m_connection(std::exchange(other.m_connection, nullptr))
        , m_id(std::exchange(other.m_id, 0))
    {
    }
    XcbHandle& operator=(XcbHandle&& other) noexcept
    {
        std::swap(m_connection, other.m_connection);
        std::swap(m_id, other.m_id);
        return *this;
    }
    XcbHandle(const XcbHandle&) = delete;
    XcbHandle& operator=(const XcbHandle&) = delete;
    ~XcbHandle()
    {
        if (m_id != 0) {
            freeRequest(m_connection, m_id);
        }
    }

    /// A new id of the connection, for a resource that is about to be created.
    [[nodiscard]] static XcbHandle withNewId(xcb_connection_t* connection)
    {
        return {connection, xcb_generate_id(connection)};
    }

    [[nodiscard]] std::uint32_t id() const { return m_id; }
    [[nodiscard]] explicit operator bool() const { return m_id != 0; }

private:
    xcb_connection_t* m_connection = nullptr;
    std::uint32_t m_id = 0;
};

using XcbPixmap = XcbHandle<xcb_free_pixmap>;
using XcbPicture = XcbHandle<xcb_render_free_picture>;
using XcbDamage = XcbHandle<xcb_damage_destroy>;
using XcbWindow = XcbHandle<xcb_destroy_window>;
using XcbCursor = XcbHandle<xcb_free_cursor>;
using XcbColormap = XcbHandle<xcb_free_colormap>;
using XcbGraphicsContext = XcbHandle<xcb_free_gc>;

} // namespace tintwick
