#include "Application.h"

#include "Appearance.h"
#include "ColorExport.h"
#include "DesktopSettings.h"
#include "FontCoverage.h"
#include "OpenSaveRequests.h"
#include "Overlay.h"
#include "Panel.h"
#include "PanelView.h"
#include "PickSeries.h"
#include "SettingsScreen.h"
#include "SettingsWindow.h"
#include "Ticker.h"
#include "Tray.h"

#include <QAccessible>
#include <QApplication>
#include <QPixmapCache>
#include <QShortcut>
#include <QThreadPool>
#include <QTimer>

#include <chrono>
#include <optional>
#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr std::chrono::milliseconds preparationDelay{400};
constexpr std::chrono::seconds patienceForTray{3};
constexpr int threadExpiry = 500; // milliseconds

/// Lets the next window of ours that asks for the focus have it: the toolkit uses the token of this variable once.
void useActivationToken(const QString& token)
{
    if (!token.isEmpty()) {
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
    }
}

std::optional<Scheme> preferredScheme(const DesktopSettings& desktop)
{
    const std::optional<bool> prefersDark = desktop.prefersDark();
    return prefersDark ? std::optional(*prefersDark ? Scheme::Dark : Scheme::Light) : std::nullopt;
}

} // namespace

void Application::setUpToolkit()
{
    QApplication::setOrganizationName(u"Tintwick"_s);
    QApplication::setApplicationName(u"Tintwick"_s);
    QApplication::setApplicationVersion(QStringLiteral(TINTWICK_VERSION));
    QApplication::setDesktopFileName(u"org.tintwick.Tintwick"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    // Painting uses these threads. By default each of them wakes up 30 seconds later to exit.
    QThreadPool::globalInstance()->setExpiryTimeout(threadExpiry);
    // A pixmap in this cache starts a timer that flushes the cache 30 seconds later.
    QPixmapCache::setCacheLimit(0);
}

Application::Application(std::unique_ptr<Platform> platform, InstanceService& instance)
    : m_platform(std::move(platform))
    , m_badge((m_platform->preparePicking(), m_platform->pointerBadge()))
    , m_picking(*m_platform, m_preferences, m_appState, m_badge)
    , m_shortcuts(m_platform->globalShortcuts(), m_platform->keyboardLayout(), m_preferences, fontsHave)
{
    const auto applyRepeatedPick = [this] { m_appState.setRepeatedPick(m_preferences.repeatedPick()); };
    connect(&m_preferences, &Preferences::repeatedPickChanged, this, applyRepeatedPick);
    applyRepeatedPick();
    setupInstance(instance);
}

Application::~Application()
{
    m_platform->keepClipboard();
}

void Application::start(SelfOpening selfOpening)
{
    m_selfOpening = selfOpening;
    setupTrayIcon();
    connect(&m_picking, &Picking::ended, this, &Application::finishPick);
    setupShortcuts();
    connect(&m_quitSignals, &QuitSignals::received, qApp, [] { QApplication::exit(); });
    prepareLater();
    if (selfOpening == SelfOpening::WithoutTray) {
        openWithoutTrayLater();
    }
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
        m_picking.picker().prepare();
        if (m_selfOpening == SelfOpening::AsGreeting) {
            greet();
        }
    });
}

void Application::openWithoutTrayLater()
{
    QTimer::singleShot(patienceForTray, this, [this] {
        if (m_trayIcon.hasTray()) {
            return;
        }
        if (isPicking() || QApplication::activePopupWidget()) {
            openWithoutTrayLater();
        } else {
            openByItself();
        }
    });
}

void Application::greet()
{
    // Whoever picks has found the shortcut.
    if (isPicking()) {
        return;
    }
    openByItself();
    showGreeting();
}

