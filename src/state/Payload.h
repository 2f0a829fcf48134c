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

    friend bool operator==(const Payload&, const Payload&) = default;
};

} // namespace tintwick
