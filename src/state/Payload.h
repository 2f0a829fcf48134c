#pragma once

#include "CapturedColor.h"
#include "ColorCollection.h"
#include "ColorFormat.h"

#include <QList>

namespace tintwick {

/// The content of the data file.
struct Payload
{
    /// Newest first.
    QList<CapturedColor> history;
    /// In the user's order.
    QList<ColorCollection> collections;
    ColorFormat defaultFormat = ColorFormat::Hex6;
    /// The colours that have left the history and that a collection holds; see heldColors().
    QList<CapturedColor> keptColors = {};
    /// For the format Template; see ColorTemplate.h.
    QString colorTemplate = defaultColorTemplate();

    friend bool operator==(const Payload&, const Payload&) = default;
};

/// Those of the `known` colours that a collection of the payload holds and its history lacks, each once, in the order of the
/// collections.
[[nodiscard]] QList<CapturedColor> heldColors(const Payload& payload, const QList<CapturedColor>& known);

} // namespace tintwick
