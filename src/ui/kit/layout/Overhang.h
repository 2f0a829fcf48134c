#pragma once

#include <QMargins>

class QWidget;

namespace tintwick {

/// A view that reaches beyond the place it takes in a row or column, such as one that grows a little when hovered. Its
/// widget is larger than its place by the overhang on each side; sizes, gaps and paddings speak of the place alone.
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

/// None for a widget that is not `Overhanging`.
[[nodiscard]] QMargins overhangOf(const QWidget& widget);

} // namespace tintwick
