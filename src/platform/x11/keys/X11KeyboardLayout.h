#pragma once

#include "KeyboardLayout.h"
#include "XcbConnection.h"

#include <memory>

struct xkb_context;
struct xkb_keymap;

namespace tintwick {

/// Reads the server's keymap and follows it. A keymap holds up to four layouts ("groups"), one of which is current.
class X11KeyboardLayout final : public KeyboardLayout, private XcbConnection::Sink
{
public:
    /// The connection must outlive this object. New keymaps are heard of once setLayoutChangedHandler() was called.
    explicit X11KeyboardLayout(XcbConnection& connection);
    ~X11KeyboardLayout();

    [[nodiscard]] std::optional<QString> characterForKey(int keyCode) const override;
    void setLayoutChangedHandler(LayoutChanged handler) override;

private:
    struct Unref
    {
        void operator()(xkb_context* context) const;
        void operator()(xkb_keymap* keymap) const;
    };

    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsDrained() override;

    /// As the server has it now; nullptr when it has none.
    [[nodiscard]] xkb_keymap* keymap() const;
    struct Layout
    {
        xkb_keymap* keymap = nullptr;
        std::uint32_t group = 0;
    };
    /// The layout that the user types with when it has Latin letters, otherwise the first one that does, as a program's
    /// shortcuts are read on a Cyrillic or Greek keyboard. Where no such layout is set up it is the American one, whose
    /// letters those keyboards print beside their own. No keymap when the server has none.
    [[nodiscard]] Layout asciiCapableLayout() const;
    /// nullptr when the description of it is not installed.
    [[nodiscard]] xkb_keymap* americanKeymap() const;

    XcbConnection& m_connection;
    std::unique_ptr<xkb_context, Unref> m_context;
    /// 0 when the server has no XKB.
    std::uint8_t m_xkbEvent = 0;
    // Fetched when asked for: most of the time nobody wants to know.
    mutable std::unique_ptr<xkb_keymap, Unref> m_keymap;
    mutable bool m_keymapIsOutdated = true;
    mutable std::unique_ptr<xkb_keymap, Unref> m_americanKeymap;
    std::uint32_t m_currentGroup = 0;
    bool m_changeIsUntold = false;
    LayoutChanged m_layoutChanged;
    std::optional<XcbConnection::Subscription> m_subscription;
};

} // namespace tintwick
