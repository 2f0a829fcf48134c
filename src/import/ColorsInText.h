#pragma once

#include "CapturedColor.h"

#include <QList>
#include <QString>

namespace tintwick {

/// The colours that a text contains.
struct TextColors
{
    /// Captured now, in the order of the text. A colour has the name that the text gives it, or none.
    QList<CapturedColor> colors;
    /// How many of them stand for a colour outside sRGB.
    qsizetype mappedCount = 0;
    /// The text contains more colours than were asked for.
    bool hasMore = false;
};

/// Finds colours in any text: a list with one colour or one "name: color" a line, a style sheet, source code, JSON, a GIMP palette.
/// Reads at most `most` colours, and only the first half million characters. Colours are written as for colorFromText(). A word
/// that could mean something else, such as "orange" or "123456", counts only where it stands alone, in a list of colours or
/// as a value. What occurs again with the same name counts once.
[[nodiscard]] TextColors colorsInText(const QString& text, qsizetype most);

} // namespace tintwick