// The desktop may choose the keys after the panel has opened.
void Application::showGreeting()
{
    if (m_selfOpening != SelfOpening::AsGreeting || !m_isSelfOpened || !m_panel->isVisible()) {
        return;
    }
    const auto action = ShortcutAction::ActivatePicker;
    const QString keys = m_shortcuts.text(action);
    const QString words = m_shortcuts.words(action);
    if (!keys.isEmpty() && !m_shortcuts.refusal(action)) {
        const QString both = keys == words ? keys : tr("%1 (%2)").arg(keys, words);
        m_panelView->showNotice(tr("Pick a color anywhere with %1").arg(both));
    } else if (m_shortcuts.configurationLine(action)) {
        m_panelView->showNotice(tr("The settings show how to pick with a shortcut"));
    } else {
        m_panelView->showNotice({});
    }
}

void Application::openByItself()
{
    openPanel();
    m_isSelfOpened = true;
}

void Application::hideSelfOpened()
{
    if (std::exchange(m_isSelfOpened, false)) {
        hidePanel();
    }
}

void Application::setupTrayIcon()
{
    connect(&m_trayIcon, &TrayIcon::clicked, this, &Application::togglePanel);
    connect(&m_trayIcon, &TrayIcon::panelRequested, this, &Application::openPanel);
    connect(&m_trayIcon, &TrayIcon::pickRequested, this,
            [this](std::chrono::seconds delay) { pick({.delay = delay}); });
    connect(&m_trayIcon, &TrayIcon::settingsRequested, this, &Application::openSettingsWindow);
    connect(&m_trayIcon, &TrayIcon::menuAboutToShow, this, [this] {
        showPickKeys();
        if (m_panelView) {
            m_trayIcon.setMenuScheme(Appearance::of(m_panelView));
        }
    });
    // exit() and not quit(): the panel ignores close events, and quit() stops when a window ignores one.
    connect(&m_trayIcon, &TrayIcon::quitRequested, qApp, [] { QApplication::exit(); });
    connect(&m_notifier, &Notifier::unavailable, &m_trayIcon, &TrayIcon::showMessage);
    if (Tray* tray = m_platform->tray()) {
        const auto apply = [this, tray] { m_trayIcon.setSymbolColor(tray->symbolColor()); };
        apply();
        connect(tray, &Tray::symbolColorChanged, this, apply);
    }
    m_trayIcon.show();
}

void Application::setupPanel()
{
    if (m_panel) {
        return;
    }
    m_panelView =
        new PanelView(m_appState, m_preferences, [this](QWidget& panel) { return createSettings(panel); });
    m_panelView->setMenu([this] { return menuWithoutTray(); });
    connect(m_panelView, &PanelView::pickRequested, this, &Application::pickFromPanel);
    m_panel = std::make_unique<Panel>(m_panelView);
    m_panel->addAction(m_trayIcon.quitAction());
    auto* settings = new QShortcut(m_trayIcon.settingsAction()->shortcut(), m_panel.get());
    connect(settings, &QShortcut::activated, m_panelView, [this] {
        // A sheet is to be closed first.
        if (!Overlay::of(*m_panelView)) {
            m_panelView->setShowingSettings(true);
        }
    });
    connect(m_panel.get(), &Panel::hidden, this, [this] {
        m_panelView->showNotice({});
        m_panelView->leaveSettings();
    });
    PanelHost& host = m_platform->panelHost();
    connect(&host, &PanelHost::dismissed, this, [this] {
        // Where the loupe takes the keyboard, a pick makes the panel inactive.
        if (!isPicking()) {
            hidePanel();
        }
    });
    connect(m_panelView, &PanelView::keepOpenChanged, this, [this, &host](bool keepsOpen) {
        m_isSelfOpened = false;
        host.setKeptOpen(keepsOpen);
    });
    ColorExport::setPortalHandle([&host](const QWidget& window) { return host.portalHandle(window); });
    connect(&OpenSaveRequests::shared(), &OpenSaveRequests::anyChanged, this,
            [&host](bool isAny) { host.setDismissible(!isAny); });
    followDesktopAppearance();
    showPickKeys();
}

