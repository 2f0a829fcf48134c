#include "ui/kit/Rule.h"

#include "ui/Appearance.h"
#include "ui/DS.h"

#include <QPainter>

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
    painter.fillRect(QRectF(0, 0, width(), thickness), DS::border.in(Appearance::of(this)));
}

Rule* rule()
{
    return new Rule;
}

} // namespace tintwick
