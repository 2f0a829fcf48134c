#include "ClipboardOwner.h"

#include "XcbConnection.h"

#include <QString>

#include <algorithm>
#include <iterator>

namespace tintwick {

namespace {

constexpr std::uint8_t bytesFormat = 8;
constexpr std::uint8_t wordsFormat = 32;

void writeWords(xcb_connection_t* c, xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                const std::vector<std::uint32_t>& words)
{
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, property, type, wordsFormat,
                        static_cast<std::uint32_t>(words.size()), words.data());
}

} // namespace

ClipboardOwner::ClipboardOwner(const XcbConnection& connection, const QByteArray& text)
    : m_connection(connection)
    , m_c(connection.get())
    , m_clipboard(connection.atom("CLIPBOARD"))
    , m_targets(connection.atom("TARGETS"))
    , m_timestamp(connection.atom("TIMESTAMP"))
    , m_multiple(connection.atom("MULTIPLE"))
    , m_atomPair(connection.atom("ATOM_PAIR"))
    , m_window(XcbWindow::withNewId(m_c))
{
    const xcb_atom_t utf8 = connection.atom("UTF8_STRING");
    m_forms.push_back({utf8, utf8, text});
    for (const char* name : {"text/plain;charset=utf-8", "text/plain"}) {
        const xcb_atom_t atom = connection.atom(name);
        m_forms.push_back({atom, atom, text});
    }
    // The owner chooses the encoding of TEXT, and that of STRING is Latin-1.
    m_forms.push_back({connection.atom("TEXT"), utf8, text});
    m_forms.push_back({XCB_ATOM_STRING, XCB_ATOM_STRING, QString::fromUtf8(text).toLatin1()});

    constexpr std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_c, XCB_COPY_FROM_PARENT, m_window.id(), connection.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
}

bool ClipboardOwner::takeFrom(xcb_window_t window)
{
    // The time comes first: the server refuses the clipboard when another program copies after it.
    m_ownedSince = serverTime();
    const xcb_window_t owner = m_connection.selectionOwner(m_clipboard);
    if (owner != window && owner != XCB_NONE) {
        return false;
    }
    xcb_set_selection_owner(m_c, m_window.id(), m_clipboard, m_ownedSince);
    return m_connection.selectionOwner(m_clipboard) == m_window.id();
}

void ClipboardOwner::serve() const
{
    constexpr int sentByClient = 0x80;
    while (const XcbReply<xcb_generic_event_t> event{xcb_wait_for_event(m_c)}) {
        switch (event->response_type & ~sentByClient) {
        case XCB_SELECTION_CLEAR:
            return;
        case XCB_SELECTION_REQUEST:
            answer(reinterpret_cast<const xcb_selection_request_event_t&>(*event));
            break;
        default:
            break;
        }
    }
}

xcb_timestamp_t ClipboardOwner::serverTime() const
{
    // Appending nothing leaves the property unchanged, but the server sends an event with its time.
    xcb_change_property(m_c, XCB_PROP_MODE_APPEND, m_window.id(), XCB_ATOM_WM_NAME, XCB_ATOM_STRING,
                        bytesFormat, 0, nullptr);
    m_connection.flush();
    while (const XcbReply<xcb_generic_event_t> event{xcb_wait_for_event(m_c)}) {
        if (event->response_type == XCB_PROPERTY_NOTIFY) {
            return reinterpret_cast<const xcb_property_notify_event_t&>(*event).time;
        }
    }
    return XCB_CURRENT_TIME;
}

void ClipboardOwner::answer(const xcb_selection_request_event_t& request) const
{
    // Old programs name no property.
    const xcb_atom_t property = request.property != XCB_ATOM_NONE ? request.property : request.target;
    const bool isDone = request.target == m_multiple ? convertSeveral(request.requestor, property)
                                                     : convert(request.requestor, request.target, property);
    xcb_selection_notify_event_t notify{};
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.time = request.time;
    notify.requestor = request.requestor;
    notify.selection = request.selection;
    notify.target = request.target;
    notify.property = isDone ? property : xcb_atom_t{XCB_ATOM_NONE};
    xcb_send_event(m_c, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&notify));
    m_connection.flush();
}

bool ClipboardOwner::convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property) const
{
    if (target == m_targets) {
        std::vector<std::uint32_t> targets{m_targets, m_timestamp, m_multiple};
        std::ranges::transform(m_forms, std::back_inserter(targets), &TextForm::target);
        writeWords(m_c, requestor, property, XCB_ATOM_ATOM, targets);
        return true;
    }
    if (target == m_timestamp) {
        writeWords(m_c, requestor, property, XCB_ATOM_INTEGER, {m_ownedSince});
        return true;
    }
    const auto form = std::ranges::find(m_forms, target, &TextForm::target);
    return form != m_forms.end() && writeText(requestor, *form, property);
}

// The property holds pairs of a target and a property. The property of a pair that cannot be converted becomes none.
bool ClipboardOwner::convertSeveral(xcb_window_t requestor, xcb_atom_t property) const
{
    constexpr std::uint32_t mostWords = 1024;
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        m_c, xcb_get_property(m_c, 0, requestor, property, m_atomPair, 0, mostWords), nullptr));
    if (!reply || reply->format != wordsFormat) {
        return false;
    }
    const auto* words = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    std::vector<std::uint32_t> pairs(words, words + reply->value_len);
    for (std::size_t i = 0; i + 1 < pairs.size(); i += 2) {
        if (pairs[i + 1] == XCB_ATOM_NONE || !convert(requestor, pairs[i], pairs[i + 1])) {
            pairs[i + 1] = XCB_ATOM_NONE;
        }
    }
    writeWords(m_c, requestor, property, m_atomPair, pairs);
    return true;
}

bool ClipboardOwner::writeText(xcb_window_t requestor, const TextForm& form, xcb_atom_t property) const
{
    // A longer text would need a transfer in parts; what we copy is far shorter.
    constexpr qsizetype wordSize = 4;
    constexpr qsizetype header = sizeof(xcb_change_property_request_t) + wordSize;
    const qsizetype longest = qsizetype(xcb_get_maximum_request_length(m_c)) * wordSize - header;
    if (form.bytes.size() > longest) {
        return false;
    }
    xcb_change_property(m_c, XCB_PROP_MODE_REPLACE, requestor, property, form.type, bytesFormat,
                        static_cast<std::uint32_t>(form.bytes.size()), form.bytes.constData());
    return true;
}

} // namespace tintwick
