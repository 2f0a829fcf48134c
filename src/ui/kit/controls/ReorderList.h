#pragma once

#include "Animator.h"
#include "RowDrag.h"
#include "Spring.h"

#include <QMargins>
#include <QPointer>
#include <QSet>
#include <QWidget>

#include <functional>
#include <vector>

class QMouseEvent;
class QScrollArea;

namespace tintwick {

class Clickable;

/// Rows of equal height that the user can reorder: by dragging a row, or with Alt and the arrow keys on the focused row. The list
/// emits `moveRequested()` and moves nothing itself; the owner of the records then inserts the rows in their new order. A drag
/// is cancelled by Escape, when the window is deactivated, and when rows are inserted, moved or removed. A row that is removed
/// below the pointer leaves its slot empty until the pointer moves on, so that a second click does not hit the next row.
///
/// The arrow keys, Home and End move the focus. Inside a scroll area the list scrolls while a row is held at an edge.
///
/// Not QListView: the rows are controls with focus, menus and accessible names, a drag carries the row itself with the others
/// making room, and QAbstractItemView drags a picture in a nested event loop.
class ReorderList final : public QWidget
{
    Q_OBJECT

public:
    /// The margins in points between the edges of a row and the rounded plate below it while it is lifted. A row that draws a
    /// focus ring draws it along the plate.
    static constexpr QMargins plateMargins{6, 1, 6, 1};
    static constexpr double plateRadius = 12;

    /// `name` is for screen readers, `rowHeight` is in points. Separators start and end `separatorInset` points from the sides.
    ReorderList(const QString& name, int rowHeight, int separatorInset);
    ~ReorderList() override;

    /// Inserts a row at a position, or moves a row of the list there.
    void insert(int position, Clickable* row);
    /// Takes a row out and hides it. It stays a child widget.
    void remove(Clickable* row);

    /// `rows` returns the positions of the rows that move with the one at a position, and that position.
    void setMovedTogether(std::function<QSet<qsizetype>(qsizetype position)> rows);

    [[nodiscard]] bool isCarrying() const { return m_drag.isCarrying(); }
    /// Scrolls a row into view.
    void reveal(const Clickable& row) const;

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The user wants the rows at `from` before the row at `to`, or last when `to` is the number of rows. All count in the present
    /// order.
    void moveRequested(const QSet<qsizetype>& from, qsizetype to);
    /// An arrow key with Shift has moved the focus.
    void focusExtended(qsizetype from, qsizetype to);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Plate;
    struct Row
    {
        Clickable* view = nullptr;
        /// The top of the row in points.
        Spring top;
    };
    [[nodiscard]] qsizetype count() const { return static_cast<qsizetype>(m_rows.size()); }
    /// -1 for an object that is not a row.
    [[nodiscard]] qsizetype positionOf(const QObject* row) const;
    [[nodiscard]] QSet<qsizetype> movedWith(qsizetype position) const;
    /// Moves rows by one place, up or down.
    void moveByKey(qsizetype position, bool isUp);
    [[nodiscard]] QScrollArea* scrollArea() const;

    void press(Clickable& row, QPointF globalPosition);
    void lift();
    /// Moves the carried row to the pointer. Also needed when the list scrolls below a resting pointer.
    void carry();
    void drop();
    void cancel();
    void putDown();
    void moveFocus(qsizetype from, qsizetype to) const;

    void sendRowsToTheirSlots();
    [[nodiscard]] bool advance(double seconds);
    [[nodiscard]] bool scrollAtEdge(double seconds);
    void placeRows();
    void countChanged();
    void holdSlot(qsizetype slot);
    void releaseSlot();
    void followPointer(const QMouseEvent& move);

    int m_rowHeight;
    int m_separatorInset;
    std::vector<Row> m_rows;
    std::function<QSet<qsizetype>(qsizetype)> m_movedTogether;

    /// The pointer of the drag is in global coordinates.
    RowDrag m_drag;
    /// The row on which the button was pressed.
    QPointer<Clickable> m_held;
    bool m_isScrolling = false;
    /// Where a row was removed below the pointer; -1 when no slot is empty.
    qsizetype m_emptySlot = -1;
    /// The pointer at that moment, in global coordinates.
    QPointF m_restingPointer;

    /// Below the row that is carried or comes down after a drag.
    Plate* m_plate;
    QPointer<Clickable> m_lifted;
    /// 1 is lifted, 0 is flat.
    Spring m_lift;
    Animator m_animator;
};

} // namespace tintwick
