#pragma once

#include "HotKeyRegistrar.h"
#include "ModifierMap.h"
#include "XcbConnection.h"

#include <QAbstractNativeEventFilter>

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace tintwick {

/// Holds combinations as passive grabs on the root window: the server sends such a press here and to nobody else,
/// whichever window has the focus. Keys are taken by position, and stay taken when the keymap changes.
class X11HotKeyRegistrar final : public HotKeyRegistrar,
                                 private XcbConnection::Sink,
                                 private QAbstractNativeEventFilter
{
public:
    /// The connection must outlive this object.
    explicit X11HotKeyRegistrar(XcbConnection& connection);
    ~X11HotKeyRegistrar() override;

    [[nodiscard]] Registration registerHotKey(int keyCode, int modifiers, std::uint32_t id) override;
    void unregisterHotKey(Handle handle) override;
    void setHotKeyHandler(HotKeyHandler handler) override;
    void setRawKeyHandler(RawKeyHandler handler) override;
    [[nodiscard]] bool isTaken(int keyCode, int modifiers) const override;

private:
    /// A combination as the server knows it.
    struct KeyGrab
    {
        xcb_keycode_t keycode = 0;
        /// Without the locks.
        std::uint16_t modifiers = 0;

        friend bool operator==(const KeyGrab&, const KeyGrab&) = default;
    };

    struct HotKey
    {
        int keyCode = 0;
        int modifiers = 0;
        std::uint32_t id = 0;
        /// None while the current keymap does not have it or another program got hold of it.
        std::optional<KeyGrab> grab;
        /// Pressed and not yet released.
        std::optional<xcb_keycode_t> pressed;
    };

    struct RawPress
    {
        int keyCode = 0;
        int modifiers = 0;
    };

    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsDrained() override;
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    void keyPressed(const xcb_key_press_event_t& press);
    void keyReleased(const xcb_key_release_event_t& release);
    void report(const std::vector<std::uint32_t>& ids, KeyDirection direction) const;
    [[nodiscard]] bool rawKeyPressed(const xcb_key_press_event_t& press);
    [[nodiscard]] bool rawKeyReleased(const xcb_key_release_event_t& release);
    [[nodiscard]] bool isDown(xcb_keycode_t keycode) const;

    /// Takes the grabs anew where the keymap moved a modifier, and those that someone else had got hold of. What still
    /// cannot be taken waits for the next keymap.
    void followKeymap();

    /// None when the keymap has no such key or no bit for one of the modifiers.
    [[nodiscard]] std::optional<KeyGrab> grabFor(int keyCode, int modifiers) const;
    /// Every combination of locks that may be on while the key is pressed, none included.
    [[nodiscard]] std::vector<std::uint16_t> lockCombinations() const;
    [[nodiscard]] bool isHeld(const KeyGrab& grab) const;
    /// All lock combinations or nothing.
    [[nodiscard]] bool take(const KeyGrab& grab) const;
    void giveBack(const KeyGrab& grab) const;
    [[nodiscard]] bool isHeldThroughInputExtension(const KeyGrab& grab) const;

    XcbConnection& m_connection;
    /// 0 when the server has no XKB.
    std::uint8_t m_xkbEvent = 0;
    bool m_hasInputExtension = false;
    bool m_keymapIsOutdated = false;
    ModifierMap m_modifierMap;
    std::map<Handle, HotKey> m_hotKeys;
    Handle m_lastHandle = 0;
    HotKeyHandler m_hotKeyHandler;
    RawKeyHandler m_rawKeyHandler;
    /// Keys whose press the raw handler took.
    std::map<xcb_keycode_t, RawPress> m_rawPressed;
    std::optional<std::pair<xcb_keycode_t, xcb_timestamp_t>> m_lastRawRelease;
    /// From the first registration on.
    std::optional<XcbConnection::Subscription> m_subscription;
};

} // namespace tintwick
