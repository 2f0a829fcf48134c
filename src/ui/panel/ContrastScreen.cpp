#include "ContrastScreen.h"

#include "ColorActions.h"
#include "Label.h"
#include "Stack.h"
#include "Theme.h"

namespace tintwick {

ContrastScreen::ContrastScreen(AppState&, const CapturedColor& text, const std::optional<CapturedColor>&)
{
    setContent(column(padding(16), label(spokenName(text), theme::font(13)), spacer()));
}

} // namespace tintwick
