#include "support/PrivateDesktop.h"

#include "support/Pattern.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QVersionNumber>

#include <xcb/xfixes.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <stdexcept>

namespace tintwick {

namespace {

void require(bool condition, const char* whatIsMissing)
{
    if (!condition) {
        throw std::runtime_error(whatIsMissing);
    }
}

} // namespace

PrivateDesktop::PrivateDesktop(const Options& options)
    : m_options(options)
{
    startServer();
    startHelpers();
}

PrivateDesktop::~PrivateDesktop()
{
    m_connection.reset();
    // End the server last: the other programs would print errors when their connection breaks.
    while (!m_programs.empty()) {
        m_programs.pop_back();
    }
}

void PrivateDesktop::startServer()
{
    const QString screen = QStringLiteral("%1x%2x%3")
                               .arg(m_options.size.width())
                               .arg(m_options.size.height())
                               .arg(m_options.depth);
    m_programs.push_back(std::make_unique<RunningProgram>(
        QStringLiteral("Xvfb"),
        QStringList{QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                    QStringLiteral("0"), screen, QStringLiteral("-nolisten"), QStringLiteral("tcp"),
                    QStringLiteral("-noreset"), QStringLiteral("+extension"), QStringLiteral("COMPOSITE"),
                    QStringLiteral("+extension"), QStringLiteral("DAMAGE"), QStringLiteral("+extension"),
                    QStringLiteral("RANDR"), QStringLiteral("+extension"), QStringLiteral("XTEST")},
        QProcessEnvironment::systemEnvironment(), m_session.homeFolder()));
    const RunningProgram& server = *m_programs.back();
    require(waitUntil([&] { return server.standardOutput().endsWith('\n'); }), "Xvfb does not come up");
    m_display = ':' + server.standardOutput().trimmed();
    m_session.setVariable(QStringLiteral("DISPLAY"), QString::fromLatin1(m_display));
    m_connection = std::make_unique<DesktopConnection>(m_display);

    xcb_connection_t* connection = m_connection->get();
    const ServerReply<xcb_test_get_version_reply_t> test(
        xcb_test_get_version_reply(connection, xcb_test_get_version(connection, 2, 2), nullptr));
    const ServerReply<xcb_xfixes_query_version_reply_t> fixes(
        xcb_xfixes_query_version_reply(connection, xcb_xfixes_query_version(connection, 5, 0), nullptr));
    require(test && fixes, "the X server lacks an extension");
    showArrowOnRoot();
}

// Without a cursor on the root window the server shows no pointer, and a hidden one could not be recognised.
void PrivateDesktop::showArrowOnRoot()
{
    constexpr std::uint16_t leftPointer = 68;
    xcb_connection_t* connection = m_connection->get();
    const xcb_font_t font = m_connection->newId();
    xcb_open_font(connection, font, 6, "cursor");
    const xcb_cursor_t arrow = m_connection->newId();
    xcb_create_glyph_cursor(connection, arrow, font, font, leftPointer, leftPointer + 1, 0, 0, 0, 0xffff,
                            0xffff, 0xffff);
    xcb_change_window_attributes(connection, m_connection->root(), XCB_CW_CURSOR, &arrow);
    xcb_free_cursor(connection, arrow);
    xcb_close_font(connection, font);
    m_connection->sync();
}

void PrivateDesktop::startHelpers()
{
    if (m_options.sessionBus) {
        m_session.startBus();
    }
    if (m_options.windowManager) {
        m_programs.push_back(start(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")}));
        require(waitUntil([this] {
                    return m_connection->hasProperty(m_connection->root(), "_NET_SUPPORTING_WM_CHECK");
                }),
                "openbox does not come up");
        require(windowManagerAnswers(), "openbox does not answer");
    }
    if (m_options.compositor != Compositor::None) {
        QStringList arguments{QStringLiteral("--backend"), QStringLiteral("xrender"),
                              QStringLiteral("--config"), QStringLiteral("/dev/null"),
                              QStringLiteral("--no-fading-openclose")};
        if (m_options.compositor == Compositor::WithShadows) {
            arguments << QStringLiteral("--shadow");
        }
        if (compositorForgetsDamage()) {
            // Frames that wait for each other would be delayed for seconds while a client draws without pause.
            arguments << QStringLiteral("--no-use-damage") << QStringLiteral("--no-frame-pacing");
        }
        m_programs.push_back(start(QStringLiteral("picom"), arguments));
        require(waitUntil([this] { return m_connection->selectionOwner("_NET_WM_CM_S0") != XCB_NONE; }),
                "picom does not come up");
        require(compositorBlends(), "picom does not blend");
    }
    if (m_options.tray) {
        m_programs.push_back(
            start(QStringLiteral("trayer"),
                  {QStringLiteral("--edge"), QStringLiteral("top"), QStringLiteral("--align"),
                   QStringLiteral("center"), QStringLiteral("--widthtype"), QStringLiteral("request"),
                   QStringLiteral("--height"), QStringLiteral("24")}));
        require(waitUntil([this] { return m_connection->selectionOwner("_NET_SYSTEM_TRAY_S0") != XCB_NONE; }),
                "trayer does not come up");
    }
}

// A window manager announces itself before it selects events. It may process earlier requests only at the
// next event.
bool PrivateDesktop::windowManagerAnswers()
{
    const TestWindow probe(*m_connection, {.management = TestWindow::Management::Managed});
    return waitUntil([&] {
        xcb_client_message_event_t request{};
        request.response_type = XCB_CLIENT_MESSAGE;
        request.format = 32;
        request.window = probe.id();
        request.type = m_connection->atom("_NET_REQUEST_FRAME_EXTENTS");
        xcb_send_event(m_connection->get(), 0, m_connection->root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&request));
        return m_connection->hasProperty(probe.id(), "_NET_FRAME_EXTENTS");
    });
}

// picom 12 sometimes shows a part of a window that it did not repaint, and the old pixels stay on the screen. It does not
// when it repaints the whole screen for each frame. The tests need that only where it is necessary, because otherwise
// the damage that a compositor reports for parts of the screen would not be tested.
bool PrivateDesktop::compositorForgetsDamage()
{
    const auto program = start(QStringLiteral("picom"), {QStringLiteral("--version")});
    require(program->waitForEnd() == 0, "picom does not print its version");
    const QString version = QString::fromLatin1(program->standardOutput()).remove(u'v');
    return QVersionNumber::fromString(version) >= QVersionNumber(12);
}

// A compositor also takes its selection before it processes events.
bool PrivateDesktop::compositorBlends()
{
    const QRect place(0, 0, 8, 8);
    TestWindow ground(*m_connection, {.geometry = place});
    ground.setColor(Qt::red);
    ground.show();
    TestWindow glass(*m_connection, {.geometry = place, .visual = TestWindow::Visual::Translucent});
    glass.show();
    return waitUntil([&] {
        glass.setColor(QColor(0, 0, 255, 128));
        const QRgb seen = pixel(place.center());
        return qRed(seen) > 0 && qBlue(seen) > 0;
    });
}

void PrivateDesktop::endServer()
{
    // Its destructor lets the server remove its socket and lock.
    m_programs.erase(m_programs.begin());
}

QByteArray PrivateDesktop::clipboard()
{
    const auto reader = start(QStringLiteral("xclip"), {QStringLiteral("-selection"),
                                                        QStringLiteral("clipboard"), QStringLiteral("-o")});
    return reader->waitForEnd() ? reader->standardOutput() : QByteArray();
}

void PrivateDesktop::takeClipboard(const QByteArray& text)
{
    QFile file(homeFolder() + QStringLiteral("/clipboard.txt"));
    require(file.open(QIODevice::WriteOnly), "cannot write the text for the clipboard");
    file.write(text);
    file.close();
    const xcb_window_t before = m_connection->selectionOwner("CLIPBOARD");
    m_programs.push_back(
        start(QStringLiteral("xclip"), {QStringLiteral("-quiet"), QStringLiteral("-selection"),
                                        QStringLiteral("clipboard"), file.fileName()}));
    require(waitUntil([&] {
                const xcb_window_t owner = m_connection->selectionOwner("CLIPBOARD");
                return owner != XCB_NONE && owner != before;
            }),
            "xclip does not take the clipboard");
}

void PrivateDesktop::fake(std::uint8_t type, std::uint8_t detail, QPoint position)
{
    xcb_test_fake_input(m_connection->get(), type, detail, XCB_CURRENT_TIME, m_connection->root(),
                        static_cast<std::int16_t>(position.x()), static_cast<std::int16_t>(position.y()), 0);
    m_connection->sync();
}

void PrivateDesktop::movePointer(QPoint position)
{
    constexpr std::uint8_t absolute = 0;
    fake(XCB_MOTION_NOTIFY, absolute, position);
}

QPoint PrivateDesktop::pointer()
{
    const ServerReply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        m_connection->get(), xcb_query_pointer(m_connection->get(), m_connection->root()), nullptr));
    require(reply != nullptr, "the X server does not say where the pointer is");
    return {reply->root_x, reply->root_y};
}

