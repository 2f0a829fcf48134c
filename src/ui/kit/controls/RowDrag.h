#pragma once

#include <QPointF>

#include <optional>

namespace tintwick {

/// One drag in a list of rows of equal height, from the press of the mouse button to its release. Rows and slots count from 0.
class RowDrag final
{
public:
    /// A press becomes a drag when the pointer has moved far enough. A cancelled drag lasts until the release.
    enum class Stage { Idle, Pressed, Carrying, Cancelled };

    struct Move
    {
        qsizetype from;
        /// The row before which the moved one is put, counted before the move; the number of rows for the end.
        qsizetype to;

        friend bool operator==(const Move&, const Move&) = default;
    };

    explicit RowDrag(int rowHeight)
        : m_rowHeight(rowHeight)
    {
    }

    [[nodiscard]] Stage stage() const { return m_stage; }
    [[nodiscard]] bool isCarrying() const { return m_stage == Stage::Carrying; }
    /// In the coordinates of `press()`.
    [[nodiscard]] QPointF pointer() const { return m_pointer; }
    /// The slot that the carried row would drop into.
    [[nodiscard]] qsizetype gap() const { return m_gap; }
    /// The slot of any other row, which leaves the gap free while a row is carried.
    [[nodiscard]] qsizetype slotOf(qsizetype row) const;

    /// The button was pressed on `row`, `grip` points below the row's top.
    void press(qsizetype row, QPointF pointer, double grip);
    /// Returns whether this move starts carrying the row.
    bool movePointer(QPointF pointer, int startDistance);
    /// The top of the carried row in a list of `count` rows when the pointer is at `pointerY` below the top of the list.
    /// Updates the gap.
    double carry(double pointerY, qsizetype count);
    /// The pointer is where the row cannot be dropped: the gap is the row's own slot until the next call of `carry()`.
    void leaveList() { m_gap = m_row; }
    /// Ends the drag. Returns nothing when the row stays at its position or was not carried.
    std::optional<Move> drop();
    /// Returns whether a row was carried.
    bool cancel();
    void release() { m_stage = Stage::Idle; }

    /// The whole points to scroll after `seconds` at `speed` points per second. Keeps the fraction for the next call.
    int scrollStep(double speed, double seconds);
    void resetScroll() { m_scrollRemainder = 0; }

private:
    int m_rowHeight;
    Stage m_stage = Stage::Idle;
    QPointF m_pressedAt;
    QPointF m_pointer;
    double m_grip = 0;
    qsizetype m_row = 0;
    qsizetype m_gap = 0;
    double m_scrollRemainder = 0;
};

} // namespace tintwick
