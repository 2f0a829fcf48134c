#include "Application.h"

#include "Appearance.h"
#include "CapturedColor.h"
#include "ClickMonitor.h"
#include "ColorExport.h"
#include "DesktopSettings.h"
#include "MenuItemsOf.h"
#include "PanelPlacement.h"
#include "PanelView.h"
#include "SettingsScreen.h"
#include "SettingsWindow.h"
#include "ShortcutNames.h"
#include "Theme.h"
#include "Ticker.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>
#include <QStyleHints>
#include <QThreadPool>
#include <QTimer>

#include <chrono>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr std::chrono::milliseconds preparationDelay{400};
constexpr int threadExpiry = 500; // milliseconds

std::optional<Scheme> preferredScheme(const DesktopSettings& desktop)
{
    const std::optional<bool> prefersDark = desktop.prefersDark();
    return prefersDark ? std::optional(*prefersDark ? Scheme::Dark : Scheme::Light) : std::nullopt;
}

QList<PanelScreen> panelScreens()
{
    QList<PanelScreen> screens;
    const QScreen* primary = QGuiApplication::primaryScreen();
    for (const QScreen* screen : QGuiApplication::screens()) {
        const PanelScreen panelScreen{screen->geometry(), screen->availableGeometry()};
        if (screen == primary) {
            screens.prepend(panelScreen);
        } else {
            screens.append(panelScreen);
        }
    }
    return screens;
}

} // namespace

