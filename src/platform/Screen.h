#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QSize>

#include <cmath>

namespace tintwick {

/// One monitor during a pick.
struct Screen
{
    /// In physical pixels.
    QSize size;
    /// Physical pixels per point of the user interface on this screen (1, 1.5, 2, ...).
    double scale = 1;
    /// Of the picture that the desktop returns: 10 for a 10-bit picture. Grabbed pixels have the 8 most significant ones.
    int bitsPerChannel = 8;

    friend bool operator==(const Screen&, const Screen&) = default;
};

/// A point on a screen.
struct ScreenPosition
{
    /// Index into the screens of the session.
    int screen = 0;
    /// In physical pixels from the top left corner of the screen, y downwards; fractions where the desktop reports
    /// them. Lies outside the screen where the pointer is on no screen at all.
    QPointF point;
    /// A finger is there, which hides what is below it.
    bool isFinger = false;

    /// The pixel that contains the point.
    [[nodiscard]] QPoint pixel() const
    {
        return {static_cast<int>(std::floor(point.x())), static_cast<int>(std::floor(point.y()))};
    }

    friend bool operator==(const ScreenPosition&, const ScreenPosition&) = default;
};

} // namespace tintwick
