#include "desktop/TintwickProcess.h"

#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <X11/keysym.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace tintwick {

namespace {

void write(const QString& path, const QByteArray& contents)
{
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly) ||
        file.write(contents) != contents.size()) {
        qFatal("cannot write %s", qUtf8Printable(path));
    }
}

bool isDrawn(const QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != picture.pixel(0, 0)) {
                return true;
            }
        }
    }
    return false;
}

// The window has room for the shadows around the loupe: 22 points above and on both sides and 14 below. The loupe is 56
// points higher than wide, so the window is 48 points higher than wide, which reveals the scale.
QRect withoutShadows(const QRect& window)
{
    const double scale = std::round((window.height() - window.width()) / 48.0 * 4) / 4;
    const auto pixels = [scale](double points) { return static_cast<int>(std::lround(points * scale)); };
    return window.adjusted(pixels(22), pixels(22), -pixels(22), -pixels(14));
}

} // namespace

TintwickProcess::TintwickProcess(PrivateDesktop& desktop, const QProcessEnvironment& environment,
                                 const QStringList& arguments)
    : m_desktop(desktop)
    , m_process(desktop.start(QStringLiteral(TINTWICK_PROGRAM), arguments, environment))
{
}

TintwickProcess::TintwickProcess(PrivateDesktop& desktop, const QProcessEnvironment& environment,
                                 const QString& redirections)
    : m_desktop(desktop)
    , m_process(
          desktop.start(QStringLiteral("bash"),
                        {QStringLiteral("-c"), QStringLiteral("exec \"$0\" --background ") + redirections,
                         QStringLiteral(TINTWICK_PROGRAM)},
                        environment))
{
}

bool TintwickProcess::belongsToProgram(xcb_window_t window)
{
    return m_desktop.connection().property(window, "WM_CLASS").toLower().contains("tintwick");
}

xcb_window_t TintwickProcess::trayIconWindow()
{
    DesktopConnection& connection = m_desktop.connection();
    const auto topLevel = connection.children(connection.root());
    for (const xcb_window_t window : connection.tree(connection.root())) {
        // Windows that a window manager put into a frame have WM_STATE.
        const bool isEmbedded = std::find(topLevel.begin(), topLevel.end(), window) == topLevel.end() &&
                                !connection.hasProperty(window, "WM_STATE");
        if (isEmbedded && belongsToProgram(window) && connection.isViewable(window) && !isPanel(window)) {
            return window;
        }
    }
    return XCB_NONE;
}

QRect TintwickProcess::trayIcon()
{
    return m_desktop.connection().geometry(trayIconWindow());
}

bool TintwickProcess::waitForTrayIcon()
{
    // The tray embeds the icon, then grows, and then moves back to its place at the edge. A click before the program has
    // drawn the icon can be lost.
    return waitUntil([this] {
        const QRect icon = trayIcon();
        return icon.width() > 4 && trayInItsPlace().contains(icon) &&
               isDrawn(m_desktop.connection().screenshot(icon));
    });
}

QRect TintwickProcess::trayInItsPlace()
{
    DesktopConnection& connection = m_desktop.connection();
    const QRect screen = m_desktop.screen();
    for (const xcb_window_t window : connection.tree(connection.root())) {
        const QRect place = connection.geometry(window);
        const bool isInItsPlace = std::abs(place.center().x() - screen.center().x()) <= 1 ||
                                  place.left() == screen.left() || place.right() == screen.right();
        if (isInItsPlace && connection.property(window, "WM_CLASS").contains("trayer") &&
            connection.isViewable(window)) {
            return place;
        }
    }
    return {};
}

bool TintwickProcess::isLoupe(xcb_window_t window)
{
    return m_desktop.connection().property(window, "_NET_WM_NAME") == "Tintwick Loupe";
}

bool TintwickProcess::isBadge(xcb_window_t window)
{
    return m_desktop.connection().property(window, "_NET_WM_NAME") == "Tintwick Badge";
}

QRect TintwickProcess::badge()
{
    DesktopConnection& connection = m_desktop.connection();
    for (const xcb_window_t window : connection.children(connection.root())) {
        if (belongsToProgram(window) && connection.isViewable(window) && isBadge(window)) {
            return connection.geometry(window);
        }
    }
    return {};
}

void TintwickProcess::chooseDelayedPick()
{
    m_desktop.typeKey(XK_Down);
    m_desktop.typeKey(XK_Down);
    m_desktop.typeKey(XK_Return);
}

bool TintwickProcess::isSettingsWindow(xcb_window_t window)
{
    return m_desktop.connection().property(window, "_NET_WM_NAME") == "Tintwick Settings";
}

bool TintwickProcess::isPanel(xcb_window_t window)
{
    // The tray icon has the same title; menus have another type.
    DesktopConnection& connection = m_desktop.connection();
    const xcb_atom_t utility = connection.atom("_NET_WM_WINDOW_TYPE_UTILITY");
    return connection.property(window, "_NET_WM_WINDOW_TYPE")
        .startsWith(QByteArray(reinterpret_cast<const char*>(&utility), sizeof(utility)));
}

