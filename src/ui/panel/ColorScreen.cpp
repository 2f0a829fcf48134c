#include "ColorScreen.h"

#include "ColorActions.h"
#include "Label.h"
#include "Stack.h"
#include "Theme.h"

namespace tintwick {

ColorScreen::ColorScreen(AppState&, Preferences&, const CapturedColor& color, QWidget&)
{
    setContent(column(padding(16), label(spokenName(color), theme::font(13)), spacer()));
}

} // namespace tintwick
