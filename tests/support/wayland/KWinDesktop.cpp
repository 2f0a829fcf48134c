#include "support/wayland/KWinDesktop.h"

#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusUnixFileDescriptor>
#include <QDir>
#include <QFile>
#include <QVariantMap>

#include <array>
#include <cmath>
#include <cstdlib>
#include <stdexcept>

#include <unistd.h>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

void require(bool condition, const char* whatIsMissing)
{
    if (!condition) {
        throw std::runtime_error(whatIsMissing);
    }
}

QByteArray readToTheEnd(int file, qsizetype expected)
{
    QByteArray bytes;
    bytes.reserve(expected);
    std::array<char, 1 << 16> part{};
    ssize_t count = 0;
    while ((count = ::read(file, part.data(), part.size())) > 0) {
        bytes.append(part.data(), count);
    }
    ::close(file);
    return bytes;
}

} // namespace

KWinDesktop::KWinDesktop(const KWinOptions& options)
    : WaylandDesktop(true)
{
    static int number = 0;
    m_busName = u"kwin-%1"_s.arg(++number);
    installEntries(options.mayTakeScreenshots + QStringList{QCoreApplication::applicationFilePath()});
    writeConfiguration();
    startCompositor(options);
    m_input = client().bind<org_kde_kwin_fake_input, Input>(org_kde_kwin_fake_input_interface, 4);
    require(m_input != nullptr, "KWin does not let the test send input");
    org_kde_kwin_fake_input_authenticate(m_input.get(), "test", "input of the test");
    arrangeOutputs(options.outputs);
}

KWinDesktop::~KWinDesktop()
{
    QDBusConnection::disconnectFromBus(m_busName);
}

void KWinDesktop::installEntries(const QStringList& programs)
{
    const QString folder = session().dataHome() + u"/applications"_s;
    QDir().mkpath(folder);
    for (qsizetype i = 0; i < programs.size(); ++i) {
        QFile file(u"%1/program%2.desktop"_s.arg(folder).arg(i));
        const QString text = u"[Desktop Entry]\nType=Application\nName=Program\nExec=%1\n"
                             "X-KDE-DBUS-Restricted-Interfaces=org.kde.KWin.ScreenShot2\n"_s;
        require(file.open(QIODevice::WriteOnly) && file.write(text.arg(programs[i]).toUtf8()) > 0,
                "cannot install a desktop entry");
    }
}

void KWinDesktop::writeConfiguration()
{
    // A pointer at an edge of the screen starts effects there.
    QFile file(session().configHome() + u"/kwinrc"_s);
    require(file.open(QIODevice::WriteOnly) && file.write("[Plugins]\n"
                                                          "screenedgeEnabled=false\n"
                                                          "[Effect-overview]\n"
                                                          "BorderActivate=9\n"
                                                          "[Effect-windowview]\n"
                                                          "BorderActivateAll=9\n") > 0,
            "cannot write the configuration of KWin");
}

