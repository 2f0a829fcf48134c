#pragma once

#include "KeyboardLayout.h"
#include "ShortcutSymbols.h"
#include "XcbConnection.h"
#include "XkbKeymap.h"

#include <cstdint>

namespace tintwick {

/// Reads the server's keymap. A keymap holds up to four layouts ("groups"), one of which is current.
class X11KeyboardLayout final : public KeyboardLayout, private XcbConnection::Sink
{
public:
    /// Both must outlive this object; the application object must exist.
    X11KeyboardLayout(XcbConnection& connection, XkbKeymap& keymap);
    ~X11KeyboardLayout() override;

    [[nodiscard]] std::optional<QString> characterForKey(int keyCode) const override;
    [[nodiscard]] std::optional<QString> accentForKey(int keyCode) const override;

private:
    /// The symbol of the key without modifiers; XKB_KEY_NoSymbol when it has none or several.
    [[nodiscard]] xkb_keysym_t symbolOf(int keyCode) const;

    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsDrained() override;

    XcbConnection& m_connection;
    XkbKeymap& m_keymap;
    ShortcutSymbols m_symbols;
    /// 0 when the server has no XKB extension.
    std::uint8_t m_xkbEvent = 0;
    std::uint32_t m_currentGroup = 0;
    bool m_hasUnreportedChange = false;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
