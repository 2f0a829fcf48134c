#include "ShadowCaster.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QWidget>

namespace tintwick {

namespace {

/// A window and the viewport of a scroll area, which clips its content, end the search for a ground.
bool endsSearch(const QWidget& widget)
{
    return widget.isWindow() || widget.parentWidget() == nullptr ||
           qobject_cast<const QAbstractScrollArea*>(widget.parentWidget()) != nullptr;
}

bool hasGround(const QWidget& widget)
{
    const auto* ground = dynamic_cast<const ShadowGround*>(&widget);
    return ground != nullptr && ground->hasGround();
}

const QWidget* groundAbove(const QWidget& widget)
{
    const QWidget* outermost = nullptr;
    for (const QWidget* above = &widget; !endsSearch(*above);) {
        above = above->parentWidget();
        if (dynamic_cast<const ShadowGround*>(above) != nullptr) {
            outermost = above;
        }
        if (hasGround(*above)) {
            break;
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
        if (!hasGround(*child) && qobject_cast<const QAbstractScrollArea*>(child) == nullptr) {
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
    return hasGround(widget) || groundAbove(widget) == nullptr;
}

void updateShadow(QWidget& caster, const QMargins& extents)
{
    // Only a repaint is requested of the ground.
    if (auto* ground =
            const_cast<QWidget*>(groundAbove(caster))) { // NOLINT(cppcoreguidelines-pro-type-const-cast)
        ground->update(caster.rect().marginsAdded(extents).translated(caster.mapTo(ground, QPoint(0, 0))));
        // A horizontal scroll area paints the shadows of its content outside itself.
        QWidget* viewport = ground->parentWidget();
        if (viewport != nullptr && dynamic_cast<ShadowCaster*>(viewport->parentWidget()) != nullptr) {
            updateShadow(*viewport->parentWidget(), extents);
        }
    }
}

} // namespace tintwick
