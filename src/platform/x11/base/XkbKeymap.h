#pragma once

#include "XcbConnection.h"
#include "XkbUnref.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tintwick {

/// The server's keymap, compiled by xkbcommon. It is fetched on first use, and again once the event loop has processed
/// the server's event for a new keymap.
class XkbKeymap final : private XcbConnection::Sink
{
public:
    /// The connection must outlive this object.
    explicit XkbKeymap(XcbConnection& connection);
    ~XkbKeymap();
    XkbKeymap(const XkbKeymap&) = delete;
    XkbKeymap& operator=(const XkbKeymap&) = delete;

    /// nullptr when the server has no XKB extension or no keymap. Valid until the next call.
    [[nodiscard]] xkb_keymap* get();
    /// The symbol of a key, for the effective modifiers and the effective group of its event. XKB_KEY_NoSymbol when the
    /// key has none or several, or when there is no keymap.
    [[nodiscard]] xkb_keysym_t keysym(xkb_keycode_t keycode, std::uint32_t effectiveModifiers,
                                      std::uint32_t group);
    /// The character of that symbol, see KeyPress::character; 0 when it has none.
    [[nodiscard]] char32_t character(xkb_keycode_t keycode, std::uint32_t effectiveModifiers,
                                     std::uint32_t group);

private:
    void handleEvent(const xcb_generic_event_t& event) override;

    XcbConnection& m_connection;
    /// 0 when the server has no XKB extension.
    std::uint8_t m_xkbEvent = 0;
    bool m_isOutdated = true;
    std::unique_ptr<xkb_context, XkbUnref> m_context;
    std::unique_ptr<xkb_keymap, XkbUnref> m_keymap;
    std::unique_ptr<xkb_state, XkbUnref> m_state;
    std::optional<XcbConnection::Subscription> m_subscription;
};

} // namespace tintwick
