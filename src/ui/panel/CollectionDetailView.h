#pragma once

#include "CapturedColor.h"
#include "ColorCollection.h"
#include "ColorDropTarget.h"
#include "RecordViews.h"
#include "ReorderList.h"
#include "View.h"
#include "WantedPick.h"

#include <QList>
#include <QSet>
#include <QUuid>

namespace tintwick {

class AppState;
class ColorDetailRow;
class ColorSelector;
class ExportMenu;
class Label;
class Stack;
class SymbolView;

/// The screen of one collection: a list of its colours that the user can reorder. Colours dropped anywhere on the screen
/// are added. After the collection is deleted the list is empty.
class CollectionDetailView final : public View
{
    Q_OBJECT

public:
    /// `panel` contains the view and is what overlays cover.
    CollectionDetailView(AppState& appState, const QUuid& collectionId, QWidget& panel);

    /// One row per colour whose id is known.
    [[nodiscard]] const QList<ColorDetailRow*>& rows() const { return m_rows.views(); }
    [[nodiscard]] bool isDropTarget() const;

Q_SIGNALS:
    /// The button that picks into the palette was clicked.
    void pickRequested(const tintwick::WantedPick& pick);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class DropFrame;

    [[nodiscard]] QWidget* toolbar();
    [[nodiscard]] QWidget* pickButton();
    [[nodiscard]] QWidget* menuButton();
    void rename();
    [[nodiscard]] QList<CapturedColor> colors() const;

    void showCollection();
    /// The positions of the rows that move with one.
    [[nodiscard]] QSet<qsizetype> movedWith(qsizetype position) const;
    void addDropped(const QList<QUuid>& colorIds);
    /// Sets the tab order: row by row, each row before its buttons.
    void orderFocus() const;

    AppState& m_appState;
    QUuid m_collectionId;
    QWidget& m_panel;
    /// The last known value after the collection is deleted.
    ColorCollection m_collection;

    Stack* m_tile = nullptr;
    SymbolView* m_icon = nullptr;
    Label* m_name = nullptr;
    Label* m_count = nullptr;
    ExportMenu* m_export = nullptr;
    QWidget* m_empty;
    ReorderList* m_list;
    QWidget* m_scroll;
    ColorSelector* m_selector;
    RecordViews<ColorDetailRow, CapturedColor, ReorderList> m_rows;
    DropFrame* m_dropFrame;
    ColorDropTarget m_dropTarget;
};

} // namespace tintwick
