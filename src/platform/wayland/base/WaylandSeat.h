#pragma once

#include "WaylandConnection.h"
#include "WaylandKeyboard.h"
#include "WaylandPointer.h"
#include "WaylandTablets.h"
#include "WaylandTouch.h"

#include <QObject>

#include <memory>
#include <optional>

namespace tintwick {

/// The input devices of the user. Devices may come and go.
class WaylandSeat final : public QObject, private WaylandPointer::Listener, private WaylandTouch::Listener
{
    Q_OBJECT

public:
    /// Receives the input over the surfaces of this connection.
    class Listener : public WaylandPointer::Listener, public WaylandTouch::Listener
    {
    public:
        virtual void keyboardEntered(wl_surface& surface) = 0;
        virtual void keyPressed(const KeyPress& press, std::uint32_t serial) = 0;

    protected:
        ~Listener() = default;
    };

    /// The connection must outlive this object.
    explicit WaylandSeat(WaylandConnection& connection);
    ~WaylandSeat() override;

    /// Null: nobody receives the input.
    void setListener(Listener* listener) { m_listener = listener; }
    /// Whether a button or a key is down that went down over a surface of this connection.
    [[nodiscard]] bool isAnyDown() const;

    /// Null when the compositor has none.
    [[nodiscard]] wl_seat* get() const { return m_seat.get(); }
    /// Null while there is no pointer.
    [[nodiscard]] WaylandPointer* pointer() { return m_pointer.get(); }
    /// Null while there is no keyboard.
    [[nodiscard]] WaylandKeyboard* keyboard() { return m_keyboard.get(); }

Q_SIGNALS:
    /// No button and no key is down any more. Also reported without a listener.
    void released();
    /// Another keyboard, keymap or layout.
    void keymapChanged();

private:
    void follow(std::uint32_t capabilities);
    void addKeyboard();
    void reportReleased();

    void pointerEntered(wl_surface& surface, QPointF position) override;
    void pointerMoved(wl_surface& surface, QPointF position) override;
    void buttonPressed(PointerButton button, std::uint32_t serial) override;
    void buttonReleased() override;
    void scrolled(ScrollDelta delta) override;
    void fingerMoved(wl_surface& surface, QPointF position) override;
    void fingerLifted(std::uint32_t serial) override;

    WlSeat m_seat;
    Listener* m_listener = nullptr;
    int m_buttonsDown = 0;
    std::unique_ptr<WaylandPointer> m_pointer;
    std::unique_ptr<WaylandKeyboard> m_keyboard;
    std::unique_ptr<WaylandTouch> m_touch;
    /// None when the compositor has no seat.
    std::optional<WaylandTablets> m_tablets;
};

} // namespace tintwick
