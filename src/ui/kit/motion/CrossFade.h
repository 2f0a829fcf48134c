#pragma once

#include <functional>

class QWidget;

namespace tintwick {

/// Runs `change` and fades out a picture of what `widget` showed before. The widget must have a parent, whose ground is part of
/// the picture.
void crossFade(QWidget& widget, const std::function<void()>& change);

} // namespace tintwick
