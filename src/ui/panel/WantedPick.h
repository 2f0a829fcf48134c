#pragma once

#include <QUuid>

#include <chrono>
#include <optional>

namespace tintwick {

/// A pick that the user asks for in the panel or the tray menu.
struct WantedPick
{
    /// The screen is frozen and the pick begins after this time; zero for a live pick at once.
    std::chrono::seconds delay{0};
    /// The palette that also gets the colours, many of them; none for a pick of one.
    std::optional<QUuid> palette = std::nullopt;
};

/// The delays that menus offer, for open menus, tool tips and what is below the pointer.
inline constexpr std::chrono::seconds offeredPickDelays[] = {std::chrono::seconds(3),
                                                             std::chrono::seconds(5)};

} // namespace tintwick
