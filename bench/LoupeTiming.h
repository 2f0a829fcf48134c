#pragma once

#include "desktop/TintwickProcess.h"
#include "support/PrivateDesktop.h"
#include "support/TestWindow.h"

#include <QPoint>
#include <QRect>
#include <QRgb>

#include <functional>
#include <memory>
#include <vector>

namespace tintwick {

/// The colour of the ring around the loupe's lens.
constexpr QRgb ringColor = qRgb(18, 18, 18);

/// A position on the ring of a loupe at this place.
[[nodiscard]] inline QPoint onRing(const QRect& place)
{
    return {place.center().x(), place.top() + 1};
}

/// Managed windows with pictures, spread over the screen.
[[nodiscard]] std::vector<std::unique_ptr<TestWindow>> openWindows(DesktopConnection& connection,
                                                                   const QRect& screen, int count);

/// The time in ms from the call of `begin` to the loupe's first frame on the screen. Ends the pick.
[[nodiscard]] double timeToLoupe(PrivateDesktop& desktop, TintwickProcess& program,
                                 const std::function<void()>& begin, double scale = 1);

/// The median time in ms from the release of the shortcut's key to the loupe's first frame on the screen.
[[nodiscard]] double shortcutTime(PrivateDesktop& desktop, TintwickProcess& program, double scale = 1);

} // namespace tintwick
