#pragma once

class QWidget;

namespace tintwick {

class AppState;
struct CapturedColor;

/// Opens an overlay over `panel` in which the user renames a colour. An empty name is saved too.
void openRenameColorOverlay(QWidget& panel, AppState& appState, const CapturedColor& color);

} // namespace tintwick
