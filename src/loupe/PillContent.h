#pragma once

#include <QColor>
#include <QString>

namespace tintwick {

/// Whether dark or light text stands on the pill's colour.
enum class PillTone { LightBackground, DarkBackground };

/// The texts of the loupe's pill for a colour.
struct PillContent
{
    /// Six upper-case digits without "#".
    QString hex;
    /// The nearest named colour, with "near" when it is far.
    QString name;
    /// What a pick copies; may be empty.
    QString text = {};
    /// Signs of the pick, in a small line below; may be empty.
    QString signs = {};
    PillTone tone = PillTone::LightBackground;

    [[nodiscard]] static PillContent of(QRgb color);

    friend bool operator==(const PillContent&, const PillContent&) = default;
};

} // namespace tintwick
