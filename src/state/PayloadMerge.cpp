#include "PayloadMerge.h"

#include <QHash>
#include <QUuid>

namespace tintwick {

namespace {

template <typename T>
const T& chosen(const T& before, const T& ours, const T& theirs)
{
    return ours == before ? theirs : ours;
}

CapturedColor merged(const CapturedColor& before, const CapturedColor& ours, const CapturedColor& theirs)
{
    return {.id = theirs.id,
            .red = chosen(before.red, ours.red, theirs.red),
            .green = chosen(before.green, ours.green, theirs.green),
            .blue = chosen(before.blue, ours.blue, theirs.blue),
            .alpha = chosen(before.alpha, ours.alpha, theirs.alpha),
            .capturedAt = chosen(before.capturedAt, ours.capturedAt, theirs.capturedAt),
            .customName = chosen(before.customName, ours.customName, theirs.customName)};
}

QUuid merged(const QUuid&, const QUuid&, const QUuid& theirs)
{
    return theirs;
}

ColorCollection merged(const ColorCollection& before, const ColorCollection& ours,
                       const ColorCollection& theirs);

const QUuid& idOf(const QUuid& id)
{
    return id;
}

template <typename T>
const QUuid& idOf(const T& element)
{
    return element.id;
}

/// The elements by id. Of several with one id the first counts.
template <typename T>
QHash<QUuid, const T*> byId(const QList<T>& list)
{
    QHash<QUuid, const T*> elements;
    for (const T& element : list) {
        if (!elements.contains(idOf(element))) {
            elements.insert(idOf(element), &element);
        }
    }
    return elements;
}

template <typename T>
struct MergedList
{
    /// In the order of `theirs`.
    QList<T> common;
    QList<T> onlyOurs;
};

template <typename T>
MergedList<T> mergedLists(const QList<T>& before, const QList<T>& ours, const QList<T>& theirs)
{
    const auto beforeById = byId(before);
    const auto oursById = byId(ours);
    const auto theirsById = byId(theirs);
    MergedList<T> result;
    for (const T& element : theirs) {
        const T* old = beforeById.value(idOf(element));
        const T* own = oursById.value(idOf(element));
        if (own) {
            result.common.append(merged(old ? *old : element, *own, element));
        } else if (!old || *old != element) {
            result.common.append(element);
        }
    }
    for (const T& element : ours) {
        const T* old = beforeById.value(idOf(element));
        if (!theirsById.contains(idOf(element)) && (!old || *old != element)) {
            result.onlyOurs.append(element);
        }
    }
    return result;
}

enum class OnlyOurs { First, Last };

/// A list that only one side changed is taken as it is, with its order.
template <typename T>
QList<T> mergedList(const QList<T>& before, const QList<T>& ours, const QList<T>& theirs, OnlyOurs place)
{
    if (theirs == before) {
        return ours;
    }
    if (ours == before) {
        return theirs;
    }
    const auto [common, onlyOurs] = mergedLists(before, ours, theirs);
    return place == OnlyOurs::First ? onlyOurs + common : common + onlyOurs;
}

ColorCollection merged(const ColorCollection& before, const ColorCollection& ours,
                       const ColorCollection& theirs)
{
    return {.id = theirs.id,
            .name = chosen(before.name, ours.name, theirs.name),
            .colorIds = mergedList(before.colorIds, ours.colorIds, theirs.colorIds, OnlyOurs::Last),
            .createdAt = chosen(before.createdAt, ours.createdAt, theirs.createdAt),
            .icon = chosen(before.icon, ours.icon, theirs.icon),
            .iconColor = chosen(before.iconColor, ours.iconColor, theirs.iconColor)};
}

QList<CapturedColor> allColors(const Payload& payload)
{
    return payload.history + payload.keptColors;
}

} // namespace

Payload merged(const Payload& before, const Payload& ours, const Payload& theirs)
{
    Payload both{.history = mergedList(before.history, ours.history, theirs.history, OnlyOurs::First),
                 .collections =
                     mergedList(before.collections, ours.collections, theirs.collections, OnlyOurs::Last),
                 .defaultFormat = chosen(before.defaultFormat, ours.defaultFormat, theirs.defaultFormat),
                 .colorTemplate = chosen(before.colorTemplate, ours.colorTemplate, theirs.colorTemplate)};
    const auto colors = mergedLists(allColors(before), allColors(ours), allColors(theirs));
    // A side that lacks a colour may only have dropped it: from a full history, or as a version that keeps none.
    both.keptColors = heldColors(both, colors.common + colors.onlyOurs + allColors(ours) + allColors(theirs));
    return both;
}

} // namespace tintwick
