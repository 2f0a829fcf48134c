#include "X11Screens.h"

#include "RenderFormats.h"

#include <QGuiApplication>
#include <QScreen>

#include <xcb/randr.h>

#include <algorithm>
#include <bit>

namespace tintwick {

namespace {

double scaleOfScreen(const QString& name)
{
    if (!qGuiApp) {
        return 1;
    }
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto named = std::find_if(screens.begin(), screens.end(),
                                    [&](const QScreen* screen) { return screen->name() == name; });
    return named != screens.end() ? (*named)->devicePixelRatio() : qGuiApp->devicePixelRatio();
}

QString atomName(xcb_connection_t* c, xcb_get_atom_name_cookie_t cookie)
{
    const XcbReply<xcb_get_atom_name_reply_t> reply(xcb_get_atom_name_reply(c, cookie, nullptr));
    return reply ? QString::fromUtf8(xcb_get_atom_name_name(reply.get()),
                                     xcb_get_atom_name_name_length(reply.get()))
                 : QString();
}

std::vector<X11Screen> wholeRoot(const XcbConnection& connection)
{
    xcb_connection_t* c = connection.get();
    const XcbReply<xcb_get_geometry_reply_t> root(
        xcb_get_geometry_reply(c, xcb_get_geometry(c, connection.root()), nullptr));
    if (!root) {
        return {};
    }
    return {X11Screen{QRect(0, 0, root->width, root->height), scaleOfScreen({})}};
}

} // namespace

std::vector<X11Screen> queryScreens(const XcbConnection& connection)
{
    xcb_connection_t* c = connection.get();
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(c, &xcb_randr_id);
    if (!extension || extension->present == 0) {
        return wholeRoot(connection);
    }
    const XcbReply<xcb_randr_get_monitors_reply_t> reply(
        xcb_randr_get_monitors_reply(c, xcb_randr_get_monitors(c, connection.root(), 1), nullptr));
    if (!reply) {
        return wholeRoot(connection);
    }

    std::vector<xcb_get_atom_name_cookie_t> nameCookies;
    std::vector<const xcb_randr_monitor_info_t*> monitors;
    for (auto monitor = xcb_randr_get_monitors_monitors_iterator(reply.get()); monitor.rem > 0;
         xcb_randr_monitor_info_next(&monitor)) {
        monitors.push_back(monitor.data);
        nameCookies.push_back(xcb_get_atom_name(c, monitor.data->name));
    }
    std::vector<X11Screen> screens;
    for (std::size_t i = 0; i < monitors.size(); ++i) {
        const xcb_randr_monitor_info_t& monitor = *monitors[i];
        const double scale = scaleOfScreen(atomName(c, nameCookies[i]));
        if (monitor.width == 0 || monitor.height == 0) {
            continue;
        }
        const QRect frame(monitor.x, monitor.y, monitor.width, monitor.height);
        const auto place = monitor.primary != 0 ? screens.begin() : screens.end();
        screens.insert(place, X11Screen{frame, scale});
    }
    return screens;
}

int bitsPerChannel(const XcbConnection& connection)
{
    constexpr int usual = 8;
    const xcb_render_pictforminfo_t* format =
        formatOfVisual(connection.get(), connection.screen().root_visual);
    return format ? std::popcount(format->direct.red_mask) : usual;
}

} // namespace tintwick
