#pragma once

#include "FreeArea.h"
#include "XcbConnection.h"

#include <QRect>
#include <QSize>

#include <vector>

namespace tintwick {

/// What bars and the window manager reserve, in pixels of the root window.
struct X11Reservations
{
    QSize root;
    /// Of the current desktop; empty without a window manager that reports one.
    QRect workArea;
    /// Of all visible windows.
    std::vector<Strut> struts{};
};

[[nodiscard]] X11Reservations queryReservations(const XcbConnection& connection);

} // namespace tintwick
