#include "Rule.h"

#include "Accessibility.h"
#include "Appearance.h"
#include "Paint.h"
#include "Theme.h"

#include <QPainter>

namespace tintwick {

Rule::Rule()
{
    describeToScreenReaders<Rule>(QAccessible::Separator);
    setFixedHeight(1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Rule::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawHairline(painter, QPointF(0, 0), width(), theme::border.in(Appearance::of(this)));
}

Rule* rule()
{
    return new Rule;
}

} // namespace tintwick
