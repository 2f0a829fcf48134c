#include "Payload.h"

#include <QSet>
#include <QUuid>

namespace tintwick {

QList<CapturedColor> heldColors(const Payload& payload, const QList<CapturedColor>& known)
{
    QSet<QUuid> listed;
    for (const CapturedColor& color : payload.history) {
        listed.insert(color.id);
    }
    ColorCollection rest;
    for (const ColorCollection& collection : payload.collections) {
        for (const QUuid& colorId : collection.colorIds) {
            if (!listed.contains(colorId)) {
                listed.insert(colorId);
                rest.colorIds.append(colorId);
            }
        }
    }
    return rest.colorIds.isEmpty() ? QList<CapturedColor>() : rest.colors(known);
}

} // namespace tintwick
