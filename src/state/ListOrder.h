#pragma once

#include <QList>
#include <QSet>

namespace tintwick {

/// The list with the elements at `positions` moved, in their order, before the element at `destination`; the list's size
/// means the end. All positions count before the move. Positions outside the list are ignored; a destination outside the
/// list means the nearer end.
template <typename T>
[[nodiscard]] QList<T> moved(const QList<T>& list, const QSet<qsizetype>& positions, qsizetype destination)
{
    QList<T> before;
    QList<T> moving;
    QList<T> after;
    for (qsizetype i = 0; i < list.size(); ++i) {
        (positions.contains(i) ? moving : i < destination ? before : after).append(list[i]);
    }
    return before + moving + after;
}

} // namespace tintwick
