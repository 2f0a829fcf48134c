#pragma once

class QPoint;
class QWidget;

namespace tintwick {

/// Shows the tool tip of `owner` near a global position in the style of the panel, as plain text, until the pointer leaves the
/// owner or something is pressed. Shows nothing when the tool tip is empty.
void showToolTip(QWidget& owner, const QPoint& globalPosition);

} // namespace tintwick
