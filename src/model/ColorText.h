#pragma once

#include "CapturedColor.h"

#include <QStringView>

#include <optional>

namespace tintwick {

/// A colour that the user wrote.
struct WrittenColor
{
    /// Captured now, without a name.
    CapturedColor color;
    /// The text describes a colour outside sRGB, and `color` is the nearest inside.
    bool isGamutMapped = false;
};

/// Reads a colour that is written in CSS (see parseCssColor()); nothing for any other text.
[[nodiscard]] std::optional<WrittenColor> colorFromCss(QStringView text);
/// Reads a colour that is written in CSS (see parseCssColor()), as one of our colour names ("Pale Violet"), as a token of the
/// Tailwind palette ("blue-500") or in another notation (see colorFromNotation()). A text that is both a CSS name and one
/// of ours is the CSS colour. The case of letters does not matter. Nothing when the text is none of these.
[[nodiscard]] std::optional<WrittenColor> colorFromText(QStringView text);

} // namespace tintwick
