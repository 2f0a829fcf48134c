#pragma once

#include "CapturedColor.h"

#include <QUuid>

#include <optional>

namespace tintwick {

/// Names a screen of the panel and what it shows.
struct PanelScreen
{
    enum class Kind { Dashboard, History, Collection, Color, Contrast, Search, Similar, Settings };

    Kind kind = Kind::Dashboard;
    /// Of a collection.
    QUuid collectionId = {};
    /// The opened colour, the colour of the text in a contrast, or the colour that others are like.
    CapturedColor color = {};
    /// The ground in a contrast, if it has been chosen.
    std::optional<CapturedColor> ground = {};

    friend bool operator==(const PanelScreen&, const PanelScreen&) = default;
};

} // namespace tintwick
