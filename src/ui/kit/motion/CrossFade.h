#pragma once

#include <functional>

class QWidget;

namespace tintwick {

/// Changes what `widget` shows, and lets what it showed before fade away over it in the time of one answer. The widget
/// has a parent, on whose ground it stands.
void crossFade(QWidget& widget, const std::function<void()>& change);

} // namespace tintwick
