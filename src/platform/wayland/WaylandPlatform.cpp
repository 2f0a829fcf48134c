#include "WaylandPlatform.h"

#include "ClipboardProcess.h"
#include "ConnectionLoss.h"
#include "KWinCapture.h"
#include "PortalCapture.h"
#include "ScreencopyCapture.h"
#include "WaylandClipboardService.h"
#include "WaylandPickingSession.h"
#include "WaylandToolkit.h"

#include <QClipboard>
#include <QGuiApplication>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr auto* toolkitVariable = "QT_QPA_PLATFORM";

} // namespace

std::unique_ptr<Platform> WaylandPlatform::connect(QString& whyNot)
{
    const QString toolkit = qEnvironmentVariable(toolkitVariable).section(u':', 0, 0);
    const bool isWanted = toolkit.isEmpty() || toolkit.startsWith("wayland"_L1);
    // Without both, a compositor of the same user may run on another seat.
    const bool isSession =
        qgetenv("XDG_SESSION_TYPE") == "wayland" || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (!isWanted || !isSession) {
        whyNot = u"Tintwick needs a desktop to pick colours from."_s;
        return nullptr;
    }
    std::unique_ptr<WaylandConnection> connection = WaylandConnection::open();
    if (!connection) {
        whyNot = u"Tintwick needs a desktop to pick colours from: no Wayland compositor answers."_s;
        return nullptr;
    }
    return useWaylandToolkit(whyNot) ? std::make_unique<WaylandPlatform>(std::move(connection)) : nullptr;
}

WaylandPlatform::WaylandPlatform(std::unique_ptr<WaylandConnection> connection)
    : m_connection(std::move(connection))
    , m_seat(*m_connection)
{
    QObject::connect(&m_seat, &WaylandSeat::keymapChanged, &m_layout, [this] { readKeymap(); });
}

void WaylandPlatform::preparePicking()
{
    if (m_picking) {
        return;
    }
    m_connection->listen();
    QObject::connect(m_connection.get(), &WaylandConnection::closed, m_connection.get(), [] {
        reportConnectionLoss();
        QCoreApplication::exit(EXIT_FAILURE);
    });
    m_picking.emplace(*m_connection, m_seat, waysToCapture());
}

std::vector<std::unique_ptr<ScreenCapture>> WaylandPlatform::waysToCapture()
{
    std::vector<std::unique_ptr<ScreenCapture>> ways;
    if (auto screencopy = ScreencopyCapture::create(*m_connection)) {
        ways.push_back(std::move(screencopy));
    } else {
        m_screenshots.emplace();
    }
    ways.push_back(std::make_unique<KWinCapture>(*m_connection));
    ways.push_back(std::make_unique<PortalCapture>(*m_connection, m_screenshots ? &*m_screenshots : nullptr));
    return ways;
}

CapturePermission WaylandPlatform::capturePermission() const
{
    if (!m_screenshots || !m_screenshots->isDenied()) {
        return {};
    }
    return {.isGranted = false,
            .openSettings = m_screenshots->hasSettings()
                                ? std::function<void()>(&ScreenshotPermission::openSettings)
                                : nullptr};
}

std::unique_ptr<PickingSession> WaylandPlatform::startPick(PickingSession::Listener& listener)
{
    return std::make_unique<WaylandPickingSession>(*m_picking, listener);
}

PointerBadge* WaylandPlatform::pointerBadge()
{
    if (!m_badge && m_picking->shell.isUsable() && m_picking->shell.layerShell()) {
        m_badge.emplace(*m_picking);
    }
    return m_badge ? &*m_badge : nullptr;
}

GlobalShortcuts& WaylandPlatform::globalShortcuts()
{
    return m_shortcuts ? *m_shortcuts : m_shortcuts.emplace(m_layout);
}

void WaylandPlatform::keepClipboard()
{
    if (!m_picking || !m_picking->clipboard.isAlwaysSettable() || !m_connection->deliverAll()) {
        return;
    }
    const QClipboard& copiedByPanel = *QGuiApplication::clipboard();
    if (m_picking->clipboard.isOwner()) {
        startClipboardProcess({.text = m_picking->clipboard.text(), .owner = waylandClipboardOwner});
    } else if (copiedByPanel.ownsClipboard()) {
        startClipboardProcess({.text = copiedByPanel.text().toUtf8(), .owner = waylandClipboardOwner});
    }
}

void WaylandPlatform::readKeymap()
{
    if (const WaylandKeyboard* keyboard = m_seat.keyboard()) {
        m_layout.setKeymap(keyboard->keymap(), keyboard->group());
    } else {
        m_layout.setKeymap(nullptr, 0);
    }
}

} // namespace tintwick
