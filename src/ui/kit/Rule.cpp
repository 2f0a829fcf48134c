#include "ui/kit/Rule.h"

#include "ui/Appearance.h"
#include "ui/DS.h"

#include <QPainter>
#include <QTransform>

#include <cmath>

namespace tintwick {

namespace {

constexpr double thickness = 0.5;

} // namespace

Rule::Rule()
{
    setFixedHeight(1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Rule::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QTransform toDevice = painter.deviceTransform();
    QRectF line = toDevice.mapRect(QRectF(0, 0, width(), thickness));
    // Straddling two pixels at a fractional scale, so thin a line all but vanishes.
    line.moveTop(std::round(line.top()));
    painter.fillRect(toDevice.inverted().mapRect(line), DS::border.in(Appearance::of(this)));
}

Rule* rule()
{
    return new Rule;
}

} // namespace tintwick