void Application::setUpToolkit()
{
    QApplication::setOrganizationName(u"Tintwick"_s);
    QApplication::setApplicationName(u"Tintwick"_s);
    QApplication::setApplicationVersion(QStringLiteral(TINTWICK_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    // Painting uses these threads. By default each of them wakes up 30 seconds later to exit.
    QThreadPool::globalInstance()->setExpiryTimeout(threadExpiry);
}

Application::Application(std::unique_ptr<Platform> platform)
    : m_platform(std::move(platform))
    , m_capture(m_platform->screenGrabber())
    , m_picker(*m_platform, m_capture, m_preferences)
    , m_shortcuts(m_platform->hotKeyRegistrar(), m_platform->keyboardLayout(), m_settings)
    , m_openMenuWatcher(m_shortcuts)
{
}

Application::~Application() = default;

void Application::start()
{
    setupTrayIcon();
    setupPicker();
    setupShortcuts();
    prepareLater();
}

// The tray icon appears first. An open menu of ours would close when the panel is created, so this waits for it.
void Application::prepareLater()
{
    QTimer::singleShot(preparationDelay, this, [this] {
        if (QApplication::activePopupWidget()) {
            prepareLater();
            return;
        }
        setupPanel();
        m_picker.prepare();
    });
}

void Application::setupTrayIcon()
{
    connect(&m_trayIcon, &TrayIcon::clicked, this, &Application::togglePanel);
    connect(&m_trayIcon, &TrayIcon::pickRequested, this, &Application::pick);
    connect(&m_trayIcon, &TrayIcon::settingsRequested, this, &Application::openSettingsWindow);
    connect(&m_trayIcon, &TrayIcon::menuAboutToShow, this, [this] {
        if (m_panelView) {
            m_trayIcon.setMenuScheme(Appearance::of(m_panelView));
        }
    });
    // exit() and not quit(): the panel ignores close events, and quit() stops when a window ignores one.
    connect(&m_trayIcon, &TrayIcon::quitRequested, qApp, [] { QApplication::exit(); });
    m_trayIcon.show();
}

void Application::setupPanel()
{
    if (m_panel) {
        return;
    }
    m_panelView =
        new PanelView(m_appState, m_preferences, [this](QWidget& panel) { return createSettings(panel); });
    connect(m_panelView, &PanelView::pickRequested, this, &Application::pickFromPanel);
    m_panel = std::make_unique<Panel>(m_platform->panelHost(), m_panelView);
    followDesktopAppearance();
    setupDismissal();
}

QWidget* Application::createSettings(QWidget& panel)
{
    return new SettingsScreen(m_appState, m_preferences,
                              {m_shortcuts, m_platform->keyRecording(), m_platform->keyboardLayout(),
                               [this] { return KeyboardShortcuts::menuItemsOf(m_trayIcon.menu()); }},
                              m_platform->screenGrabber(), panel);
}

void Application::setupPicker()
{
    m_picker.setOnColorCaptured([this](const SampledColor& color) {
        m_platform->prepareClipboard();
        m_appState.colorCaptured(CapturedColor::capture(color.red, color.green, color.blue, color.alpha));
    });
}

void Application::setupDismissal()
{
    connect(m_panel.get(), &Panel::visibleChanged, this, [this](bool isVisible) {
        ClickMonitor& monitor = m_platform->clickMonitor();
        if (isVisible) {
            monitor.start([] { return isDismissible(); }, [this] { dismissPanel(); });
        } else {
            monitor.stop();
        }
    });
}

bool Application::isDismissible()
{
    // A save dialog may be a window of another program. While a button is down on the panel, the pointer may have left it.
    return !ColorExport::isSaveDialogOpen() && QGuiApplication::mouseButtons() == Qt::NoButton;
}

void Application::dismissPanel()
{
    m_sinceDismissal.start();
    m_dismissingClick = QCursor::pos();
    hidePanel();
}

void Application::togglePanel()
{
    if (m_panel && m_panel->isVisible()) {
        hidePanel();
    } else if (!isClickThatDismissedPanel()) {
        showPanel(Panel::Typing::Leave, QCursor::pos());
    }
}

// A tray that draws the icon itself and does not report its place may report the click after the click monitor did.
bool Application::isClickThatDismissedPanel()
{
    const bool isRecent =
        m_sinceDismissal.isValid() &&
        !m_sinceDismissal.hasExpired(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    m_sinceDismissal.invalidate();
    const int distance = (QCursor::pos() - m_dismissingClick).manhattanLength();
    return isRecent && !m_trayIcon.frame() && distance < QGuiApplication::styleHints()->startDragDistance();
}

void Application::showPanel(Panel::Typing typing, std::optional<QPoint> click)
{
    setupPanel();
    if (m_panel->isVisible()) {
        m_panel->activateWindow();
        return;
    }
    m_panel->showAt(placePanel({m_trayIcon.frame(), click}, panelScreens(), theme::panelSize), typing);
}

void Application::hidePanel()
{
    if (m_panel) {
        m_panel->hide();
    }
}

void Application::openSettingsWindow()
{
    setupPanel();
    if (!m_settingsWindow) {
        m_settingsWindow = std::make_unique<SettingsWindow>(m_panelView->appearance());
    }
    m_settingsWindow->present();
}

void Application::followDesktopAppearance()
{
    m_desktopSettings = std::make_unique<DesktopSettings>();
    const auto apply = [this] {
        m_panelView->setSystemScheme(preferredScheme(*m_desktopSettings));
        m_trayIcon.setDesktopPrefersDark(m_desktopSettings->prefersDark().value_or(false));
        Ticker::shared().setMotionReduced(m_desktopSettings->prefersReducedMotion());
    };
    apply();
    connect(m_desktopSettings.get(), &DesktopSettings::changed, this, apply);
}

void Application::setupShortcuts()
{
    m_shortcuts.declare(shortcutnames::activatePicker());
    m_shortcuts.onKeyUp(shortcutnames::activatePicker(), [this] {
        // An open menu of ours holds the pointer and keyboard grabs that the pick needs.
        while (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
        pick();
    });
    m_shortcuts.declare(shortcutnames::openMainWindow());
    m_shortcuts.onKeyUp(shortcutnames::openMainWindow(), [this] { showPanel(Panel::Typing::Take); });
}

void Application::pick()
{
    m_picker.showPicker();
}

void Application::pickFromPanel()
{
    hidePanel();
    QTimer::singleShot(0, this, &Application::pick);
}

} // namespace tintwick
