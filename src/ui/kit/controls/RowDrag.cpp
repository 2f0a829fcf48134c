#include "RowDrag.h"

#include "Reordering.h"

#include <cmath>

namespace tintwick {

qsizetype RowDrag::slotOf(qsizetype row) const
{
    return isCarrying() ? slotBeside(row, m_row, m_gap) : row;
}

void RowDrag::press(qsizetype row, QPointF pointer, double grip)
{
    m_stage = Stage::Pressed;
    m_row = row;
    m_gap = row;
    m_grip = grip;
    m_pressedAt = pointer;
    m_pointer = pointer;
    m_scrollRemainder = 0;
}

bool RowDrag::movePointer(QPointF pointer, int startDistance)
{
    m_pointer = pointer;
    if (m_stage != Stage::Pressed || (m_pointer - m_pressedAt).manhattanLength() < startDistance) {
        return false;
    }
    m_stage = Stage::Carrying;
    return true;
}

double RowDrag::carry(double pointerY, qsizetype count)
{
    const double top = carriedTop(pointerY - m_grip, m_rowHeight, count);
    m_gap = gapUnder(top, m_rowHeight, count);
    return top;
}

std::optional<RowDrag::Move> RowDrag::drop()
{
    const bool isMoved = isCarrying() && m_gap != m_row;
    m_stage = Stage::Idle;
    return isMoved ? std::optional<Move>({m_row, destination(m_row, m_gap)}) : std::nullopt;
}

bool RowDrag::cancel()
{
    const bool carried = isCarrying();
    if (carried) {
        m_stage = Stage::Cancelled;
    }
    return carried;
}

int RowDrag::scrollStep(double speed, double seconds)
{
    m_scrollRemainder += speed * seconds;
    const double whole = std::trunc(m_scrollRemainder);
    m_scrollRemainder -= whole;
    return static_cast<int>(whole);
}

} // namespace tintwick
