#pragma once

#include <QRect>
#include <QSize>

namespace tintwick {

/// The logical units of an output over the pixels of its picture. At scale 1.5, a surface on an odd unit would not stand
/// on whole pixels, so the compositor would blur it; this finds the units that do.
class LogicalGrid final
{
public:
    /// The size of the same output in logical units and in pixels.
    LogicalGrid(QSize logical, QSize pixels);

    struct Cover
    {
        QRect logical;
        QRect pixels;
    };

    /// The smallest rectangle that begins on whole pixels and units and contains these pixels, as far as they are on the
    /// output.
    [[nodiscard]] Cover cover(const QRect& pixels) const;

    /// Pixels for each logical unit.
    [[nodiscard]] QSizeF scale() const;

private:
    QSize m_logical;
    QSize m_pixels;
};

} // namespace tintwick
