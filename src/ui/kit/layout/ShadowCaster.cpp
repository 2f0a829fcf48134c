#include "ShadowCaster.h"

#include "Stack.h"

#include <QAbstractScrollArea>
#include <QPainter>

namespace tintwick {

namespace {

/// The room that a scroll area clips its content to, and a window, end the search for a ground.
bool endsSearch(const QWidget& widget)
{
    return widget.isWindow() || widget.parentWidget() == nullptr ||
           qobject_cast<const QAbstractScrollArea*>(widget.parentWidget()) != nullptr;
}

const QWidget* groundAbove(const QWidget& widget)
{
    const QWidget* outermost = nullptr;
    for (const QWidget* above = &widget; !endsSearch(*above);) {
        above = above->parentWidget();
        if (const auto* stack = qobject_cast<const Stack*>(above)) {
            outermost = stack;
            if (stack->hasGround()) {
                break;
            }
        }
    }
    return outermost;
}

void paintShadowsBelow(const QWidget& widget, const QWidget& ground, QPainter& painter)
{
    for (QObject* object : widget.children()) {
        const auto* child = qobject_cast<const QWidget*>(object);
        if (child == nullptr || child->isHidden() || child->isWindow()) {
            continue;
        }
        if (const auto* caster = dynamic_cast<const ShadowCaster*>(child)) {
            painter.save();
            painter.translate(child->mapTo(&ground, QPoint(0, 0)));
            caster->paintShadow(painter);
            painter.restore();
        }
        const auto* stack = qobject_cast<const Stack*>(child);
        const bool hasOwnGround = stack != nullptr && stack->hasGround();
        if (!hasOwnGround && qobject_cast<const QAbstractScrollArea*>(child) == nullptr) {
            paintShadowsBelow(*child, ground, painter);
        }
    }
}

} // namespace

void paintShadowsOn(const QWidget& ground, QPainter& painter)
{
    paintShadowsBelow(ground, ground, painter);
}

bool isShadowGround(const QWidget& widget)
{
    const auto* stack = qobject_cast<const Stack*>(&widget);
    return (stack != nullptr && stack->hasGround()) || groundAbove(widget) == nullptr;
}

void updateShadow(QWidget& caster, const QMargins& extents)
{
    // The ground is changed in what it shows only.
    if (auto* ground =
            const_cast<QWidget*>(groundAbove(caster))) { // NOLINT(cppcoreguidelines-pro-type-const-cast)
        ground->update(caster.rect().marginsAdded(extents).translated(caster.mapTo(ground, QPoint(0, 0))));
        // A row lets shadows of what it shows fall beside itself.
        QWidget* viewport = ground->parentWidget();
        if (viewport != nullptr && dynamic_cast<ShadowCaster*>(viewport->parentWidget()) != nullptr) {
            updateShadow(*viewport->parentWidget(), extents);
        }
    }
}

} // namespace tintwick
