#pragma once

#include <QMenu>
#include <QObject>
#include <QRect>
#include <QSystemTrayIcon>

#include <optional>

namespace tintwick {

/// The icon in the tray and its menu. A tray that comes later, or comes back, gets the icon too.
class StatusItem final : public QObject
{
    Q_OBJECT

public:
    explicit StatusItem(QObject* parent = nullptr);

    void show() { m_icon.show(); }

    /// In points, from the top left of the desktop; none where there is no tray, or one that keeps the place to itself.
    [[nodiscard]] std::optional<QRect> frame() const;

    [[nodiscard]] const QMenu& menu() const { return m_menu; }

Q_SIGNALS:
    void clicked();
    void pickRequested();
    void settingsRequested();
    void quitRequested();

private:
    QMenu m_menu;
    QSystemTrayIcon m_icon;
};

} // namespace tintwick
