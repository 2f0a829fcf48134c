#include "app/StatusItem.h"

#include "ui/kit/Symbol.h"

#include <QAction>
#include <QIcon>
#include <QPixmap>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

// A tray does not tell its colour. This grey stands out from white and from black alike, by 4.5 to 1.
constexpr QColor tint(0x76, 0x76, 0x76);

QIcon statusIcon()
{
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 44, 48}) {
        icon.addPixmap(symbolPixmapOfSide(u"eyedropper.halffull", side, tint));
    }
    return icon;
}

} // namespace

StatusItem::StatusItem(QObject* parent)
    : QObject(parent)
    , m_icon(statusIcon())
{
    QAction* pick = m_menu.addAction(tr("Pick Color (⌥⇧C)"));
    connect(pick, &QAction::triggered, this, &StatusItem::pickRequested);
    m_menu.addSeparator();
    QAction* settings = m_menu.addAction(tr("Settings…"));
    settings->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    connect(settings, &QAction::triggered, this, &StatusItem::settingsRequested);
    m_menu.addSeparator();
    QAction* quit = m_menu.addAction(tr("Quit Tintwick"));
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit, &QAction::triggered, this, &StatusItem::quitRequested);

    m_icon.setToolTip(u"Tintwick"_s);
    m_icon.setContextMenu(&m_menu);
    connect(&m_icon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        // The second of two quick clicks is a click like the first.
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) {
            Q_EMIT clicked();
        }
    });
}

std::optional<QRect> StatusItem::frame() const
{
    const QRect frame = m_icon.geometry();
    return frame.isEmpty() ? std::nullopt : std::optional(frame);
}

} // namespace tintwick
