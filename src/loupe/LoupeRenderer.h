#pragma once

#include "LoupeArtwork.h"
#include "LoupeLabel.h"
#include "LoupeLook.h"
#include "LoupeStencil.h"
#include "PickSigns.h"

#include <QImage>

#include <map>
#include <optional>
#include <vector>

namespace tintwick {

/// Draws the loupe: the lens with the enlarged pixels, and below it the pill with the colour under the pointer, its
/// hexadecimal code and its name. It draws images only; the caller shows them. What depends on shape, size and scale
/// only, such as the shadows, is drawn once and kept for the next picks.
class LoupeRenderer final
{
public:
    /// One pixel of the square picture (Format_RGB32) is one cell of the lens. A null picture shows a light field.
    void setPixels(const QImage& pixels);
    /// Without a colour the pill is light grey.
    void setCenterColor(std::optional<QRgb> color);
    /// What a pick copies now. Shown if the look wants it.
    void setText(const QString& text) { m_text = text.simplified(); }
    void setSigns(const PickSigns& signs);

    /// Draws one frame at `scale` physical pixels per point: premultiplied ARGB32, of LoupeGeometry::size(). The next call at this scale draws into the same image.
    const QImage& render(const LoupeLook& look, double scale);

private:
    /// Everything that depends on shape, size and scale only.
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
        std::vector<QRgb> lineRow;
        /// Cells per side in the last frame.
        int cellCount = 0;
        std::vector<int> cellEdges;
        /// For each pixel along a side of the lens, whether a line in the colour of the strongest contrast is there.
        std::vector<bool> isOnLine;
        std::optional<LoupeStencil> lens;
        QImage image;
    };

    [[nodiscard]] Prepared& prepare(const LoupeLook& look, double scale);
    void drawLens(Prepared& prepared) const;
    static void fillRows(Prepared& prepared, const QRgb* pixels);
    void drawInfoPill(Prepared& prepared) const;

    QImage m_pixels;
    std::optional<QRgb> m_centerColor;
    PickSigns m_signs;
    QString m_signsText;
    QString m_text;
    LoupeLook m_look;
    /// By scale; all of the last look.
    std::map<double, Prepared> m_prepared;
};

} // namespace tintwick
