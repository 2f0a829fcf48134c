#pragma once

#include "Coordinates.h"
#include "PixelGrid.h"
#include "ScreenGrabber.h"

#include <optional>

namespace tintwick {

/// Turns the pixels around a point of the screen into colours. Points are in global space and may be fractional; the
/// point (x, y) lies in the pixel below and to the right of it. A radius counts pixels on each side of the centre one
/// and is not negative. The grabber must outlive the service.
class ScreenCaptureService final
{
public:
    /// What the loupe shows for one point.
    struct Sample
    {
        PixelGrid grid;
        /// The colour that a click on the point would take; none when it would take nothing.
        std::optional<SampledColor> center;
    };

    explicit ScreenCaptureService(ScreenGrabber& grabber);

    /// The surface that captures look below; 0 when they see everything.
    [[nodiscard]] SurfaceId referenceWindowID() const { return m_referenceWindowID; }
    void setReferenceWindowID(SurfaceId id) { m_referenceWindowID = id; }

    /// Between desktop space and global space, for the screens as they are now.
    [[nodiscard]] CoordinateFlip coordinates() const;

    /// The square around a point that a grid is read from, in desktop space.
    [[nodiscard]] DesktopRect captureRect(GlobalPoint point, int radius) const;

    /// The pixels around the point; dark grey where none could be read.
    [[nodiscard]] PixelGrid pixelGrid(GlobalPoint point, int radius) const;

    /// The colour of the pixel under the point; none when it could not be read.
    [[nodiscard]] std::optional<SampledColor> colorAt(GlobalPoint point) const;

    /// pixelGrid() and colorAt() for the same instant, from one capture wherever that gives the same pixels.
    [[nodiscard]] Sample sample(GlobalPoint point, int radius) const;

    /// The pixel in the middle of an image; none when it has none, or is not made of 8-bit components.
    [[nodiscard]] static std::optional<SampledColor> sampleCenter(const ScreenImage& image);

private:
    ScreenGrabber& m_grabber;
    SurfaceId m_referenceWindowID = 0;
};

} // namespace tintwick
