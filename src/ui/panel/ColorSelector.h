#pragma once

#include "CapturedColor.h"
#include "ColorSelection.h"
#include "ContextMenu.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUuid>

#include <functional>

class QShortcut;
class QWidget;

namespace tintwick {

class AppState;

/// The colours that the user has selected on a screen, and what can be done with all of them. The views of the colours pass
/// their clicks on and show what is selected. While something is selected, Escape ends that, Ctrl+C copies and Delete removes;
/// Ctrl+A selects all.
class ColorSelector final : public QObject
{
    Q_OBJECT

public:
    /// `screen` contains the views, `panel` is what overlays cover. `remove` is called with the colours to remove.
    ColorSelector(AppState& appState, QWidget& screen, QWidget& panel,
                  std::function<void(const QList<QUuid>&)> remove);

    /// The colours of the screen in the order in which they are shown.
    void setColors(const QList<CapturedColor>& colors);
    [[nodiscard]] bool isSelected(const QUuid& id) const { return m_selection.contains(id); }
    [[nodiscard]] qsizetype count() const { return m_selection.ids().size(); }
    [[nodiscard]] QList<CapturedColor> colors() const;
    /// What a drag of a colour carries: all that is selected, if the colour is.
    [[nodiscard]] QList<QUuid> idsWith(const QUuid& id) const;

    /// Returns false for a click that does not select; it clears the selection.
    bool takeClick(const QUuid& id, Qt::KeyboardModifiers modifiers);
    /// Selects the range up to `to`, to which the focus has moved from `from`.
    void extend(const QUuid& from, const QUuid& to);
    void clear();

    void copy();
    void remove();
    /// The palettes to which the selected colours can be added, and a new one.
    [[nodiscard]] QList<MenuEntry> addMenu();

Q_SIGNALS:
    void changed();

private:
    void addShortcut(const QKeySequence& keys, bool needsSelection, const std::function<void()>& action);
    void selectAll();
    void announce();

    AppState& m_appState;
    QWidget& m_screen;
    QWidget& m_panel;
    std::function<void(const QList<QUuid>&)> m_remove;
    QList<CapturedColor> m_colors;
    ColorSelection m_selection;
    /// Those that are only taken while something is selected.
    QList<QShortcut*> m_shortcuts;
};

} // namespace tintwick
