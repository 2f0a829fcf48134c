#pragma once

#include "KeyboardLayout.h"
#include "XcbConnection.h"
#include "XkbKeymap.h"

#include <cstdint>
#include <memory>

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
    struct Layout
    {
        xkb_keymap* keymap = nullptr;
        std::uint32_t group = 0;
    };

    /// The symbol of the key without modifiers; XKB_KEY_NoSymbol when it has none or several.
    [[nodiscard]] xkb_keysym_t symbolOf(int keyCode) const;

    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsDrained() override;

    /// The current layout if it has Latin letters, otherwise the first layout that has, otherwise the US layout:
    /// keyboards of other scripts print the US letters beside their own. No keymap when the server has none.
    [[nodiscard]] Layout asciiCapableLayout() const;
    /// nullptr when the description of the US layout is not installed.
    [[nodiscard]] xkb_keymap* usKeymap() const;

    XcbConnection& m_connection;
    XkbKeymap& m_keymap;
    /// 0 when the server has no XKB extension.
    std::uint8_t m_xkbEvent = 0;
    /// Read when first needed.
    mutable std::unique_ptr<xkb_keymap, XkbUnref> m_usKeymap;
    std::uint32_t m_currentGroup = 0;
    bool m_hasUnreportedChange = false;
    XcbConnection::Subscription m_subscription;
};

} // namespace tintwick
