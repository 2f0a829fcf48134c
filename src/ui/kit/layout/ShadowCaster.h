#pragma once

class QMargins;
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

/// Paints the shadows of all casters upon `ground`, down to the next grounds.
void paintShadowsOn(const QWidget& ground, QPainter& painter);
/// Whether shadows of what lies on `widget` fall on itself.
[[nodiscard]] bool isShadowGround(const QWidget& widget);
/// To be called by a caster when its shadow has changed, which reaches `extents` points beyond it.
void updateShadow(QWidget& caster, const QMargins& extents);

} // namespace tintwick
