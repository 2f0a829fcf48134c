#pragma once

#include <QList>
#include <QSet>

namespace tintwick {

/// A list with the elements at `positions` moved, in their order, before the element that stands at
/// `destination`; the list's size as `destination` means the end. All positions count in the list as it is
/// passed; those outside of it are passed over, and a destination outside is taken as the nearer end.
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
