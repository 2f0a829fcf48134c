#include "support/wayland/GnomeDesktop.h"

#include "support/WaitUntil.h"

#include <linux/input-event-codes.h>

#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

const QString shell = u"org.gnome.Shell"_s;
const QString inputService = u"org.gnome.Mutter.RemoteDesktop"_s;

void require(bool condition, const char* whatIsMissing)
{
    if (!condition) {
        throw std::runtime_error(whatIsMissing);
    }
}

void write(const QString& path, const QString& text)
{
    QFile file(path);
    require(QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
                file.write(text.toUtf8()) > 0,
            "cannot write a file for GNOME");
}

bool isFractional(const std::vector<WaylandDesktop::Output>& outputs)
{
    return std::any_of(outputs.begin(), outputs.end(),
                       [](const auto& output) { return output.scale != std::floor(output.scale); });
}

} // namespace

GnomeDesktop::GnomeDesktop(const GnomeOptions& options)
    : WaylandDesktop(false)
{
    session().startBus(PrivateSession::Services::Installed);
    static int number = 0;
    m_busName = u"gnome-%1"_s.arg(++number);
    startSystemBus();
    writeConfiguration(options.outputs);
    startCompositor(options.outputs);
    leaveOverview();
    arrangeOutputs(options.outputs);
    for (const Output& output : options.outputs) {
        m_scales.push_back(output.scale);
        m_speeds.push_back(isFractional(options.outputs) ? 1 : output.scale);
    }
    if (!isFractional(options.outputs)) {
        m_shellScale = static_cast<int>(options.outputs.front().scale);
    }
    startInput();
    allowScreenshots(options.screenshots);
    // The end of the shell's start opens it again.
    leaveOverview();
}

GnomeDesktop::~GnomeDesktop()
{
    QDBusConnection::disconnectFromBus(m_busName);
}

void GnomeDesktop::startSystemBus()
{
    const QString address = u"unix:path=%1/system"_s.arg(session().homeFolder());
    const QString configuration = session().homeFolder() + u"/system.conf"_s;
    write(configuration, u"<busconfig><type>system</type><listen>%1</listen><auth>EXTERNAL</auth>"
                         "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
                         "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>"_s.arg(address));
    m_systemBus =
        start(u"dbus-daemon"_s, {u"--config-file="_s + configuration, u"--nofork"_s, u"--print-address=1"_s});
    require(waitUntil([this] { return m_systemBus->standardOutput().endsWith('\n'); }),
            "the system bus does not come up");
    session().setVariable(u"DBUS_SYSTEM_BUS_ADDRESS"_s, address);
}

void GnomeDesktop::writeConfiguration(const std::vector<Output>& outputs)
{
    session().setVariable(u"XDG_CURRENT_DESKTOP"_s, u"GNOME"_s);
    session().setVariable(u"GSETTINGS_BACKEND"_s, u"keyfile"_s);
    const QString features = isFractional(outputs) ? u"'scale-monitor-framebuffer'"_s : QString();
    write(
        session().configHome() + u"/glib-2.0/settings/keyfile"_s,
        u"[org/gnome/mutter]\nexperimental-features=[%1]\n"
        "[org/gnome/shell]\nwelcome-dialog-last-shown-version='99'\n"
        "[org/gnome/desktop/notifications]\nshow-banners=false\n"
        "[org/gnome/desktop/interface]\nenable-animations=false\nenable-hot-corners=false\n"_s.arg(features));
}

