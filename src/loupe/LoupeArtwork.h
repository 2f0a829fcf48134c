#pragma once

#include "LoupeGeometry.h"
#include "LoupeLook.h"
#include "PillContent.h"

#include <QImage>

class QPainter;
class QPainterPath;

namespace tintwick {

/// The parts of the loupe's image that do not depend on live colours. Each is an image of the size of the whole.
class LoupeArtwork final
{
public:
    LoupeArtwork(const LoupeLook& look, const LoupeGeometry& geometry);

    /// Below the live colours: the ring with its shadow, and the pill's shadow. Premultiplied ARGB32.
    [[nodiscard]] QImage below() const;
    /// The areas of live colours: inside the ring, and in the pill. Alpha8.
    [[nodiscard]] QImage opening() const;
    /// Above the cells: the grid lines of `count` cells per side, the outlines of the centre cell, and the ring.
    /// Premultiplied ARGB32. With high contrast the lines depend on the live colours and are not part of it.
    [[nodiscard]] QImage aboveLens(int count) const;
    /// Above the pill's colour: its outline. Premultiplied ARGB32.
    [[nodiscard]] QImage abovePill(PillTone tone) const;

private:
    [[nodiscard]] QImage blank(QImage::Format format) const;
    [[nodiscard]] QPainterPath ringPath() const;
    [[nodiscard]] QPainterPath lensOpening() const;
    [[nodiscard]] QPainterPath pillShape(double inset) const;
    void strokeRing(QPainter& painter) const;
    void drawGridLines(QPainter& painter, int count) const;
    void drawCenterOutlines(QPainter& painter, int count) const;

    LoupeLook m_look;
    LoupeGeometry m_geometry;
};

} // namespace tintwick