xcb_window_t TintwickProcess::panelWindow()
{
    DesktopConnection& connection = m_desktop.connection();
    for (const xcb_window_t window : connection.tree(connection.root())) {
        if (belongsToProgram(window) && isPanel(window) && connection.isViewable(window)) {
            return window;
        }
    }
    return XCB_NONE;
}

QRect TintwickProcess::panel()
{
    return m_desktop.connection().geometry(panelWindow());
}

bool TintwickProcess::waitForPanel()
{
    // A window manager may put it into a frame first and then move it.
    return waitUntil([this] {
        const QRect place = panel();
        return !place.isEmpty() && place == panel();
    });
}

bool TintwickProcess::waitForPanelToHide()
{
    return waitUntil([this] { return panel().isEmpty(); });
}

bool TintwickProcess::waitForPanelToHaveFocus()
{
    return waitUntil([this] {
        const xcb_window_t window = panelWindow();
        return window != XCB_NONE && m_desktop.connection().focusedWindow() == window;
    });
}

xcb_window_t TintwickProcess::menu()
{
    DesktopConnection& connection = m_desktop.connection();
    for (const xcb_window_t window : connection.children(connection.root())) {
        if (belongsToProgram(window) && connection.isViewable(window) && !isLoupe(window) &&
            !isBadge(window) && !isPanel(window)) {
            return window;
        }
    }
    return XCB_NONE;
}

QRect TintwickProcess::menuPlace()
{
    return m_desktop.connection().geometry(menu());
}

std::size_t TintwickProcess::visibleWindows()
{
    DesktopConnection& connection = m_desktop.connection();
    const auto windows = connection.children(connection.root());
    return static_cast<std::size_t>(std::count_if(windows.begin(), windows.end(), [&](xcb_window_t window) {
        return belongsToProgram(window) && connection.isViewable(window) && !isBadge(window);
    }));
}

bool TintwickProcess::openMenu()
{
    // A previous pick has ended when the last button is up and the grabs are released.
    DesktopConnection& connection = m_desktop.connection();
    if (!waitForTrayIcon() || !waitUntil([&] { return connection.inputIsFree(); })) {
        return false;
    }
    m_desktop.movePointer(trayIcon().center());
    m_desktop.click(PrivateDesktop::Button::Right);
    // A visible menu reacts to input only when it has grabbed the keyboard.
    return waitUntil([&] { return menu() != XCB_NONE && !connection.keyboardIsFree(); });
}

bool TintwickProcess::openMenuWithoutPointer()
{
    if (!waitForTrayIcon()) {
        return false;
    }
    sendClick(trayIconWindow(), PrivateDesktop::Button::Right, {4, 4});
    return waitUntil([this] { return menu() != XCB_NONE; });
}

void TintwickProcess::clickIconWithoutPointer()
{
    sendClick(trayIconWindow(), PrivateDesktop::Button::Left, {4, 4});
}

void TintwickProcess::choosePickWithoutPointer()
{
    const QRect place = menuPlace();
    sendClick(menu(), PrivateDesktop::Button::Left, {place.width() / 2, place.height() / 7});
}

void TintwickProcess::sendClick(xcb_window_t window, PrivateDesktop::Button button, QPoint position)
{
    DesktopConnection& connection = m_desktop.connection();
    const QPoint onScreen = connection.geometry(window).topLeft() + position;
    xcb_button_press_event_t event{};
    event.detail = static_cast<xcb_button_t>(button);
    event.root = connection.root();
    event.event = window;
    event.root_x = static_cast<std::int16_t>(onScreen.x());
    event.root_y = static_cast<std::int16_t>(onScreen.y());
    event.event_x = static_cast<std::int16_t>(position.x());
    event.event_y = static_cast<std::int16_t>(position.y());
    event.same_screen = 1;
    for (const std::uint8_t type : {std::uint8_t{XCB_BUTTON_PRESS}, std::uint8_t{XCB_BUTTON_RELEASE}}) {
        event.response_type = type;
        event.state = static_cast<std::uint16_t>(type == XCB_BUTTON_PRESS ? 0U : 1U << (7U + event.detail));
        // With an empty mask the event goes to the client that created the window.
        xcb_send_event(connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&event));
    }
    connection.sync();
}

void TintwickProcess::pointAtPick()
{
    // The menu has five items; a ninth of its height is inside the first.
    const QRect place = menuPlace();
    m_desktop.movePointer({place.center().x(), place.top() + place.height() / 9});
}

void TintwickProcess::choosePick(ChosenBy chosenBy)
{
    if (chosenBy == ChosenBy::Keys) {
        m_desktop.typeKey(XK_Down);
        m_desktop.typeKey(XK_Return);
        return;
    }
    pointAtPick();
    m_desktop.click();
}

