#include "PopupWindow.h"

#include "Corners.h"

#include <QEvent>
#include <QRegion>
#include <QWidget>

namespace tintwick {

namespace {

bool blendsWindows = true;

class CornerFitter final : public QObject
{
public:
    CornerFitter(QWidget& window, double radius)
        : QObject(&window)
        , m_radius(radius)
    {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Resize || event->type() == QEvent::Show) {
            roundWindowCorners(*static_cast<QWidget*>(watched), m_radius);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    double m_radius;
};

} // namespace

void setDesktopBlends(bool blends)
{
    blendsWindows = blends;
}

bool desktopBlends()
{
    return blendsWindows;
}

void roundWindowCorners(QWidget& window, double radius)
{
    if (blendsWindows) {
        window.clearMask();
    } else {
        window.setMask(QRegion(roundedPath(window.rect(), radius).toFillPolygon().toPolygon()));
    }
}

void keepCornersRounded(QWidget& window, double radius)
{
    new CornerFitter(window, radius);
}

} // namespace tintwick
