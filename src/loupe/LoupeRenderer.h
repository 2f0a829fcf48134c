#pragma once

#include "LoupeArtwork.h"
#include "LoupeLabel.h"
#include "LoupeLook.h"
#include "LoupeStencil.h"
#include "PixelGrid.h"

#include <QImage>

#include <optional>
#include <vector>

namespace tintwick {

/// Draws the loupe: the scope with the enlarged pixels, and below it the pill with the colour under the
/// pointer, its hexadecimal code and its name. It has no window; whoever shows the picture asks for the next
/// frame.
class LoupeRenderer final
{
public:
    /// An empty grid shows a light field; a row shorter than the grid has rows leaves the rest of itself
    /// clear.
    void setPixels(PixelGrid pixels);
    /// Without a colour the pill is light grey.
    void setCenterColor(std::optional<SampledColor> color);

    /// Draws one frame, `scale` physical pixels per point. The picture is premultiplied ARGB32 of side × scale by
    /// (side + 56) × scale pixels, rounded. The image is reused: the next call draws into it again.
    const QImage& render(const LoupeLook& look, double scale);

private:
    /// All that depends on shape, size and scale only, made once for many frames.
    struct Prepared
    {
        Prepared(const LoupeLook& ofLook, double scale);

        LoupeLook look;
        LoupeGeometry geometry;
        LoupeArtwork artwork;
        QImage below;
        QImage opening;
        LoupeStencil lightPill;
        LoupeStencil darkPill;
        LoupeLabel label;
        std::vector<QRgb> liveRow;
        /// For the number of cells a side in the last frame.
        int cellCount = 0;
        std::vector<int> cellEdges;
        std::optional<LoupeStencil> scope;
    };

    void prepare(const LoupeLook& look, double scale);
    void drawScope();
    void drawInfoPill();

    PixelGrid m_pixels;
    std::optional<SampledColor> m_centerColor;
    std::optional<Prepared> m_prepared;
    QImage m_image;
};

} // namespace tintwick
