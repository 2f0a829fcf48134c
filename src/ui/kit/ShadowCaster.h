#pragma once

class QPainter;
class QWidget;

namespace tintwick {

/// A view whose shadow falls beyond its own rectangle. The nearest stack with a ground (or the outermost one) paints it,
/// below all views on it.
class ShadowCaster
{
public:
    virtual ~ShadowCaster() = default;
    ShadowCaster(const ShadowCaster&) = delete;
    ShadowCaster& operator=(const ShadowCaster&) = delete;

    /// In the caster's own coordinates.
    virtual void paintShadow(QPainter& painter) const = 0;

protected:
    ShadowCaster() = default;
};

/// To be called by a ground from its paintEvent: paints the shadows of all casters upon it.
void paintShadowsOn(QWidget& ground, QPainter& painter);
/// To be called by a caster when its shadow has changed; `extent` is how far it reached or reaches, in points.
void updateShadow(QWidget& caster, int extent);

} // namespace tintwick
