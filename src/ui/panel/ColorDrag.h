#pragma once

#include <QList>
#include <QUuid>

class QDropEvent;
class QMimeData;
class QPixmap;
class QPoint;
class QWidget;

namespace tintwick {

// Colours are dragged as plain text: the ids as in the data file, one per line.

/// Runs a drag of colours and returns when it ends. `picture` follows the pointer, which is at `hotSpot` in it (in
/// points). `source` may be deleted when the function returns.
void dragColors(QWidget& source, const QList<QUuid>& ids, const QPixmap& picture, QPoint hotSpot);

/// Whether the drag has plain text. Every drop target for colours accepts plain text.
[[nodiscard]] bool carriesText(const QMimeData& data);
/// Many editors propose a move and delete the dropped text after one.
void acceptAsCopy(QDropEvent& event);
/// The ids in a dropped text, one per line. Skips lines that are not an id.
[[nodiscard]] QList<QUuid> droppedColorIds(const QMimeData& data);

} // namespace tintwick
