#pragma once

#include "ContextMenu.h"

#include <QList>

class QWidget;

namespace tintwick {

class AppState;
struct ColorCollection;

// Actions that all views of a collection share.

/// Opens an overlay over `panel` in which the user renames a collection. A blank name cannot be saved.
void openRenameCollectionOverlay(QWidget& panel, AppState& state, const ColorCollection& collection);

/// The entries "Rename…", "Duplicate" and "Sort by".
[[nodiscard]] QList<MenuEntry> collectionMenu(QWidget& panel, AppState& state,
                                              const ColorCollection& collection);

} // namespace tintwick
