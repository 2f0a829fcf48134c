#pragma once

#include "XcbHandle.h"

#include <QByteArray>

#include <xcb/xcb.h>

#include <vector>

namespace tintwick {

class XcbConnection;

/// Owns the clipboard with a text until another program copies. Needs no application object and no event loop.
class ClipboardOwner final
{
public:
    /// `text` is UTF-8. The connection must outlive this object and have no other user.
    ClipboardOwner(const XcbConnection& connection, const QByteArray& text);

    /// Takes the clipboard over from a window, which may be gone by now. Returns false and takes nothing when another
    /// window owns it.
    [[nodiscard]] bool takeFrom(xcb_window_t window);
    /// Gives the text to the programs that ask for it. Returns when another program has copied, or when the server ends.
    void serve() const;

private:
    /// How the text is given in one of the forms that programs ask for.
    struct TextForm
    {
        xcb_atom_t target;
        xcb_atom_t type;
        QByteArray bytes;
    };

    [[nodiscard]] xcb_timestamp_t serverTime() const;
    void answer(const xcb_selection_request_event_t& request) const;
    /// These write the answer into a property of the window, and return false when they cannot.
    [[nodiscard]] bool convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property) const;
    [[nodiscard]] bool convertSeveral(xcb_window_t requestor, xcb_atom_t property) const;
    [[nodiscard]] bool writeText(xcb_window_t requestor, const TextForm& form, xcb_atom_t property) const;

    const XcbConnection& m_connection;
    xcb_connection_t* m_c;
    xcb_atom_t m_clipboard;
    xcb_atom_t m_targets;
    xcb_atom_t m_timestamp;
    xcb_atom_t m_multiple;
    xcb_atom_t m_atomPair;
    std::vector<TextForm> m_forms;
    XcbWindow m_window;
    xcb_timestamp_t m_ownedSince = XCB_CURRENT_TIME;
};

} // namespace tintwick
