#pragma once

#include <QMargins>

class QWidget;

namespace tintwick {

/// A view that paints outside its place in a layout, for instance because it grows when hovered. Its widget is larger than the
/// place by the overhang on each side. Sizes, gaps and paddings refer to the place.
class Overhanging
{
public:
    virtual ~Overhanging() = default;
    Overhanging(const Overhanging&) = delete;
    Overhanging& operator=(const Overhanging&) = delete;

    /// In points.
    [[nodiscard]] virtual QMargins overhang() const = 0;

protected:
    Overhanging() = default;
};

/// Zero for a widget that is not `Overhanging`.
[[nodiscard]] QMargins overhangOf(const QWidget& widget);

} // namespace tintwick
