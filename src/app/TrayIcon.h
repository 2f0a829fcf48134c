#pragma once

#include "Scheme.h"

#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QRect>
#include <QSystemTrayIcon>

#include <optional>

namespace tintwick {

/// The icon in the tray and its menu. A tray that comes later, or comes back, gets the icon too.
class TrayIcon final : public QObject
{
    Q_OBJECT

public:
    explicit TrayIcon(QObject* parent = nullptr);

    void show() { m_icon.show(); }

    [[nodiscard]] QIcon icon() const { return m_icon.icon(); }
    /// Where the desktop prefers dark its bars are dark, and the icon is light.
    void setDesktopPrefersDark(bool prefersDark);
    /// Of the menu, where the tray has none of its own and shows ours.
    void setMenuScheme(Scheme scheme);

    /// In points, from the top left of the desktop; none where there is no tray, or one that keeps the place to itself.
    [[nodiscard]] std::optional<QRect> frame() const;

    [[nodiscard]] const QMenu& menu() const { return m_menu; }

Q_SIGNALS:
    void clicked();
    void menuAboutToShow();
    void pickRequested();
    void settingsRequested();
    void quitRequested();

private:
    QMenu m_menu;
    QSystemTrayIcon m_icon;
    bool m_desktopPrefersDark = false;
};

} // namespace tintwick