QWidget* Application::createSettings(QWidget& panel)
{
    return new SettingsScreen(m_appState, m_preferences,
                              {m_shortcuts, m_platform->keyRecording(), m_platform->keyboardLayout(),
                               m_trayIcon.menu(), &m_platform->panelHost()},
                              *m_platform, panel);
}

void Application::togglePanel()
{
    // The first click on the icon shows the panel, also when it has opened by itself.
    const bool wasSelfOpened = std::exchange(m_isSelfOpened, false);
    const std::optional<QRect> icon = m_trayIcon.frame();
    if (wasSelfOpened && icon) {
        showPanel({icon});
    } else if (m_panel && m_panel->isVisible()) {
        hidePanel();
    } else {
        showPanel({icon, true});
    }
}

void Application::showPanel(const PanelAnchor& anchor)
{
    setupPanel();
    m_platform->panelHost().show(*m_panel, anchor);
}

void Application::openPanel()
{
    m_isSelfOpened = false;
    showPanel({m_trayIcon.frame()});
}

void Application::openFiles(const QStringList& paths)
{
    openPanel();
    m_panelView->importFiles(paths);
}

QList<MenuEntry> Application::menuWithoutTray()
{
    if (m_trayIcon.hasTray()) {
        return {};
    }
    const QAction& settings = *m_trayIcon.settingsAction();
    QAction& quit = *m_trayIcon.quitAction();
    return {
        menuAction(settings.text(), settings.shortcut(), [this] { m_panelView->setShowingSettings(true); }),
        menuSeparator(), menuAction(quit.text(), quit.shortcut(), [&quit] { quit.trigger(); })};
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
        m_settingsWindow->addActions({m_trayIcon.settingsAction(), m_trayIcon.quitAction()});
    }
    m_settingsWindow->present();
}

void Application::followDesktopAppearance()
{
    m_desktopSettings = std::make_unique<DesktopSettings>();
    const auto apply = [this] {
        m_panelView->setSystemScheme(preferredScheme(*m_desktopSettings));
        m_badge.setScheme(Appearance::of(m_panelView));
        Ticker::shared().setMotionReduced(m_desktopSettings->prefersReducedMotion());
        m_picking.picker().setHighContrast(m_desktopSettings->prefersHighContrast());
    };
    apply();
    connect(m_desktopSettings.get(), &DesktopSettings::changed, this, apply);
}

void Application::setupShortcuts()
{
    connect(&m_shortcuts, &ShortcutRegistry::deactivated, this, &Application::shortcutReleased);
    connect(&m_shortcuts, &ShortcutRegistry::shortcutChanged, this, &Application::showPickKeys);
    connect(&m_shortcuts, &ShortcutRegistry::refusalChanged, this, &Application::showPickKeys);
    connect(&m_shortcuts, &ShortcutRegistry::textsChanged, this, &Application::showPickKeys);
    connect(&m_shortcuts, &ShortcutRegistry::shortcutChanged, this, &Application::showGreeting);
    connect(&m_shortcuts, &ShortcutRegistry::keyChoiceChanged, this, &Application::showGreeting);
    m_shortcuts.start();
    showPickKeys();
}

void Application::showPickKeys()
{
    const auto action = ShortcutAction::ActivatePicker;
    const bool works = !m_shortcuts.refusal(action);
    const QString words = works ? m_shortcuts.words(action) : QString();
    const QString keys = works ? m_shortcuts.text(action) : QString();
    // A screen reader says the text of a menu item, and does not know the signs.
    m_trayIcon.setPickKeys(QAccessible::isActive() ? words : keys, words);
    if (m_panelView) {
        m_panelView->setPickKeys(keys, words);
    }
}