void GnomeDesktop::startCompositor(const std::vector<Output>& outputs)
{
    const QString name = u"wayland-test"_s;
    QStringList arguments{u"--headless"_s, u"--no-x11"_s, u"--wayland-display="_s + name};
    for (const Output& output : outputs) {
        arguments << u"--virtual-monitor"_s << u"%1x%2"_s.arg(output.size.width()).arg(output.size.height());
    }
    m_compositor = start(u"gnome-shell"_s, arguments);
    const QString socket = session().environment().value(u"XDG_RUNTIME_DIR"_s) + u'/' + name;
    QDBusConnection bus = QDBusConnection::connectToBus(session().busAddress(), m_busName);
    // The shell lets only some programs take screenshots and gives no answer before it is ready.
    require(bus.registerService(u"org.gnome.Screenshot"_s), "the name of the screenshot program is taken");
    require(waitUntil([&] {
                return QFile::exists(socket) &&
                       call(shell, u"/org/gnome/Shell"_s, u"org.freedesktop.DBus.Peer.Ping"_s).type() ==
                           QDBusMessage::ReplyMessage;
            }),
            "GNOME Shell does not come up");
    connectTo(QFile::encodeName(socket));
    require(waitUntil([&] { return outputCount() == outputs.size(); }), "GNOME Shell has too few outputs");
    // What the bus starts later gets the variables of this session.
    QStringList variables;
    for (const QString& variable : session().environment().keys()) {
        variables << variable + u'=' + session().environment().value(variable);
    }
    require(start(u"dbus-update-activation-environment"_s, variables)->waitForEnd() == 0,
            "the bus does not take variables");
}

void GnomeDesktop::leaveOverview()
{
    const QString properties = u"org.freedesktop.DBus.Properties."_s;
    const QString path = u"/org/gnome/Shell"_s;
    const QString overview = u"OverviewActive"_s;
    require(waitUntil([&] {
                call(shell, path, properties + u"Set"_s,
                     {shell, overview, QVariant::fromValue(QDBusVariant(false))});
                const QDBusMessage reply = call(shell, path, properties + u"Get"_s, {shell, overview});
                return !reply.arguments().isEmpty() &&
                       !reply.arguments().at(0).value<QDBusVariant>().variant().toBool();
            }),
            "GNOME Shell does not leave its overview");
}

void GnomeDesktop::arrangeOutputs(const std::vector<Output>& outputs)
{
    const QString service = u"org.gnome.Mutter.DisplayConfig"_s;
    const QString path = u"/org/gnome/Mutter/DisplayConfig"_s;
    const uint serial = call(service, path, service + u".GetCurrentState"_s).arguments().value(0).toUInt();
    QStringList monitors;
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        const Output& output = outputs[i];
        monitors << u"(%1, %2, %3, uint32 0, %4, [('Meta-%5', '%6x%7@60.000', @a{sv} {})])"_s
                        .arg(output.position.x())
                        .arg(output.position.y())
                        .arg(output.scale, 0, 'f', 2)
                        .arg(i == 0 ? u"true"_s : u"false"_s)
                        .arg(i)
                        .arg(output.size.width())
                        .arg(output.size.height());
    }
    const auto program =
        start(u"gdbus"_s, {u"call"_s, u"--session"_s, u"--dest"_s, service, u"--object-path"_s, path,
                           u"--method"_s, service + u".ApplyMonitorsConfig"_s, QString::number(serial),
                           u"1"_s, u'[' + monitors.join(u", "_s) + u']', u"{}"_s});
    if (program->waitForEnd() != 0) {
        throw std::runtime_error("GNOME Shell does not arrange its outputs: " +
                                 program->standardError().toStdString());
    }
    require(waitUntil([&] {
                for (std::size_t i = 0; i < outputs.size(); ++i) {
                    if (outputPlace(i).topLeft() != outputs[i].position) {
                        return false;
                    }
                }
                return true;
            }),
            "GNOME Shell has not arranged its outputs");
}

void GnomeDesktop::startInput()
{
    const QDBusMessage reply =
        call(inputService, u"/org/gnome/Mutter/RemoteDesktop"_s, inputService + u".CreateSession"_s);
    m_inputSession = reply.arguments().value(0).value<QDBusObjectPath>().path();
    require(!m_inputSession.isEmpty(), "GNOME Shell does not let the test send input");
    sendInput(u"Start"_s, {});
    // The seat has a keyboard from the first key on.
    setKey(KEY_LEFTSHIFT, true);
    setKey(KEY_LEFTSHIFT, false);
}

