#pragma once

#include "Coordinates.h"

#include <QUrl>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace tintwick {

/// A picture of a part of the screen. `bytes` holds `height` rows of `bytesPerRow` bytes, top row first; a pixel is
/// four bytes: blue, green, red, alpha, premultiplied. At a density of 2 a rectangle of w × h points gives 2w × 2h pixels.
struct ScreenImage
{
    int width = 0;
    int height = 0;
    int bytesPerRow = 0;
    int bitsPerComponent = 8;
    std::vector<std::uint8_t> bytes;
};

/// One monitor.
struct Screen
{
    DesktopRect frame;
    /// How many physical pixels one point of our own windows takes there (1, 1.5, 2, ...).
    double scale = 1;

    friend constexpr bool operator==(const Screen&, const Screen&) = default;
};

/// Names what a capture looks below; 0 names nothing, and the capture sees everything.
using SurfaceId = std::uint32_t;

/// Reads the pixels of the desktop. All positions are in desktop space.
class ScreenGrabber
{
public:
    /// The pixels inside the rectangle may have changed, or the layout of the screens has (an empty rectangle).
    using ContentChanged = std::function<void(const DesktopRect&)>;

    virtual ~ScreenGrabber() = default;

    /// Whether the system lets this process read the screen; asking never shows anything to the user.
    [[nodiscard]] virtual bool captureIsPermitted() const = 0;

    /// Where the user changes that, for whoever opens addresses; empty where the system has no such place.
    [[nodiscard]] virtual QUrl permissionSettings() const = 0;

    /// All monitors, the primary one first; empty where there is none.
    [[nodiscard]] virtual std::vector<Screen> screens() const = 0;

    /// Prepares for many grabs; to be called before anything of ours is shown. From then on until endSession() changes
    /// of the content are reported. Grabs work without a session too, but see what lies on the screen, the loupe included.
    virtual void beginSession(ContentChanged contentChanged) = 0;
    virtual void endSession() = 0;

    /// The rectangle as the user would see it without the given surface (and what lies above it); never the pointer's
    /// image. Pixels that no monitor shows are dark grey. Nothing when the system gives no picture.
    [[nodiscard]] virtual std::optional<ScreenImage> grab(const DesktopRect& rect, SurfaceId below) = 0;
};

} // namespace tintwick
