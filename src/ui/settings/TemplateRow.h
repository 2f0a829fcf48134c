#pragma once

class QWidget;

namespace tintwick {

class AppState;

/// Edits the template of copied texts: a field, what it gives for the newest colour, and the fields of a template. Only shown
/// while the template is the default format. What is not a valid template is not stored.
[[nodiscard]] QWidget* templateRow(AppState& appState);

} // namespace tintwick
