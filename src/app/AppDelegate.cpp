#include "app/AppDelegate.h"

#include "model/CapturedColor.h"
#include "shortcuts/ShortcutNames.h"

#include <QApplication>
#include <QTimer>

#include <chrono>

namespace tintwick {

namespace {

constexpr std::chrono::milliseconds preparationDelay{400};

} // namespace

AppDelegate::AppDelegate(std::unique_ptr<Platform> platform)
    : m_platform(std::move(platform))
    , m_capture(m_platform->screenGrabber())
    , m_colorPickerService(*m_platform, m_capture)
    , m_shortcuts(m_platform->hotKeyRegistrar(), m_platform->keyboardLayout(), m_settings)
    , m_openMenuWatcher(m_shortcuts)
{
}

void AppDelegate::applicationDidFinishLaunching()
{
    setupMenuBar();
    setupColorPickerService();
    setupGlobalShortcut();
}

void AppDelegate::setupMenuBar()
{
    QObject::connect(&m_statusItem, &StatusItem::pickRequested, &m_statusItem, [this] { activatePicker(); });
    QObject::connect(&m_statusItem, &StatusItem::quitRequested, qApp, &QApplication::quit);
    m_statusItem.show();
}

void AppDelegate::setupColorPickerService()
{
    m_colorPickerService.setOnColorCaptured([this](const SampledColor& color) {
        m_platform->prepareClipboard();
        m_appState.colorCaptured(CapturedColor::capture(color.red, color.green, color.blue, color.alpha));
    });
    // Once the icon is in the tray, so that it does not come later for it.
    QTimer::singleShot(preparationDelay, &m_statusItem, [this] { m_colorPickerService.prepare(); });
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
}

void AppDelegate::activatePicker()
{
    m_colorPickerService.showPicker();
}

} // namespace tintwick
