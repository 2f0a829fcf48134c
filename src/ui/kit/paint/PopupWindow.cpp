#include "PopupWindow.h"

#include "Corners.h"

#include <QRegion>
#include <QWidget>

namespace tintwick {

namespace {

bool desktopBlends = true;

} // namespace

void setDesktopBlends(bool blends)
{
    desktopBlends = blends;
}

void roundWindowCorners(QWidget& window, double radius)
{
    if (desktopBlends) {
        window.clearMask();
    } else {
        window.setMask(QRegion(roundedPath(window.rect(), radius).toFillPolygon().toPolygon()));
    }
}

} // namespace tintwick