bool PrivateDesktop::pointerIsVisible()
{
    const ServerReply<xcb_xfixes_get_cursor_image_reply_t> reply(xcb_xfixes_get_cursor_image_reply(
        m_connection->get(), xcb_xfixes_get_cursor_image(m_connection->get()), nullptr));
    if (!reply) {
        return false;
    }
    const auto* first = xcb_xfixes_get_cursor_image_cursor_image(reply.get());
    return std::any_of(first, first + xcb_xfixes_get_cursor_image_cursor_image_length(reply.get()),
                       [](std::uint32_t pixel) { return (pixel >> 24U) != 0; });
}

void PrivateDesktop::press(Button button)
{
    fake(XCB_BUTTON_PRESS, static_cast<std::uint8_t>(button));
}

void PrivateDesktop::release(Button button)
{
    fake(XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button));
}

void PrivateDesktop::click(Button button)
{
    press(button);
    release(button);
}

void PrivateDesktop::clickAt(QPoint position, Button button)
{
    movePointer(position);
    click(button);
}

void PrivateDesktop::scroll(int notches)
{
    for (int i = 0; i < std::abs(notches); ++i) {
        click(notches > 0 ? Button::WheelUp : Button::WheelDown);
    }
}

xcb_keycode_t PrivateDesktop::keyCode(xcb_keysym_t key)
{
    const auto* setup = xcb_get_setup(m_connection->get());
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const ServerReply<xcb_get_keyboard_mapping_reply_t> reply(xcb_get_keyboard_mapping_reply(
        m_connection->get(), xcb_get_keyboard_mapping(m_connection->get(), setup->min_keycode, count),
        nullptr));
    require(reply != nullptr, "the X server has no keyboard");
    const auto* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (int i = 0; i < count; ++i) {
        if (symbols[i * reply->keysyms_per_keycode] == key) {
            return static_cast<xcb_keycode_t>(setup->min_keycode + i);
        }
    }
    throw std::runtime_error("no key types this symbol");
}

