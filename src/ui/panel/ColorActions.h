#pragma once

#include "CapturedColor.h"
#include "ColorFormat.h"
#include "ContextMenu.h"

#include <QColor>
#include <QString>

class QKeyEvent;
class QWidget;

namespace tintwick {

class AppState;

// Actions and texts that all views of a colour share.

/// The sRGB colour to paint, with its alpha. Clamps components to 0 to 1.
[[nodiscard]] QColor paintColor(const CapturedColor& color);
/// The label below a swatch, for example "3B82F6".
[[nodiscard]] QString swatchLabel(const CapturedColor& color);
/// The name of a colour, or its code.
[[nodiscard]] QString shownName(const CapturedColor& color);
/// "#3B82F6", or "#3B82F680" for a translucent colour.
[[nodiscard]] QString codeOf(const CapturedColor& color);
/// The text for screen readers: "Dodger Blue, #1E90FF", or the code alone.
[[nodiscard]] QString spokenName(const CapturedColor& color);

/// Opens the contrast of two colours in the panel that contains `view`. Does nothing outside a panel.
void openContrast(const QWidget& view, const CapturedColor& text, const CapturedColor& ground);

/// Copies the colour's text to the clipboard and shows the feedback in the panel.
void copyWithFeedback(AppState& state, ColorFormat format, const CapturedColor& color);

/// Opens the colour if the key asks for it. Returns whether it does.
bool openColorByKey(const QKeyEvent& event, const QWidget& view, const CapturedColor& color);

/// A separator and the entries that open screens of the panel; empty outside a panel. `view` shows the colour.
[[nodiscard]] QList<MenuEntry> screenEntries(const QWidget& view, const CapturedColor& color);
/// The submenu "Copy as…" with one entry per format.
[[nodiscard]] MenuEntry copyAsMenu(AppState& state, const CapturedColor& color);
/// A submenu with one entry per collection, which adds the colour to it.
[[nodiscard]] MenuEntry addToCollectionMenu(AppState& state, const CapturedColor& color,
                                            const QString& title);
/// The entry "Delete", which removes the colour from the history and from every collection.
[[nodiscard]] MenuEntry deleteColorEntry(AppState& state, const CapturedColor& color);

} // namespace tintwick