void Application::shortcutReleased(ShortcutAction action)
{
    switch (action) {
    case ShortcutAction::ActivatePicker:
        // An open menu of ours holds the pointer and keyboard grabs that the pick needs.
        while (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
        pick();
        break;
    case ShortcutAction::OpenMainWindow:
        // A panel that is kept open is closed where the keyboard already is in it.
        if (m_panelView && m_panelView->keepsOpen() && QApplication::activeWindow() == m_panel.get()) {
            hidePanel();
        } else {
            openPanel();
        }
        break;
    }
}

void Application::setupInstance(const InstanceService& instance)
{
    connect(&instance, &InstanceService::activated, this, [this](const QString& token) {
        useActivationToken(token);
        openPanel();
    });
    connect(&instance, &InstanceService::opened, this,
            [this](const QStringList& paths, const QString& token) {
                useActivationToken(token);
                openFiles(paths);
            });
    connect(&instance, &InstanceService::actionActivated, this,
            [this](const QString& name, const QString& token) {
                useActivationToken(token);
                if (name == "pick"_L1) {
                    pick();
                } else if (name == "settings"_L1) {
                    openSettingsWindow();
                } else if (name == "quit"_L1) {
                    QApplication::exit();
                }
            });
    connect(&instance, &InstanceService::pickRequested, this, &Application::pickFor);
    connect(&instance, &InstanceService::pickAbandoned, this, [this] {
        if (m_series) {
            m_series->cancel();
        }
    });
}

void Application::pickFor(const PickRequest& request, const InstanceService::Answer& answer)
{
    if (isPicking()) {
        answer({PickAnswer::Outcome::Failed, {}, {}, tr("Another pick has not ended yet.")});
        return;
    }
    hideSelfOpened();
    m_picking.cancel();
    m_badge.hide();
    m_series = std::make_unique<PickSeries>(request, *m_platform, m_preferences, m_appState);
    connect(m_series.get(), &PickSeries::finished, this, [this, answer](const PickAnswer& result) {
        if (m_series->isCopied()) {
            sayCopied();
        }
        // The series is still emitting its signal.
        m_series.release()->deleteLater();
        answer(result);
    });
    m_badge.follow(m_series->picker());
    m_series->start();
}

void Application::pick(const WantedPick& wanted)
{
    startPick(PickOrigin::Elsewhere, wanted);
}

void Application::pickFromPanel(const WantedPick& wanted)
{
    hidePanel();
    startPick(PickOrigin::Panel, wanted);
}

void Application::startPick(PickOrigin origin, const WantedPick& wanted)
{
    if (isPicking()) {
        return;
    }
    hideSelfOpened();
    m_pickOrigin = origin;
    if (m_panelView) {
        m_panelView->showNotice({});
    }
    m_picking.start(wanted);
}

void Application::finishPick(const PickOutcome& outcome, bool isCopied)
{
    if (outcome.kind == PickOutcome::Kind::Failed) {
        reportProblem(tr("Could not pick a color"), outcome.reason);
        return;
    }
    const bool isCancelled = outcome.kind == PickOutcome::Kind::Cancelled;
    if (m_pickOrigin == PickOrigin::Panel && !m_panel->isVisible() &&
        (!isCancelled || m_panelView->keepsOpen())) {
        m_platform->panelHost().showAgain(*m_panel);
    }
    if (isCancelled) {
        return;
    }
    if (!isCopied) {
        reportProblem(
            tr("Could not copy the color"),
            tr("The color is in the history, but the desktop did not accept it for the clipboard."));
    } else {
        sayCopied();
    }
}

// The panel has a place for it.
void Application::sayCopied()
{
    if (!m_panel || !m_panel->isVisible()) {
        m_badge.showCopied();
    }
}

void Application::reportProblem(const QString& summary, const QString& reason)
{
    if (m_pickOrigin == PickOrigin::Panel) {
        if (!m_panel->isVisible()) {
            m_platform->panelHost().showAgain(*m_panel);
        }
        m_panelView->showNotice(reason);
    } else {
        m_notifier.notify(summary, reason);
    }
}

} // namespace tintwick
