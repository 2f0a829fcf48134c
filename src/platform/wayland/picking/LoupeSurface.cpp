#include "LoupeSurface.h"

namespace tintwick {

LoupeSurface::LoupeSurface(CoverShell& shell, wl_surface& cover, const LogicalGrid& grid)
    : m_grid(grid)
    , m_surface(shell)
    , m_subsurface(
          wl_subcompositor_get_subsurface(shell.connection().subcompositor(), m_surface.get(), &cover))
{
}

LoupeSurface::~LoupeSurface() = default;

bool LoupeSurface::show(const QImage& picture, QPoint topLeft)
{
    const auto place = m_surface.attach(picture, topLeft, m_grid);
    if (!place) {
        return false;
    }
    wl_subsurface_set_position(m_subsurface.get(), place->x(), place->y());
    wl_surface_commit(m_surface.get());
    return true;
}

void LoupeSurface::hide()
{
    m_surface.clear();
    wl_surface_commit(m_surface.get());
}

} // namespace tintwick
