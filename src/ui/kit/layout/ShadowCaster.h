#pragma once

class QMargins;
class QPainter;
class QWidget;

namespace tintwick {

/// A view whose shadow falls outside its own rectangle. The nearest shadow ground above it paints the shadow, below all views
/// on that ground.
class ShadowCaster
{
public:
    virtual ~ShadowCaster() = default;
    ShadowCaster(const ShadowCaster&) = delete;
    ShadowCaster& operator=(const ShadowCaster&) = delete;

    /// Paints in the coordinates of the caster.
    virtual void paintShadow(QPainter& painter) const = 0;

protected:
    ShadowCaster() = default;
};

/// A view that paints the shadows of the casters in it.
class ShadowGround
{
public:
    virtual ~ShadowGround() = default;
    ShadowGround(const ShadowGround&) = delete;
    ShadowGround& operator=(const ShadowGround&) = delete;

    /// Whether it draws a background that shadows fall on. Without one it paints shadows only if no ground is above it.
    [[nodiscard]] virtual bool hasGround() const = 0;

protected:
    ShadowGround() = default;
};

/// Paints the shadows of all casters in `ground`, except of those on a nested ground.
void paintShadowsOn(const QWidget& ground, QPainter& painter);
/// Whether `widget` paints the shadows of the casters in it.
[[nodiscard]] bool isShadowGround(const QWidget& widget);
/// Repaints the ground after the shadow of `caster` has changed. The shadow reaches `extents` points beyond the caster.
void updateShadow(QWidget& caster, const QMargins& extents);

} // namespace tintwick