void PrivateDesktop::pressKey(xcb_keysym_t key)
{
    fake(XCB_KEY_PRESS, keyCode(key));
}

void PrivateDesktop::releaseKey(xcb_keysym_t key)
{
    fake(XCB_KEY_RELEASE, keyCode(key));
}

void PrivateDesktop::typeKey(xcb_keysym_t key, const std::vector<xcb_keysym_t>& held)
{
    std::for_each(held.begin(), held.end(), [this](xcb_keysym_t modifier) { pressKey(modifier); });
    pressKey(key);
    releaseKey(key);
    std::for_each(held.rbegin(), held.rend(), [this](xcb_keysym_t modifier) { releaseKey(modifier); });
}

QImage PrivateDesktop::settledScreenshot(const QRect& part)
{
    constexpr int enough = 30;
    QImage last = m_connection->screenshot(part);
    int alike = 0;
    require(waitUntil([&] {
                QImage next = m_connection->screenshot(part);
                alike = next == last ? alike + 1 : 0;
                last = std::move(next);
                return alike == enough;
            }),
            "the screen does not come to rest");
    return last;
}

std::unique_ptr<TestWindow> PrivateDesktop::showPicture()
{
    auto window = std::make_unique<TestWindow>(*m_connection, TestWindow::Options{.geometry = screen()});
    window->setPicture(patternImage(screen()));
    window->lower();
    window->show();
    const QPoint corner(m_options.size.width() - 1, m_options.size.height() - 1);
    require(waitUntil([&] { return pixel(corner) == patternPixel(corner.x(), corner.y()); }),
            "the picture does not come up");
    return window;
}

void PrivateDesktop::setMonitors(const std::vector<Monitor>& monitors)
{
    constexpr int millimetres = 300;
    QString output = QStringLiteral("screen");
    for (const Monitor& monitor : monitors) {
        const QRect& place = monitor.geometry;
        randr({QStringLiteral("--setmonitor"),
               QLatin1StringView(monitor.isPrimary ? "*" : "") + QString::fromLatin1(monitor.name),
               QStringLiteral("%1/%2x%3/%2+%4+%5")
                   .arg(place.width())
                   .arg(millimetres)
                   .arg(place.height())
                   .arg(place.x())
                   .arg(place.y()),
               output});
        output = QStringLiteral("none");
    }
}

void PrivateDesktop::removeMonitor(const QByteArray& name)
{
    randr({QStringLiteral("--delmonitor"), QString::fromLatin1(name)});
}

void PrivateDesktop::randr(const QStringList& arguments)
{
    const auto xrandr = start(QStringLiteral("xrandr"), arguments);
    require(xrandr->waitForEnd() == 0, "xrandr does not change the monitors");
}

} // namespace tintwick
