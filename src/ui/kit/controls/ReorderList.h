#pragma once

#include "Animator.h"
#include "Spring.h"

#include <QMargins>
#include <QPointF>
#include <QPointer>
#include <QWidget>

#include <vector>

class QScrollArea;

namespace tintwick {

class Clickable;

/// Rows of one height that the user can put into another order: by dragging one, or with Alt and the arrow keys on the one
/// that has the focus. The list moves nothing itself: it says what is wanted, and whoever owns the records then shows them
/// in their new order. A drag ends without a move on Escape, when the window goes to the back, and when rows come, go or
/// change places meanwhile.
///
/// The arrow keys, Home and End move the focus. Inside a `ScrollArea` the list scrolls while a row is held to an edge.
class ReorderList final : public QWidget
{
    Q_OBJECT

public:
    /// The rounded plate below a lifted row keeps these margins from the row's edges, in points. A row that draws a ring of
    /// its own draws it along the plate.
    static constexpr QMargins plateMargins{6, 1, 6, 1};
    static constexpr double plateRadius = 12;

    /// `rowHeight` in points. Lines between the rows keep `separatorInset` points from both sides.
    ReorderList(const QString& name, int rowHeight, int separatorInset);
    ~ReorderList() override;

    /// Puts a row at a position; one that is there already goes there from where it is.
    void insert(int position, Clickable* row);
    /// Takes a row out; it stays a child and is hidden.
    void remove(Clickable* row);

    [[nodiscard]] bool isCarrying() const { return m_stage == Stage::Carrying; }
    /// Scrolls so far that a row is seen in its place.
    void reveal(const Clickable& row) const;

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The row at `from` is to stand before the one at `to`, or last when `to` is the number of rows; both count in the
    /// present order.
    void moveRequested(qsizetype from, qsizetype to);

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
        /// Its upper edge in points.
        Spring top;
    };
    /// A press becomes a drag with its first long way, and is over with the release.
    enum class Stage { Idle, Pressed, Carrying, Cancelled };

    [[nodiscard]] qsizetype count() const { return static_cast<qsizetype>(m_rows.size()); }
    /// -1 for what is no row.
    [[nodiscard]] qsizetype positionOf(const QObject* row) const;
    [[nodiscard]] QScrollArea* scrollArea() const;

    void press(Clickable& row, QPointF globalPosition);
    void lift();
    /// Lets the held row follow the pointer, which may rest while the list moves below it.
    void carry();
    void drop();
    void cancel();
    void putDown(Stage next);
    void moveFocus(qsizetype from, qsizetype to) const;

    void sendRowsToTheirSlots();
    [[nodiscard]] bool advance(double seconds);
    [[nodiscard]] bool scrollAtEdge(double seconds);
    void placeRows();
    void countChanged();

    int m_rowHeight;
    int m_separatorInset;
    std::vector<Row> m_rows;

    Stage m_stage = Stage::Idle;
    QPointer<Clickable> m_held;
    QPointF m_pressedAt;
    QPointF m_pointer;
    /// How far below its upper edge the row is held.
    double m_grip = 0;
    qsizetype m_gap = 0;
    /// Parts of a point that are still to be scrolled.
    double m_scrollOwed = 0;
    bool m_isScrolling = false;

    /// Below the row that is carried or was last; 1 is lifted, 0 is flat.
    Plate* m_plate;
    QPointer<Clickable> m_lifted;
    Spring m_lift;
    Animator m_animator;
};

} // namespace tintwick
