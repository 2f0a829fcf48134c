#include "ColorCollection.h"

#include <algorithm>

namespace tintwick {

ColorCollection ColorCollection::create(const QString& name)
{
    return {
        QUuid::createUuid(), name, {}, QDateTime::currentDateTimeUtc(), QStringLiteral("paintpalette.fill")};
}

QList<CapturedColor> ColorCollection::colors(const QList<CapturedColor>& history) const
{
    QList<CapturedColor> members;
    for (const QUuid& colorId : colorIds) {
        const auto found = std::ranges::find(history, colorId, &CapturedColor::id);
        if (found != history.end()) {
            members.append(*found);
        }
    }
    return members;
}

} // namespace tintwick
