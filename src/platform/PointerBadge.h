#pragma once

#include <QImage>

#include <functional>

namespace tintwick {

/// A small picture beside the pointer, above all windows. It takes neither input nor focus, and no pick sees it.
class PointerBadge
{
public:
    /// Returns the picture for a screen with this many physical pixels per point: premultiplied ARGB32 in physical pixels.
    using Draw = std::function<QImage(double scale)>;

    enum class Place {
        /// Where the pointer is now.
        Fixed,
        FollowsPointer
    };

    virtual ~PointerBadge() = default;

    /// Shows the picture, in the place of the shown one if there is one.
    virtual void show(const Draw& draw, Place place) = 0;
    virtual void hide() = 0;
};

} // namespace tintwick
