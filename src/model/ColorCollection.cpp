#include "ColorCollection.h"

#include <QHash>

namespace tintwick {

ColorCollection ColorCollection::create(const QString& name)
{
    return {.id = QUuid::createUuid(),
            .name = name,
            .colorIds = {},
            .createdAt = QDateTime::currentDateTimeUtc(),
            .icon = QStringLiteral("paintpalette.fill")};
}

QList<CapturedColor> ColorCollection::colors(const QList<CapturedColor>& history,
                                             const QList<CapturedColor>& kept) const
{
    QHash<QUuid, const CapturedColor*> byId;
    for (const auto* list : {&history, &kept}) {
        for (const CapturedColor& color : *list) {
            // Of several with one id the first counts.
            const CapturedColor*& first = byId[color.id];
            first = first != nullptr ? first : &color;
        }
    }
    QList<CapturedColor> members;
    for (const QUuid& colorId : colorIds) {
        if (const CapturedColor* color = byId.value(colorId)) {
            members.append(*color);
        }
    }
    return members;
}

} // namespace tintwick
