#pragma once

#include "Bound.h"

#include <QWidget>

namespace tintwick {

/// Takes a widget out of its layout while the condition does not hold. Returns the widget.
template <typename Widget>
[[nodiscard]] Widget* shownWhen(const Bound<bool>& condition, Widget* widget)
{
    condition.follow(*widget, [widget](bool shown) {
        // Before it has a parent, showing it would make it a window.
        if (!shown) {
            widget->hide();
        } else if (widget->parentWidget() != nullptr) {
            widget->show();
        }
    });
    return widget;
}

} // namespace tintwick
