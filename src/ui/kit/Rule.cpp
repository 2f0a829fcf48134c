#include "ui/kit/Rule.h"

#include "ui/Appearance.h"
#include "ui/DS.h"
#include "ui/kit/Paint.h"

#include <QPainter>

namespace tintwick {

Rule::Rule()
{
    setFixedHeight(1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Rule::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawHairline(painter, QPointF(0, 0), width(), DS::border.in(Appearance::of(this)));
}

Rule* rule()
{
    return new Rule;
}

} // namespace tintwick