void GnomeDesktop::movePointerToCorner()
{
    constexpr double far = -10000;
    sendInput(u"NotifyPointerMotionRelative"_s, {far, 0.0});
    sendInput(u"NotifyPointerMotionRelative"_s, {0.0, far});
}

void GnomeDesktop::allowScreenshots(Screenshots answer)
{
    if (answer == Screenshots::NotAsked) {
        return;
    }
    const QString store = u"org.freedesktop.impl.portal.PermissionStore"_s;
    const QStringList text{answer == Screenshots::Allowed ? u"yes"_s : u"no"_s};
    const QDBusMessage reply =
        call(store, u"/org/freedesktop/impl/portal/PermissionStore"_s, store + u".SetPermission"_s,
             {u"screenshot"_s, true, u"screenshot"_s, QString(), text});
    if (reply.type() != QDBusMessage::ReplyMessage) {
        throw std::runtime_error("there is no store of permissions: " + reply.errorMessage().toStdString());
    }
}

QDBusMessage GnomeDesktop::call(const QString& service, const QString& path, const QString& method,
                                const QVariantList& arguments)
{
    const qsizetype dot = method.lastIndexOf(u'.');
    QDBusMessage message =
        QDBusMessage::createMethodCall(service, path, method.first(dot), method.sliced(dot + 1));
    message.setArguments(arguments);
    return QDBusConnection(m_busName).call(message);
}

void GnomeDesktop::sendInput(const QString& method, const QVariantList& arguments)
{
    const QDBusMessage reply =
        call(inputService, m_inputSession, inputService + u".Session."_s + method, arguments);
    if (reply.type() != QDBusMessage::ReplyMessage) {
        throw std::runtime_error("GNOME Shell does not take input: " + reply.errorMessage().toStdString());
    }
}

QImage GnomeDesktop::screenshot(std::size_t index)
{
    const QString file = session().homeFolder() + u"/screenshot.png"_s;
    const QRect place = outputPlace(index);
    call(shell + u".Screenshot"_s, u"/org/gnome/Shell/Screenshot"_s, shell + u".Screenshot.ScreenshotArea"_s,
         {place.x() / m_shellScale, place.y() / m_shellScale, place.width() / m_shellScale,
          place.height() / m_shellScale, false, file});
    const QImage picture(file);
    QFile::remove(file);
    return picture.convertToFormat(QImage::Format_RGB32);
}

void GnomeDesktop::movePointerTo(QPointF position)
{
    // From the corner, because each way across two outputs is rounded.
    movePointerToCorner();
    // A barrier beside the top bar holds the pointer, so it crosses the outputs in the middle of their height.
    const double middle = desktop().center().y();
    moveDown(middle / pointerSpeed(0));
    sendInput(u"NotifyPointerMotionRelative"_s, {stepsTo(position.x()), 0.0});
    moveDown((position.y() - middle) / pointerSpeed(position.x()));
}

void GnomeDesktop::moveDown(double distance)
{
    sendInput(u"NotifyPointerMotionRelative"_s, {0.0, distance});
}

double GnomeDesktop::pointerSpeed(double x)
{
    std::size_t index = 0;
    while (index + 1 < m_speeds.size() && x >= outputPlace(index + 1).left()) {
        ++index;
    }
    return m_speeds.at(index);
}

double GnomeDesktop::stepsTo(double x)
{
    double steps = 0;
    for (std::size_t i = 0; i < m_speeds.size(); ++i) {
        const QRect place = outputPlace(i);
        steps += std::clamp(x - place.left(), 0.0, static_cast<double>(place.width())) / m_speeds[i];
    }
    return steps;
}

void GnomeDesktop::setButton(std::uint32_t button, bool isDown)
{
    sendInput(u"NotifyPointerButton"_s, {static_cast<int>(button), isDown});
}

void GnomeDesktop::setKey(std::uint32_t key, bool isDown)
{
    sendInput(u"NotifyKeyboardKeycode"_s, {key, isDown});
}

void GnomeDesktop::scroll(int notches)
{
    constexpr uint vertical = 0;
    sendInput(u"NotifyPointerAxisDiscrete"_s, {vertical, -notches});
}

} // namespace tintwick
