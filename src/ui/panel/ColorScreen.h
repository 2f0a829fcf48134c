#pragma once

#include "CapturedColor.h"
#include "View.h"

namespace tintwick {

class AppState;
class Preferences;

/// The screen of one colour, in which the user makes a new colour of it.
class ColorScreen final : public View
{
    Q_OBJECT

public:
    /// `panel` contains the view and is what overlays cover.
    ColorScreen(AppState& appState, Preferences& preferences, const CapturedColor& color, QWidget& panel);
};

} // namespace tintwick
