#pragma once

#include "GlobalShortcuts.h"
#include "KeyGrabs.h"
#include "PopupKeys.h"
#include "PopupWatcher.h"
#include "XcbConnection.h"

#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

namespace tintwick {

/// Takes shortcuts with passive key grabs, by the position of the key. While a popup of this process is open the server
/// sends the keys to the popup instead; the grabs are given back for that time, and the popup's key events are read.
class X11GlobalShortcuts final : public GlobalShortcuts,
                                 private XcbConnection::Sink,
                                 private PopupKeys::Receiver
{
public:
    /// The connection must outlive this object; the application object must exist.
    explicit X11GlobalShortcuts(XcbConnection& connection);
    ~X11GlobalShortcuts() override;

    void bind(const QString& id, const QString& description,
              const std::optional<Shortcut>& preferred) override;
    void unbind(const QString& id) override;
    [[nodiscard]] KeyChoice keyChoice() const override { return KeyChoice::Program; }
    [[nodiscard]] bool isTaken(const Shortcut& shortcut) const override;

private:
    struct HotKey
    {
        QString id;
        Shortcut shortcut;
        /// None while the current keymap does not have the combination.
        std::optional<KeyGrab> grab;
        /// False while a popup is open, and after another client took the combination during a keymap change.
        bool isGrabbed = false;
        /// Set while the key is down.
        std::optional<xcb_keycode_t> pressedKey;
    };

    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsDrained() override;
    bool popupKeyPressed(xcb_keycode_t keycode, std::uint16_t state) override;
    void popupKeyReleased(xcb_keycode_t keycode) override;

    void listen();
    void requestDetectableAutoRepeat();
    /// Returns whether the combination belongs to a shortcut.
    bool keyPressed(const KeyGrab& pressed);
    void keyReleased(xcb_keycode_t keycode);
    void updatePopupKeys();
    void suspendGrabs();
    void resumeGrabs();
    /// Takes the grabs again when a new keymap moved a modifier, or when a grab is missing. A combination that cannot
    /// be taken is tried again with the next keymap.
    void followKeymap();
    /// Takes the combination unless it is held already.
    [[nodiscard]] bool take(const KeyGrab& grab) const;
    /// Gives the combination back unless another id has it too.
    void giveBack(HotKey& hotKey);
    [[nodiscard]] bool isHeld(const KeyGrab& grab) const;
    [[nodiscard]] std::vector<HotKey>::iterator find(const QString& id);

    XcbConnection& m_connection;
    /// 0 when the server has no XKB extension.
    std::uint8_t m_xkbEvent = 0;
    bool m_keymapIsOutdated = false;
    KeyGrabs m_grabs;
    /// In the order in which the ids were first bound.
    std::vector<HotKey> m_hotKeys;
    PopupWatcher m_popups;
    PopupKeys m_popupKeys;
    /// Since the first bind().
    std::optional<XcbConnection::Subscription> m_subscription;
};

} // namespace tintwick
