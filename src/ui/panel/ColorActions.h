#pragma once

#include "CapturedColor.h"
#include "ColorFormat.h"
#include "ContextMenu.h"

#include <QColor>
#include <QString>

namespace tintwick {

class AppState;

// What every view of a colour lets the user do with it.

/// The colour as it is painted, sRGB with its alpha.
[[nodiscard]] QColor paintColor(const CapturedColor& color);
/// "3B82F6", as it stands below a swatch.
[[nodiscard]] QString swatchLabel(const CapturedColor& color);
/// "Dodger Blue, #3B82F6", or the code alone: what a screen reader says.
[[nodiscard]] QString spokenName(const CapturedColor& color);

/// Puts the colour's text on the clipboard and lets the panel say so.
void copyWithFeedback(AppState& state, ColorFormat format, const CapturedColor& color);

/// The submenu "Copy as…", one line per format.
[[nodiscard]] MenuEntry copyAsMenu(AppState& state, const CapturedColor& color);
/// A submenu with one line per collection, which adds the colour to it.
[[nodiscard]] MenuEntry addToCollectionMenu(AppState& state, const CapturedColor& color,
                                            const QString& title);
/// The line "Delete", which takes the colour out of the history and out of every collection.
[[nodiscard]] MenuEntry deleteColorEntry(AppState& state, const CapturedColor& color);

} // namespace tintwick
