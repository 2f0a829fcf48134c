#pragma once

#include "ContextMenu.h"

#include <QList>
#include <QUuid>

class QWidget;

namespace tintwick {

class AppState;
struct ColorCollection;

// Actions that all views of a collection share.

/// Opens an overlay over `panel` in which the user renames a collection. A blank name cannot be saved.
void openRenameCollectionOverlay(QWidget& panel, AppState& state, const ColorCollection& collection);

/// Opens an overlay over `panel` in which the user names a new collection of the colours.
void openNewCollectionOverlay(QWidget& panel, AppState& state, const QList<QUuid>& colorIds);

/// Opens the dialog for files to import.
inline constexpr QKeyCombination importKey = Qt::CTRL | Qt::Key_O;
/// The entry "Import…".
[[nodiscard]] MenuEntry importEntry(const QWidget& view);

/// The entries "Rename…", "Duplicate", "Sort by", "Icon Color" and "Import…".
[[nodiscard]] QList<MenuEntry> collectionMenu(QWidget& panel, AppState& state,
                                              const ColorCollection& collection);

} // namespace tintwick
