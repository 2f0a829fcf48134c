#pragma once

#include "CapturedColor.h"
#include "View.h"

#include <optional>

namespace tintwick {

class AppState;

/// The screen that shows how well text of one colour is read on a ground of another.
class ContrastScreen final : public View
{
    Q_OBJECT

public:
    ContrastScreen(AppState& appState, const CapturedColor& text, const std::optional<CapturedColor>& ground);
};

} // namespace tintwick
