#pragma once

#include "CapturedColor.h"

#include <QList>
#include <QUuid>

class QMimeData;
class QPixmap;
class QPoint;
class QWidget;

namespace tintwick {

// Colours are dragged as plain text: the id, in the form in which the data file writes it.

/// Carries the colour away under the pointer as `picture`, held at `hotSpot` (in points), until it is dropped.
/// `source` may be gone afterwards.
void dragColor(QWidget& source, const CapturedColor& color, const QPixmap& picture, QPoint hotSpot);

/// Whether a drag carries plain text, which every place that takes colours accepts.
[[nodiscard]] bool carriesText(const QMimeData& data);
/// The ids in a dropped text, one to a line; what is no id is skipped.
[[nodiscard]] QList<QUuid> droppedColorIds(const QMimeData& data);

} // namespace tintwick
