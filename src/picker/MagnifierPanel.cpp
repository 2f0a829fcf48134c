#include "MagnifierPanel.h"

#include "LoupeGeometry.h"
#include "LoupeRenderer.h"
#include "LoupeSurface.h"

#include <QImage>

namespace tintwick {

MagnifierPanel::MagnifierPanel(std::unique_ptr<LoupeSurface> surface)
    : m_surface(std::move(surface))
{
}

MagnifierPanel::~MagnifierPanel() = default;

SurfaceId MagnifierPanel::windowNumber() const
{
    return m_surface->id();
}

void MagnifierPanel::show(LoupeRenderer& view, const LoupeLook& look, GlobalPoint pointer,
                          const std::vector<Screen>& screens)
{
    const std::optional<Screen> screen = screenAt(pointer, screens);
    if (!screen) {
        return;
    }
    const CoordinateFlip flip(screens.front().frame);
    const QImage& picture = view.render(look, screen->scale);
    // The scope is the square at the top of the picture.
    const double scopeSide = picture.width();
    const GlobalPoint origin = loupeOrigin(pointer, picture.size(), scopeSide, flip.toGlobal(screen->frame),
                                           loupe::screenMargin * screen->scale);
    m_surface->present(picture, flip.toDesktop(GlobalPoint{origin.x, origin.y + picture.height()}));
}

} // namespace tintwick
