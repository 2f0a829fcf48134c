#pragma once

#include "CapturedColor.h"

#include <QList>
#include <QString>

namespace tintwick {

// Style sheets with one variable per colour, named by uniqueNames(). A translucent colour keeps its opacity ("#3B82F680"). The
// palette's name stands in a comment, which it cannot close.

/// Custom properties of ":root".
[[nodiscard]] QString buildUniqueCss(const QList<CapturedColor>& colors, const QString& paletteName);
/// Variables of Sass, "$sky: #38BDF8;".
[[nodiscard]] QString buildScss(const QList<CapturedColor>& colors, const QString& paletteName);
/// A theme of Tailwind CSS version 4, "--color-sky: #38BDF8;".
[[nodiscard]] QString buildTailwindTheme(const QList<CapturedColor>& colors, const QString& paletteName);

} // namespace tintwick
