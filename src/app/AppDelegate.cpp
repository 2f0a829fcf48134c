#include "AppDelegate.h"

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
#include <QTimer>

#include <chrono>

namespace tintwick {

namespace {

constexpr std::chrono::milliseconds preparationDelay{400};

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

AppDelegate::AppDelegate(std::unique_ptr<Platform> platform)
    : m_platform(std::move(platform))
    , m_capture(m_platform->screenGrabber())
    , m_colorPickerService(*m_platform, m_capture)
    , m_shortcuts(m_platform->hotKeyRegistrar(), m_platform->keyboardLayout(), m_settings)
    , m_openMenuWatcher(m_shortcuts)
{
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching()
{
    setupMenuBar();
    setupColorPickerService();
    setupGlobalShortcut();
    prepareLater();
}

// What the user cannot ask for before the icon is in the tray comes after it; and a menu that is open would close for it.
void AppDelegate::prepareLater()
{
    QTimer::singleShot(preparationDelay, &m_statusItem, [this] {
        if (QApplication::activePopupWidget()) {
            prepareLater();
            return;
        }
        setupMainPanel();
        m_colorPickerService.prepare();
    });
}

void AppDelegate::setupMenuBar()
{
    QObject::connect(&m_statusItem, &TrayIcon::clicked, &m_statusItem, [this] { handleStatusBarClick(); });
    QObject::connect(&m_statusItem, &TrayIcon::pickRequested, &m_statusItem, [this] { activatePicker(); });
    QObject::connect(&m_statusItem, &TrayIcon::menuAboutToShow, &m_statusItem, [this] {
        if (m_panelView) {
            m_statusItem.setMenuScheme(Appearance::of(m_panelView));
        }
    });
    QObject::connect(&m_statusItem, &TrayIcon::settingsRequested, &m_statusItem, [this] { openSettings(); });
    // Not by quit(), which gives up when a window refuses to be closed, as the panel does.
    QObject::connect(&m_statusItem, &TrayIcon::quitRequested, qApp, [] { QApplication::exit(); });
    m_statusItem.show();
}

void AppDelegate::setupMainPanel()
{
    if (m_mainPanel) {
        return;
    }
    m_panelView = new PanelView(m_appState, [this](QWidget& panel) { return makeSettings(panel); });
    m_mainPanel = std::make_unique<Panel>(m_platform->panelHost(), m_panelView);
    followSystemAppearance();
    setupGlobalClickDismiss();
}

QWidget* AppDelegate::makeSettings(QWidget& panel)
{
    return new SettingsScreen(m_appState,
                              {m_shortcuts, m_platform->keyRecording(), m_platform->keyboardLayout(),
                               [this] { return KeyboardShortcuts::menuItemsOf(m_statusItem.menu()); }},
                              m_platform->screenGrabber(), panel);
}

void AppDelegate::setupColorPickerService()
{
    m_colorPickerService.setOnColorCaptured([this](const SampledColor& color) {
        m_platform->prepareClipboard();
        m_appState.colorCaptured(CapturedColor::capture(color.red, color.green, color.blue, color.alpha));
    });
    m_appState.setStartPicking([this] { activateColorPicker(); });
}

void AppDelegate::setupGlobalClickDismiss()
{
    QObject::connect(m_mainPanel.get(), &Panel::visibleChanged, m_mainPanel.get(), [this](bool isVisible) {
        ClickMonitor& monitor = m_platform->clickMonitor();
        if (isVisible) {
            monitor.start([] { return isMeantElsewhere(); }, [this] { handleClickElsewhere(); });
        } else {
            monitor.stop();
        }
    });
}

bool AppDelegate::isMeantElsewhere()
{
    // A click in a save panel is ours, although the desktop may show that from another program. And while a button is down
    // on the panel, the pointer may have been dragged off it since.
    return !ColorExport::isSaveDialogOpen() && QGuiApplication::mouseButtons() == Qt::NoButton;
}

void AppDelegate::handleClickElsewhere()
{
    m_sinceClickElsewhere.start();
    m_clickElsewhere = QCursor::pos();
    hideMainPanel();
}

void AppDelegate::handleStatusBarClick()
{
    if (m_mainPanel && m_mainPanel->isVisible()) {
        hideMainPanel();
        return;
    }
    if (!isTheClickThatHidThePanel()) {
        showMainPanel(Panel::Typing::Leave, QCursor::pos());
    }
}

// A tray that draws the icon in a window of its own, and keeps its place to itself, may tell of the click when that has
// already hidden the panel as a click elsewhere.
bool AppDelegate::isTheClickThatHidThePanel()
{
    const bool isRecent =
        m_sinceClickElsewhere.isValid() &&
        !m_sinceClickElsewhere.hasExpired(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    m_sinceClickElsewhere.invalidate();
    const int distance = (QCursor::pos() - m_clickElsewhere).manhattanLength();
    return isRecent && !m_statusItem.frame() && distance < QGuiApplication::styleHints()->startDragDistance();
}

void AppDelegate::showMainPanel(Panel::Typing typing, std::optional<QPoint> click)
{
    setupMainPanel();
    if (m_mainPanel->isVisible()) {
        // Asked for again, it is wanted for typing.
        m_mainPanel->activateWindow();
        return;
    }
    m_mainPanel->showAt(placePanel({m_statusItem.frame(), click}, panelScreens(), theme::panelSize), typing);
}

void AppDelegate::hideMainPanel()
{
    if (m_mainPanel) {
        m_mainPanel->hide();
    }
}

void AppDelegate::openSettings()
{
    setupMainPanel();
    if (!m_settingsView) {
        m_settingsView = std::make_unique<SettingsWindow>(m_panelView->appearance());
    }
    m_settingsView->present();
}

void AppDelegate::followSystemAppearance()
{
    m_systemAppearance = std::make_unique<DesktopSettings>();
    const auto apply = [this] {
        m_panelView->setSystemScheme(preferredScheme(*m_systemAppearance));
        m_statusItem.setDesktopPrefersDark(m_systemAppearance->prefersDark().value_or(false));
        Ticker::shared().setMotionReduced(m_systemAppearance->prefersReducedMotion());
    };
    apply();
    QObject::connect(m_systemAppearance.get(), &DesktopSettings::changed, m_panelView, apply);
}

void AppDelegate::setupGlobalShortcut()
{
    m_shortcuts.declare(shortcutnames::activatePicker());
    m_shortcuts.onKeyUp(shortcutnames::activatePicker(), [this] {
        // An open menu of ours holds the pointer and the keyboard, which the pick needs.
        while (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
        activatePicker();
    });
    m_shortcuts.declare(shortcutnames::openMainWindow());
    m_shortcuts.onKeyUp(shortcutnames::openMainWindow(), [this] { showMainPanel(Panel::Typing::Take); });
}

void AppDelegate::activatePicker()
{
    m_colorPickerService.showPicker();
}

void AppDelegate::activateColorPicker()
{
    hideMainPanel();
    QTimer::singleShot(0, &m_statusItem, [this] { m_colorPickerService.showPicker(); });
}

} // namespace tintwick