void TintwickProcess::chooseSettings()
{
    // The fourth of five items.
    const QRect place = menuPlace();
    m_desktop.movePointer({place.center().x(), place.top() + 2 * place.height() / 3});
    m_desktop.click();
}

xcb_window_t TintwickProcess::settingsWindow()
{
    DesktopConnection& connection = m_desktop.connection();
    for (const xcb_window_t window : connection.tree(connection.root())) {
        if (belongsToProgram(window) && connection.isViewable(window) && isSettingsWindow(window)) {
            return window;
        }
    }
    return XCB_NONE;
}

void TintwickProcess::chooseQuit()
{
    m_desktop.typeKey(XK_Up);
    m_desktop.typeKey(XK_Return);
}

std::optional<QRect> TintwickProcess::loupe()
{
    DesktopConnection& connection = m_desktop.connection();
    if (m_loupe == XCB_NONE || !connection.isViewable(m_loupe)) {
        const auto windows = connection.children(connection.root());
        const auto found = std::find_if(windows.rbegin(), windows.rend(), [&](xcb_window_t window) {
            return belongsToProgram(window) && connection.isViewable(window) && isLoupe(window);
        });
        if (found == windows.rend()) {
            return std::nullopt;
        }
        m_loupe = *found;
    }
    const QRect place = connection.geometry(m_loupe);
    return place.isEmpty() ? std::nullopt : std::optional(withoutShadows(place));
}

bool TintwickProcess::waitForLoupe()
{
    return waitUntil([this] { return loupe().has_value(); });
}

bool TintwickProcess::startPicking(ChosenBy chosenBy)
{
    if (!openMenu()) {
        return false;
    }
    choosePick(chosenBy);
    return waitForLoupe();
}

bool TintwickProcess::waitForPickToEnd()
{
    return waitUntil([this] { return !loupe().has_value(); });
}

QRgb TintwickProcess::centerCell()
{
    return cell(0, 0, 0);
}

QRgb TintwickProcess::cell(int column, int row, int radius, double scale)
{
    const auto place = loupe();
    if (!place) {
        return 0;
    }
    // The grid is the square at the top of the loupe; its ring takes 3.5 points on each side.
    constexpr double ringWidth = 3.5;
    const double middle = place->width() / 2.0;
    const double cellSide = (place->width() - 2 * ringWidth * scale) / (2 * radius + 1);
    const QPoint position = place->topLeft() + QPoint(static_cast<int>(middle + column * cellSide),
                                                      static_cast<int>(middle + row * cellSide));
    return m_desktop.screen().contains(position) ? m_desktop.pixel(position) : 0;
}

bool TintwickProcess::waitForCenterCell(QRgb color)
{
    return waitUntil([&] { return centerCell() == color; });
}

bool TintwickProcess::waitForLoupeAt(const QRect& place)
{
    return waitUntil([&] {
        const auto now = loupe();
        return now && std::abs(now->x() - place.x()) <= 1 && std::abs(now->y() - place.y()) <= 1 &&
               now->size() == place.size();
    });
}

QString TintwickProcess::dataFolder() const
{
    return m_desktop.dataHome() + QStringLiteral("/Tintwick");
}

QString TintwickProcess::dataFile() const
{
    return dataFolder() + QStringLiteral("/data.json");
}

QJsonObject TintwickProcess::data() const
{
    QFile file(dataFile());
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

QJsonArray TintwickProcess::history() const
{
    return data().value(QLatin1StringView("history")).toArray();
}

bool TintwickProcess::waitForClipboard(const QByteArray& text)
{
    return waitUntil([&] { return m_desktop.clipboard() == text; });
}

void keepData(const PrivateDesktop& desktop, const QByteArray& json)
{
    write(desktop.dataHome() + QStringLiteral("/Tintwick/data.json"), json);
}

void keepPreferences(const PrivateDesktop& desktop, const QByteArray& lines)
{
    write(desktop.configHome() + QStringLiteral("/Tintwick/Tintwick.conf"), "[General]\n" + lines);
}

QRect loupePlace(QPoint pointer, const QRect& monitor, double scale, int side)
{
    constexpr int pillAndGap = 56;
    constexpr int margin = 4;
    const auto pixels = [scale](double points) { return static_cast<int>(std::lround(points * scale)); };
    const QSize size(pixels(side), pixels(side + pillAndGap));
    const auto place = [&](int middle, int first, int last, int length) {
        return std::max(first + pixels(margin), std::min(last - length - pixels(margin), middle));
    };
    const int x =
        place(pointer.x() - size.width() / 2, monitor.left(), monitor.left() + monitor.width(), size.width());
    const int y =
        place(pointer.y() - size.width() / 2, monitor.top(), monitor.top() + monitor.height(), size.height());
    return {QPoint(x, y), size};
}

QByteArray hexText(QRgb color)
{
    return '#' + QByteArray::number(color & 0xffffffU, 16).rightJustified(6, '0').toUpper();
}

} // namespace tintwick
