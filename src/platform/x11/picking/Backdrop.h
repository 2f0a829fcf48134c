#pragma once

#include "ScreenCopy.h"
#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QPoint>

#include <optional>

namespace tintwick {

/// A repeating image of the desktop background: the wallpaper that a program has published (`_XROOTPMAP_ID`), else the
/// colour of the screen copy where no window was, else black, as the server paints it.
class Backdrop final
{
public:
    /// `bareSpot` is a position without a window when the copy was made, in root coordinates.
    Backdrop(const XcbConnection& connection, const ScreenCopy& copy, std::optional<QPoint> bareSpot);

    [[nodiscard]] xcb_render_picture_t picture() const { return m_picture.id(); }

private:
    [[nodiscard]] bool useWallpaper(const XcbConnection& connection);
    void useOneColor(const XcbConnection& connection, const ScreenCopy& copy, std::optional<QPoint> bareSpot);

    XcbPixmap m_pixmap;
    XcbPicture m_picture;
};

/// The property of the root window that names the wallpaper's pixmap.
[[nodiscard]] xcb_atom_t wallpaperProperty(const XcbConnection& connection);

} // namespace tintwick
