#include "StripSwatch.h"

#include "Appearance.h"
#include "ColorActions.h"
#include "ColorPatch.h"
#include "Paint.h"
#include "TextOnColor.h"
#include "Theme.h"

#include <QPainter>

namespace tintwick {

namespace {

// In points.
constexpr int patchSide = 28;
constexpr double patchRadius = 8;
constexpr double ringRadius = patchRadius + StripSwatch::ringRoom;
constexpr double markSide = 6;

} // namespace

StripSwatch::StripSwatch()
    : Clickable({})
{
    // The strip lets Tab reach one of its swatches.
    setFocusPolicy(Qt::NoFocus);
}

void StripSwatch::setColor(const CapturedColor& color)
{
    m_color = color;
    setAccessibleName(spokenName(color));
    setToolTip(spokenName(color));
    update();
}

void StripSwatch::setMarked(bool isMarked)
{
    m_isMarked = isMarked;
    setAccessibleDescription(isMarked ? tr("Shown now") : QString());
    update();
}

QSize StripSwatch::sizeHint() const
{
    return {patchSide + 2 * ringRoom, patchSide + 2 * ringRoom};
}

double StripSwatch::cornerRadius() const
{
    return ringRadius;
}

void StripSwatch::paintEvent(QPaintEvent*)
{
    const Scheme scheme = Appearance::of(this);
    QPainter painter(this);
    drawColorPatch(painter, rect().adjusted(ringRoom, ringRoom, -ringRoom, -ringRoom), patchRadius,
                   paintColor(m_color), scheme);
    if (m_isMarked) {
        QRectF mark(0, 0, markSide, markSide);
        mark.moveCenter(QRectF(rect()).center());
        fillRounded(painter, mark, markSide / 2, textOn(m_color).in(scheme));
    }
    paintStateLayer(painter);
}

} // namespace tintwick
