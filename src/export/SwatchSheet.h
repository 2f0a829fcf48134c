#pragma once

#include <QRect>
#include <QSize>
#include <QtGlobal>

namespace tintwick {

/// The places of swatches in an exported picture, in points: squares in rows of ten, with the same gap around each.
class SwatchSheet final
{
public:
    static constexpr int swatchSide = 60;
    static constexpr int swatchRadius = 8;
    static constexpr int columnLimit = 10;
    static constexpr int gap = 4;

    explicit SwatchSheet(qsizetype count);

    [[nodiscard]] QSize size() const;
    [[nodiscard]] QRect swatch(qsizetype position) const;

private:
    qsizetype m_count;
};

} // namespace tintwick
