#pragma once

#include <QString>

namespace tintwick {

enum class ColorSchemePref { Auto, Light, Dark };

/// The user's small choices, kept outside the data file. Every read asks the store afresh, every write reaches it at
/// once; a missing, mistyped or unknown value reads as the default.
namespace preferences {

/// To be called once at start. A process that was killed while it wrote leaves an empty lock behind, for which the next
/// write would wait half a minute; one that is older than a second is nobody's.
void removeAbandonedLock();

[[nodiscard]] ColorSchemePref colorScheme();
void setColorScheme(ColorSchemePref scheme);

/// "auto", "light" or "dark", as stored.
[[nodiscard]] QString rawValue(ColorSchemePref scheme);
/// The appearance that one press on the toggle goes to: auto, light, dark, and auto again.
[[nodiscard]] ColorSchemePref nextColorScheme(ColorSchemePref scheme);

/// Whether the loupe is a circle; it is a square otherwise.
[[nodiscard]] bool scopeIsCircle();
/// "square" or "circle".
void setScopeShape(const QString& shape);

/// Side of the loupe's scope in points: 100, 130 or 160.
[[nodiscard]] double scopeSide();
/// "small", "medium" or "large".
void setScopePhysicalSize(const QString& size);

/// Sampling radius with which a pick begins, in screen pixels around the centre one; at least 1, not bounded above.
[[nodiscard]] int scopeDefaultRadius();
void setScopeDefaultRadius(int radius);

} // namespace preferences

} // namespace tintwick
