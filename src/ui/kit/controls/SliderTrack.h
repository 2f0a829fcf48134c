#pragma once

#include <QColor>
#include <QList>

class QPainter;
class QRectF;

namespace tintwick {

enum class Scheme;

/// What the track of a slider shows: the colours from its lowest value to its greatest, and the values that are possible but
/// lie outside a limit.
struct SliderTrack
{
    /// As fractions from 0, the lowest value, to 1, the greatest.
    struct Part
    {
        double from = 0;
        double to = 1;

        friend bool operator==(const Part&, const Part&) = default;
    };

    /// At equal distances. A checkerboard is drawn below translucent ones.
    QList<QColor> colors;
    QList<Part> outside;

    [[nodiscard]] bool isOutside(double fraction) const;

    friend bool operator==(const SliderTrack&, const SliderTrack&) = default;
};

/// Paints a track with round ends in `rect`. The lowest and the greatest value lie `inset` points from its ends. Parts outside the
/// limit are faded and hatched.
void drawSliderTrack(QPainter& painter, const QRectF& rect, const SliderTrack& track, double inset,
                     Scheme scheme);

} // namespace tintwick
