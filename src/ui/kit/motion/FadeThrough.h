#pragma once

#include <QList>

#include <functional>

class QWidget;

namespace tintwick {

/// Runs `change`, which may change `parts` of `ground`. What the parts showed before fades out to the ground, then what they show
/// now fades in. All parts fade together, and old and new content are never seen through each other.
void fadeThrough(QWidget& ground, const QList<QWidget*>& parts, const std::function<void()>& change);

} // namespace tintwick
