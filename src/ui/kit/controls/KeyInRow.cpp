#include "KeyInRow.h"

#include <Qt>

#include <algorithm>

namespace tintwick {

std::optional<qsizetype> positionAfterKey(int key, qsizetype from, qsizetype count)
{
    switch (key) {
    case Qt::Key_Left:
        return std::max<qsizetype>(from - 1, 0);
    case Qt::Key_Right:
        return std::min(from + 1, count - 1);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return count - 1;
    default:
        return std::nullopt;
    }
}

} // namespace tintwick
