#pragma once

class QWidget;

namespace tintwick {

class AppState;
struct CapturedColor;

/// Opens an overlay over `panel` in which the user gives a colour another name, or none.
void openRenameColorOverlay(QWidget& panel, AppState& appState, const CapturedColor& color);

} // namespace tintwick
