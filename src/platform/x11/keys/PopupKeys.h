#pragma once

#include <QAbstractNativeEventFilter>

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <set>
#include <utility>

namespace tintwick {

class XcbConnection;

/// Reads the toolkit's key events before the toolkit does, and removes those of shortcuts. Used while a popup of this
/// process holds the keyboard grab.
class PopupKeys final : private QAbstractNativeEventFilter
{
public:
    class Receiver
    {
    public:
        /// Returns whether the key belongs to a shortcut; then the popup does not get it. Called once for a held key.
        virtual bool popupKeyPressed(xcb_keycode_t keycode, std::uint16_t state) = 0;
        /// Only for keys whose press belonged to a shortcut.
        virtual void popupKeyReleased(xcb_keycode_t keycode) = 0;

    protected:
        ~Receiver() = default;
    };

    /// Both must outlive this object.
    PopupKeys(const XcbConnection& connection, Receiver& receiver);
    ~PopupKeys() override;
    PopupKeys(const PopupKeys&) = delete;
    PopupKeys& operator=(const PopupKeys&) = delete;

    void setActive(bool isActive);

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    [[nodiscard]] bool keyPressed(const xcb_key_press_event_t& press);
    [[nodiscard]] bool keyReleased(const xcb_key_release_event_t& release);
    [[nodiscard]] bool isDown(xcb_keycode_t keycode) const;

    const XcbConnection& m_connection;
    Receiver& m_receiver;
    bool m_isActive = false;
    /// Keys of shortcuts that are down.
    std::set<xcb_keycode_t> m_pressed;
    std::optional<std::pair<xcb_keycode_t, xcb_timestamp_t>> m_lastRelease;
};

} // namespace tintwick
