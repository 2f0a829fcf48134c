#pragma once

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

namespace tintwick {

/// The icon in the tray and its menu. A tray that comes later, or comes back, gets the icon too.
class StatusItem final : public QObject
{
    Q_OBJECT

public:
    explicit StatusItem(QObject* parent = nullptr);

    void show() { m_icon.show(); }

Q_SIGNALS:
    void pickRequested();
    void quitRequested();

private:
    QMenu m_menu;
    QSystemTrayIcon m_icon;
};

} // namespace tintwick
