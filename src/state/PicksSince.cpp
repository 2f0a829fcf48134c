#include "PicksSince.h"

#include <QHash>
#include <QUuid>

#include <algorithm>

namespace tintwick {

QList<CapturedColor> withPicksFirst(QList<CapturedColor> history, const QList<CapturedColor>& before,
                                    const QList<CapturedColor>& now)
{
    QHash<QUuid, QDateTime> times;
    for (const CapturedColor& color : before) {
        times.insert(color.id, color.capturedAt);
    }
    const auto isPickedAgain = [&times](const CapturedColor& color) {
        return times.contains(color.id) && times.value(color.id) != color.capturedAt;
    };
    if (!std::ranges::any_of(now, isPickedAgain)) {
        return history;
    }
    qsizetype first = 0;
    for (const CapturedColor& color : now) {
        const auto found = std::ranges::find(history, color.id, &CapturedColor::id);
        if (found != history.end() && (isPickedAgain(color) || !times.contains(color.id))) {
            history.move(found - history.begin(), first);
            ++first;
        }
    }
    return history;
}

} // namespace tintwick
