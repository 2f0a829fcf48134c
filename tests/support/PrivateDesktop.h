#pragma once

#include "support/DesktopConnection.h"
#include "support/PrivateSession.h"
#include "support/RunningProgram.h"
#include "support/TestWindow.h"

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QProcessEnvironment>
#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace tintwick {

/// A headless desktop: an X server, and on request a window manager, a compositor, a tray and a bus. It has its own
/// home folder; all ends with the object. Positions are pixels from the top left corner of the whole desktop.
class PrivateDesktop final
{
public:
    enum class Compositor : std::uint8_t { None, Plain, WithShadows };

    struct Options
    {
        QSize size{1280, 800};
        int depth = 24;
        bool windowManager = true;
        Compositor compositor = Compositor::None;
        bool tray = true;
        bool sessionBus = false;
    };

    struct Monitor
    {
        QByteArray name;
        QRect geometry;
        bool isPrimary = false;
    };

    enum class Button : std::uint8_t { Left = 1, Middle = 2, Right = 3, WheelUp = 4, WheelDown = 5 };

    /// Returns when all requested programs are ready; throws std::runtime_error that names the one that is not.
    explicit PrivateDesktop(const Options& options);
    ~PrivateDesktop();

    /// The connection that sends the input.
    [[nodiscard]] DesktopConnection& connection() { return *m_connection; }
    [[nodiscard]] QByteArray display() const { return m_display; }
    [[nodiscard]] QRect screen() const { return {QPoint(0, 0), m_options.size}; }

    [[nodiscard]] QString homeFolder() const { return m_session.homeFolder(); }
    /// $XDG_DATA_HOME and $XDG_CONFIG_HOME of the programs started here.
    [[nodiscard]] QString dataHome() const { return m_session.dataHome(); }
    [[nodiscard]] QString configHome() const { return m_session.configHome(); }
    /// The environment of programs started here: this desktop, and nothing of the desktop that runs the tests.
    [[nodiscard]] QProcessEnvironment environment() const { return m_session.environment(); }

    [[nodiscard]] std::unique_ptr<RunningProgram> start(const QString& program,
                                                        const QStringList& arguments = {},
                                                        const QProcessEnvironment& additions = {})
    {
        return m_session.start(program, arguments, additions);
    }
    /// Ends the X server. Only programs that need no display can be used afterwards.
    void endServer();
    /// Stops the session bus, so that it takes no message, until the desktop ends.
    void freezeSessionBus() const { m_session.freezeBus(); }
    /// The clipboard text that another program reads; empty when there is none.
    [[nodiscard]] QByteArray clipboard();
    /// Lets another program own the clipboard with this text, and waits until it does.
    void takeClipboard(const QByteArray& text);

    void movePointer(QPoint position);
    [[nodiscard]] QPoint pointer();
    [[nodiscard]] bool pointerIsVisible();
    void press(Button button);
    void release(Button button);
    void click(Button button = Button::Left);
    void clickAt(QPoint position, Button button = Button::Left);
    /// Turns the wheel by notches; positive is up.
    void scroll(int notches);
    /// Keys are keysyms (XK_Escape, ...).
    void pressKey(xcb_keysym_t key);
    void releaseKey(xcb_keysym_t key);
    /// Presses and releases the key while the others are down.
    void typeKey(xcb_keysym_t key, const std::vector<xcb_keysym_t>& held = {});

    [[nodiscard]] QImage screenshot() { return m_connection->screenshot(screen()); }
    /// The screen, or a part of it, once several pictures in a row are equal: window manager and compositor have
    /// finished.
    [[nodiscard]] QImage settledScreenshot() { return settledScreenshot(screen()); }
    [[nodiscard]] QImage settledScreenshot(const QRect& part);
    [[nodiscard]] QRgb pixel(QPoint position) { return m_connection->pixel(position); }

    /// Covers the whole desktop with the test picture, below everything else.
    [[nodiscard]] std::unique_ptr<TestWindow> showPicture();

    /// Divides the desktop into these monitors. The server's only output belongs to the first, which cannot be
    /// removed.
    void setMonitors(const std::vector<Monitor>& monitors);
    void removeMonitor(const QByteArray& name);

private:
    void startServer();
    void randr(const QStringList& arguments);
    void startHelpers();
    [[nodiscard]] bool windowManagerAnswers();
    [[nodiscard]] bool compositorForgetsDamage();
    [[nodiscard]] bool compositorBlends();
    void showArrowOnRoot();
    void fake(std::uint8_t type, std::uint8_t detail, QPoint position = {});
    [[nodiscard]] xcb_keycode_t keyCode(xcb_keysym_t key);

    Options m_options;
    PrivateSession m_session;
    QByteArray m_display;
    std::vector<std::unique_ptr<RunningProgram>> m_programs;
    std::unique_ptr<DesktopConnection> m_connection;
};

} // namespace tintwick
