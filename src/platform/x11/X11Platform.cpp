#include "X11Platform.h"

#include "ClientResources.h"
#include "ClipboardProcess.h"
#include "ToolkitConnection.h"

#include <QClipboard>
#include <QGuiApplication>

#include <xcb/randr.h>

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

// An X server inside a Wayland session has only the windows of X programs. Newer ones announce themselves by an
// extension, older ones by the names of their outputs.
bool isInsideWayland(const XcbConnection& connection)
{
    xcb_connection_t* c = connection.get();
    constexpr std::string_view extensionName = "XWAYLAND";
    const XcbReply<xcb_query_extension_reply_t> extension(xcb_query_extension_reply(
        c, xcb_query_extension(c, static_cast<std::uint16_t>(extensionName.size()), extensionName.data()),
        nullptr));
    if (extension && extension->present != 0) {
        return true;
    }
    const xcb_query_extension_reply_t* randr = xcb_get_extension_data(c, &xcb_randr_id);
    if (!randr || randr->present == 0) {
        return false;
    }
    const XcbReply<xcb_randr_get_screen_resources_current_reply_t> resources(
        xcb_randr_get_screen_resources_current_reply(
            c, xcb_randr_get_screen_resources_current(c, connection.root()), nullptr));
    if (!resources) {
        return false;
    }
    const xcb_randr_output_t* outputs = xcb_randr_get_screen_resources_current_outputs(resources.get());
    const int count = xcb_randr_get_screen_resources_current_outputs_length(resources.get());
    return std::any_of(outputs, outputs + count, [&](xcb_randr_output_t output) {
        const XcbReply<xcb_randr_get_output_info_reply_t> info(xcb_randr_get_output_info_reply(
            c, xcb_randr_get_output_info(c, output, resources->config_timestamp), nullptr));
        if (!info) {
            return false;
        }
        const std::string_view name(
            reinterpret_cast<const char*>(xcb_randr_get_output_info_name(info.get())),
            static_cast<std::size_t>(xcb_randr_get_output_info_name_length(info.get())));
        return name.starts_with(extensionName);
    });
}

bool isWaylandSession()
{
    return qgetenv("XDG_SESSION_TYPE") == "wayland" || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

/// The user wants an X program although the desktop is none of X.
bool isXWanted()
{
    return qEnvironmentVariable("QT_QPA_PLATFORM").startsWith("xcb"_L1);
}

} // namespace

std::unique_ptr<Platform> X11Platform::connect(QString& whyNot)
{
    // Why the Wayland backend does not work has been said.
    if (isWaylandSession() && !isXWanted()) {
        return nullptr;
    }
    std::unique_ptr<XcbConnection> connection = XcbConnection::open();
    if (!connection) {
        const QString display = qEnvironmentVariable("DISPLAY");
        whyNot =
            display.isEmpty()
                ? u"Tintwick needs a desktop to pick colours from: DISPLAY is not set."_s
                : u"Tintwick needs a desktop to pick colours from: the X server \"%1\" does not answer."_s
                      .arg(display);
        return nullptr;
    }
    if (isInsideWayland(*connection)) {
        const QString limit =
            u"As an X program on a Wayland desktop, Tintwick sees only the windows of X programs."_s;
        if (!isXWanted()) {
            whyNot = limit + u" Set WAYLAND_DISPLAY, or QT_QPA_PLATFORM=xcb to use it so."_s;
            return nullptr;
        }
        std::fputs(qUtf8Printable(limit + u'\n'), stderr);
    }
    const xcb_query_extension_reply_t* render = xcb_get_extension_data(connection->get(), &xcb_render_id);
    if (!render || render->present == 0) {
        whyNot = u"Tintwick needs the RENDER extension, which this X server does not have."_s;
        return nullptr;
    }
    return std::make_unique<X11Platform>(std::move(connection));
}

X11Platform::X11Platform(std::unique_ptr<XcbConnection> connection)
    : m_connection(std::move(connection))
    , m_keymap(*m_connection)
    , m_panelHost(*m_connection)
{
}

void X11Platform::preparePicking()
{
    if (!m_picking) {
        m_picking.emplace(*m_connection, m_keymap);
    }
}

std::unique_ptr<PickingSession> X11Platform::startPick(PickingSession::Listener& listener)
{
    return std::make_unique<X11PickingSession>(*m_picking, listener);
}

PointerBadge* X11Platform::pointerBadge()
{
    return m_badge ? &*m_badge : &m_badge.emplace(*m_connection, m_picking->closedWindows);
}

Tray* X11Platform::tray()
{
    return m_tray ? &*m_tray : &m_tray.emplace(*m_connection);
}

GlobalShortcuts& X11Platform::globalShortcuts()
{
    return m_globalShortcuts ? *m_globalShortcuts : m_globalShortcuts.emplace(*m_connection);
}

KeyboardLayout& X11Platform::keyboardLayout()
{
    return m_keyboardLayout ? *m_keyboardLayout : m_keyboardLayout.emplace(*m_connection, m_keymap);
}

KeyRecording* X11Platform::keyRecording()
{
    return m_keyRecording ? &*m_keyRecording : &m_keyRecording.emplace(*m_connection, m_keymap);
}

// A clipboard manager gets the text from the toolkit when the application object is destroyed.
void X11Platform::keepClipboard()
{
    const auto owner = [this](const char* selection) {
        return m_connection->selectionOwner(m_connection->atom(selection));
    };
    const xcb_window_t copied = owner("CLIPBOARD");
    xcb_connection_t* toolkit = toolkit::connection();
    if (toolkit && isFromClient(copied, *xcb_get_setup(toolkit)) && owner("CLIPBOARD_MANAGER") == XCB_NONE) {
        startClipboardProcess(
            {.text = QGuiApplication::clipboard()->text().toUtf8(), .owner = QByteArray::number(copied)});
    }
}

} // namespace tintwick