void KWinDesktop::startCompositor(const KWinOptions& options)
{
    // A container may forbid the capability of the installed file.
    const QString folder = session().homeFolder() + u"/bin"_s;
    const QString program = folder + u"/kwin_wayland"_s;
    QDir().mkpath(folder);
    require(QFile::copy(u"/usr/bin/kwin_wayland"_s, program), "there is no kwin_wayland");

    session().setVariable(u"XDG_CURRENT_DESKTOP"_s, u"KDE"_s);
    // The menu that makes desktop entries known.
    session().setVariable(u"XDG_MENU_PREFIX"_s, u"kf5-"_s);
    QProcessEnvironment additions;
    // Of the protocols only, not of the screenshots.
    additions.insert(u"KWIN_WAYLAND_NO_PERMISSION_CHECKS"_s, u"1"_s);
    additions.insert(u"QT_FORCE_STDERR_LOGGING"_s, u"1"_s);
    const QSize size = options.outputs.front().size;
    m_compositor = start(program,
                         {u"--virtual"_s, u"--no-lockscreen"_s, u"--width"_s, QString::number(size.width()),
                          u"--height"_s, QString::number(size.height()), u"--output-count"_s,
                          QString::number(options.outputs.size()), u"--socket"_s, u"wayland-test"_s},
                         additions);
    const QString socket = session().environment().value(u"XDG_RUNTIME_DIR"_s) + u"/wayland-test"_s;
    const auto bus = QDBusConnection::connectToBus(session().busAddress(), m_busName);
    QDBusMessage ping = QDBusMessage::createMethodCall(u"org.kde.KWin"_s, u"/org/kde/KWin/ScreenShot2"_s,
                                                       u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
    ping.setAutoStartService(false);
    require(waitUntil(
                [&] { return QFile::exists(socket) && bus.call(ping).type() == QDBusMessage::ReplyMessage; }),
            "KWin does not come up");
    connectTo(QFile::encodeName(socket));
    require(waitUntil([&] { return outputCount() == options.outputs.size(); }), "KWin has too few outputs");
}

void KWinDesktop::arrangeOutputs(const std::vector<Output>& outputs)
{
    QStringList arguments;
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        const QString name = u"output.Virtual-%1."_s.arg(i);
        const QPoint position = outputs[i].position;
        arguments << name + u"scale.%1"_s.arg(outputs[i].scale)
                  << name + u"position.%1,%2"_s.arg(position.x()).arg(position.y());
    }
    QProcessEnvironment additions;
    additions.insert(u"KSCREEN_BACKEND"_s, u"kwayland"_s);
    additions.insert(u"KSCREEN_BACKEND_INPROCESS"_s, u"1"_s);
    additions.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
    const auto doctor = start(u"kscreen-doctor"_s, arguments, additions);
    require(doctor->waitForEnd() == 0, "KWin does not arrange its outputs");
    require(waitUntil([&] {
                for (std::size_t i = 0; i < outputs.size(); ++i) {
                    const QSize logical = outputs[i].size / outputs[i].scale;
                    if (outputPlace(i) != QRect(outputs[i].position, logical) ||
                        screenshot(i).size() != outputs[i].size) {
                        return false;
                    }
                }
                return true;
            }),
            "KWin has not arranged its outputs");
}

QImage KWinDesktop::screenshot(std::size_t index)
{
    std::array<int, 2> ends{};
    require(::pipe(ends.data()) == 0, "no pipe");
    QDBusMessage question = QDBusMessage::createMethodCall(u"org.kde.KWin"_s, u"/org/kde/KWin/ScreenShot2"_s,
                                                           u"org.kde.KWin.ScreenShot2"_s, u"CaptureScreen"_s);
    question << QString::fromUtf8(output(index).name) << QVariantMap{{u"native-resolution"_s, true}}
             << QVariant::fromValue(QDBusUnixFileDescriptor(ends[1]));
    ::close(ends[1]);
    const QDBusReply<QVariantMap> reply = QDBusConnection(m_busName).call(question);
    question = {};
    const QVariantMap picture = reply.isValid() ? reply.value() : QVariantMap();
    const int height = picture.value(u"height"_s).toInt();
    const int stride = picture.value(u"stride"_s).toInt();
    const qsizetype length = qsizetype{stride} * height;
    const QByteArray pixels = readToTheEnd(ends[0], length);
    if (!reply.isValid() || pixels.size() != length) {
        return {};
    }
    return QImage(reinterpret_cast<const uchar*>(pixels.constData()), picture.value(u"width"_s).toInt(),
                  height, stride, static_cast<QImage::Format>(picture.value(u"format"_s).toInt()))
        .convertToFormat(QImage::Format_RGB32);
}

void KWinDesktop::movePointerTo(QPointF position)
{
    // This version reports moves in whole units, rounded.
    org_kde_kwin_fake_input_pointer_motion_absolute(m_input.get(),
                                                    wl_fixed_from_double(std::floor(position.x())),
                                                    wl_fixed_from_double(std::floor(position.y())));
    client().synchronize();
}

void KWinDesktop::setButton(std::uint32_t button, bool isDown)
{
    org_kde_kwin_fake_input_button(m_input.get(), button, isDown ? 1 : 0);
    client().synchronize();
}

void KWinDesktop::setKey(std::uint32_t key, bool isDown)
{
    org_kde_kwin_fake_input_keyboard_key(m_input.get(), key, isDown ? 1 : 0);
    client().synchronize();
}

void KWinDesktop::scroll(int notches)
{
    constexpr int unitsOfNotch = 15;
    const int down = notches > 0 ? -1 : 1;
    for (int i = 0; i < std::abs(notches); ++i) {
        org_kde_kwin_fake_input_axis(m_input.get(), 0, wl_fixed_from_int(unitsOfNotch * down));
    }
    client().synchronize();
}

} // namespace tintwick
