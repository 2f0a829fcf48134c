#pragma once

#include <QByteArray>
#include <QHash>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tintwick {

/// Owns a reply, error or event, which the receiver must free.
struct FreeServerMemory
{
    void operator()(void* memory) const { std::free(memory); }
};
template <typename Reply>
using ServerReply = std::unique_ptr<Reply, FreeServerMemory>;

/// A client of the private X server: one of the "other programs" of a test, or the client that sends input to the
/// desktop. Positions are pixels from the top left of the root window.
class DesktopConnection final
{
public:
    using EventHandler = std::function<void(const xcb_generic_event_t&)>;

    /// Throws std::runtime_error when the server does not answer.
    explicit DesktopConnection(const QByteArray& display);
    ~DesktopConnection();
    DesktopConnection(const DesktopConnection&) = delete;
    DesktopConnection& operator=(const DesktopConnection&) = delete;

    [[nodiscard]] xcb_connection_t* get() const { return m_connection; }
    [[nodiscard]] const xcb_screen_t& screen() const { return *m_screen; }
    [[nodiscard]] xcb_window_t root() const { return m_screen->root; }
    /// A visual with eight bits of alpha; none when the server lacks one.
    [[nodiscard]] std::optional<xcb_visualid_t> translucentVisual() const;

    [[nodiscard]] xcb_atom_t atom(const QByteArray& name);
    [[nodiscard]] std::uint32_t newId() const { return xcb_generate_id(m_connection); }
    /// Returns when the server has processed all requests sent so far.
    void sync() const;

    /// XCB_NONE when the selection has no owner.
    [[nodiscard]] xcb_window_t selectionOwner(const QByteArray& selection);
    /// The window with the keyboard focus.
    [[nodiscard]] xcb_window_t focusedWindow() const;
    /// The raw bytes of a property, empty when the window has none.
    [[nodiscard]] QByteArray property(xcb_window_t window, const QByteArray& name);
    [[nodiscard]] bool hasProperty(xcb_window_t window, const QByteArray& name);
    /// The children, bottom to top.
    [[nodiscard]] std::vector<xcb_window_t> children(xcb_window_t window) const;
    /// The window and all its descendants.
    [[nodiscard]] std::vector<xcb_window_t> tree(xcb_window_t window) const;
    /// Whether the window and all its ancestors are mapped.
    [[nodiscard]] bool isViewable(xcb_window_t window) const;
    /// The window's content rectangle in root coordinates; empty when the window no longer exists.
    [[nodiscard]] QRect geometry(xcb_window_t window) const;

    /// The picture on the screen in this rectangle, without the pointer.
    [[nodiscard]] QImage screenshot(const QRect& rect) const;
    /// The picture that a window has drawn, in pixels from its top left corner. A compositor may show it later. Null when the
    /// window is not visible.
    [[nodiscard]] QImage drawnBy(xcb_window_t window, const QRect& rect) const;
    /// The opaque colour on the screen at this position.
    [[nodiscard]] QRgb pixel(QPoint position) const;

    /// Grabs the pointer or the keyboard; false when another client holds it.
    [[nodiscard]] bool grabPointer();
    [[nodiscard]] bool grabKeyboard();
    void ungrabAll();
    /// Whether no client has grabbed the pointer or the keyboard. The query takes no grab.
    [[nodiscard]] bool inputIsFree();
    /// The keyboard only: a window manager grabs the pointer briefly at each click.
    [[nodiscard]] bool keyboardIsFree();

    /// Calls the handler for each event of the window until it is removed.
    void setEventHandler(xcb_window_t window, const EventHandler& handler);
    void removeEventHandler(xcb_window_t window);
    /// Dispatches all events that the server has sent so far.
    void dispatchEvents();

private:
    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen = nullptr;
    QHash<QByteArray, xcb_atom_t> m_atoms;
    QHash<xcb_window_t, EventHandler> m_handlers;
};

} // namespace tintwick
