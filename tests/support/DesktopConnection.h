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

/// Replies, errors and events are the receiver's to free.
struct FreeServerMemory
{
    void operator()(void* memory) const { std::free(memory); }
};
template <typename Reply>
using ServerReply = std::unique_ptr<Reply, FreeServerMemory>;

/// A client of the private X server: one of the "other programs" of a test, or the hand that drives the
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
    /// Returns once the server has carried out everything sent so far.
    void sync() const;

    /// XCB_NONE when nobody owns the selection.
    [[nodiscard]] xcb_window_t selectionOwner(const QByteArray& selection);
    /// The raw bytes of a property, empty when the window has none.
    [[nodiscard]] QByteArray property(xcb_window_t window, const QByteArray& name);
    [[nodiscard]] bool hasProperty(xcb_window_t window, const QByteArray& name);
    /// The children, bottom to top.
    [[nodiscard]] std::vector<xcb_window_t> children(xcb_window_t window) const;
    /// The window and everything inside it.
    [[nodiscard]] std::vector<xcb_window_t> tree(xcb_window_t window) const;
    /// Whether the window and all it lies in are mapped.
    [[nodiscard]] bool isViewable(xcb_window_t window) const;
    /// The window's inside in root coordinates; empty when it is gone.
    [[nodiscard]] QRect geometry(xcb_window_t window) const;

    /// What the screen shows there, without the pointer's image.
    [[nodiscard]] QImage screenshot(const QRect& rect) const;
    /// The opaque colour the screen shows at one place.
    [[nodiscard]] QRgb pixel(QPoint position) const;

    /// Whether another program holds neither pointer nor keyboard, so that we now do.
    [[nodiscard]] bool grabPointer();
    [[nodiscard]] bool grabKeyboard();
    void ungrabAll();
    /// Whether nobody holds the pointer or the keyboard; to ask disturbs nobody who is about to.
    [[nodiscard]] bool inputIsFree();
    /// The keyboard alone: a window manager holds the pointer for a moment at every click.
    [[nodiscard]] bool keyboardIsFree();

    /// The handler gets the events of the window until it is removed.
    void setEventHandler(xcb_window_t window, const EventHandler& handler);
    void removeEventHandler(xcb_window_t window);
    /// Hands out every event the server has sent until now.
    void dispatchEvents();

private:
    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen = nullptr;
    QHash<QByteArray, xcb_atom_t> m_atoms;
    QHash<xcb_window_t, EventHandler> m_handlers;
};

} // namespace tintwick
