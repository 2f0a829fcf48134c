#pragma once

#include <cstdint>

namespace tintwick {

class XcbConnection;

/// The server's extensions for a pick, and their first event codes (0 for a missing extension).
struct PickingExtensions
{
    /// Requests the version of each extension, which enables the extension for this client.
    explicit PickingExtensions(const XcbConnection& connection);

    /// Whether the contents of windows below the loupe can be read. Needs Composite, Damage, Shape and XFixes.
    bool canReadBelowLoupe = false;
    std::uint8_t randrEvent = 0;
    std::uint8_t xfixesEvent = 0;
    std::uint8_t damageEvent = 0;
    std::uint8_t shapeEvent = 0;
};

} // namespace tintwick
