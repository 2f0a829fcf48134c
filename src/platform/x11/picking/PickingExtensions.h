#pragma once

#include <cstdint>

namespace tintwick {

class XcbConnection;

/// What the server's extensions offer a pick, and the numbers of their first events (0 for one that is missing).
struct PickingExtensions
{
    /// Asks the server; each extension answers only clients that have asked for its version.
    explicit PickingExtensions(const XcbConnection& connection);

    /// Whether windows' contents can be read below the loupe: Composite, Damage, Shape and XFixes are all there.
    bool canReadBelowLoupe = false;
    std::uint8_t randrEvent = 0;
    std::uint8_t xfixesEvent = 0;
    std::uint8_t damageEvent = 0;
    std::uint8_t shapeEvent = 0;
};

} // namespace tintwick
