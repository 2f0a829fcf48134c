#pragma once

#include "FreedKeysWatch.h"
#include "GlobalShortcuts.h"
#include "KeyGrabs.h"
#include "PopupKeys.h"
#include "PopupWatcher.h"
#include "XcbConnection.h"

#include <QStringList>

#include <chrono>
#include <cstdint>
#include <functional>
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
    /// Refused combinations are tried again after each interval. The connection must outlive this object; the
    /// application object must exist.
    explicit X11GlobalShortcuts(XcbConnection& connection,
                                std::chrono::milliseconds retryInterval = std::chrono::seconds(30));
    ~X11GlobalShortcuts() override;

    void bind(const QString& id, const QString& description,
              const std::optional<Shortcut>& preferred) override;
    void unbind(const QString& id) override;
    [[nodiscard]] KeyChoice keyChoice() const override { return KeyChoice::Program; }
    [[nodiscard]] bool isTaken(const Shortcut& shortcut) const override;
    void retry() override;

private:
    struct Keys
    {
        Shortcut shortcut;
        /// None while the current keymap does not have the combination.
        std::optional<KeyGrab> grab;
        /// Whether the combination triggers the shortcut. It is then grabbed, except while a popup is open.
        bool isOurs = false;
    };

    struct HotKey
    {
        QString id;
        Keys wanted;
        /// The keys before, while the wanted ones are refused.
        std::optional<Keys> former;
        /// The last report about the wanted keys: bound() or refused().
        std::optional<bool> isReportedBound;
        /// Set while the key is down.
        std::optional<xcb_keycode_t> pressedKey;

        [[nodiscard]] bool hasKeys(const KeyGrab& grab) const;
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
    /// Takes the grabs again when a new keymap moved a modifier.
    void followKeymap();
    void forgetPressedKeys();
    /// The combinations stay those of their shortcuts.
    void giveAllBack();
    void takeAllAgain();
    /// Takes what is missing and gives back what is no longer needed.
    void takeMissing(HotKey& hotKey);
    void takeAllMissing();
    /// Reports which shortcuts have their keys now, and which do not.
    void reportChanges();
    /// Takes the combination if it is free. Does nothing when it is ours already.
    void take(Keys& keys) const;
    /// Gives the combination back unless another id has it too.
    void giveBack(Keys& keys) const;
    [[nodiscard]] bool isOurs(const KeyGrab& grab) const;
    void forEachKeys(const std::function<void(Keys&)>& visit);
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
    FreedKeysWatch m_freedKeys;
    /// Since the first bind().
    std::optional<XcbConnection::Subscription> m_subscription;
};

} // namespace tintwick
