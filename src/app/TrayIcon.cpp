#include "TrayIcon.h"

#include "Appearance.h"
#include "ContextMenu.h"
#include "Symbol.h"

#include <QAction>
#include <QIcon>
#include <QPixmap>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

// The colour of a tray is unknown. This grey has a contrast of 4.5 to 1 on white and on black.
constexpr QColor tint(0x76, 0x76, 0x76);
constexpr QColor tintOnDark(0xE4, 0xE4, 0xE6);

QIcon trayIcon(const QColor& color)
{
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 44, 48}) {
        icon.addPixmap(symbolPixmapOfSide(u"eyedropper-filled", side, color));
    }
    return icon;
}

} // namespace

TrayIcon::TrayIcon(QObject* parent)
    : QObject(parent)
    , m_icon(trayIcon(tint))
{
    QAction* pick = m_menu.addAction(tr("Pick Color (⌥⇧C)"));
    connect(pick, &QAction::triggered, this, &TrayIcon::pickRequested);
    m_menu.addSeparator();
    QAction* settings = m_menu.addAction(tr("Settings…"));
    settings->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    connect(settings, &QAction::triggered, this, &TrayIcon::settingsRequested);
    m_menu.addSeparator();
    QAction* quit = m_menu.addAction(tr("Quit Tintwick"));
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit, &QAction::triggered, this, &TrayIcon::quitRequested);

    styleMenu(m_menu);
    setMenuScheme(Scheme::Light);
    connect(&m_menu, &QMenu::aboutToShow, this, &TrayIcon::menuAboutToShow);

    m_icon.setToolTip(u"Tintwick"_s);
    m_icon.setContextMenu(&m_menu);
    connect(&m_icon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        // The second of two quick clicks arrives as a double click.
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) {
            Q_EMIT clicked();
        }
    });
}

void TrayIcon::setDesktopPrefersDark(bool prefersDark)
{
    if (m_desktopPrefersDark != prefersDark) {
        m_desktopPrefersDark = prefersDark;
        m_icon.setIcon(trayIcon(prefersDark ? tintOnDark : tint));
    }
}

void TrayIcon::setMenuScheme(Scheme scheme)
{
    m_menu.setPalette(Appearance::palette(scheme));
}

std::optional<QRect> TrayIcon::frame() const
{
    const QRect frame = m_icon.geometry();
    return frame.isEmpty() ? std::nullopt : std::optional(frame);
}

} // namespace tintwick
