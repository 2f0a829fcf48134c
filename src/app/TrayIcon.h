#pragma once

#include "Scheme.h"

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QRect>
#include <QSystemTrayIcon>

#include <optional>

namespace tintwick {

/// The tray icon and its menu. A tray that starts later, or again, gets the icon too.
class TrayIcon final : public QObject
{
    Q_OBJECT

public:
    explicit TrayIcon(QObject* parent = nullptr);

    void show() { m_icon.show(); }
    /// Shows a message beside the icon; does nothing without a tray.
    void showMessage(const QString& title, const QString& text) { m_icon.showMessage(title, text, icon()); }

    [[nodiscard]] QIcon icon() const { return m_icon.icon(); }
    /// The icon is light on a desktop that prefers dark, where bars are dark.
    void setDesktopPrefersDark(bool prefersDark);
    /// Of the menu; without effect where the tray draws the menu itself.
    void setMenuScheme(Scheme scheme);

    /// The keys of the shortcut that picks, as the menu and its tool tip show them; empty when there is none.
    void setPickKeys(const QString& keys, const QString& inWords);

    /// In points from the top left of the desktop; none without a tray, or when the tray does not report the place.
    [[nodiscard]] std::optional<QRect> frame() const;

    [[nodiscard]] const QMenu& menu() const { return m_menu; }
    /// With its shortcut. A window that adds the action reacts to the shortcut, too.
    [[nodiscard]] QAction* settingsAction() const { return m_settings; }
    [[nodiscard]] QAction* quitAction() const { return m_quit; }

Q_SIGNALS:
    void clicked();
    void menuAboutToShow();
    void pickRequested();
    void settingsRequested();
    void quitRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool handleMenuEvent(QEvent& event);
    void watchIconWindow();

    QMenu m_menu;
    QAction* m_pick = nullptr;
    QAction* m_settings = nullptr;
    QAction* m_quit = nullptr;
    QSystemTrayIcon m_icon;
    bool m_desktopPrefersDark = false;
};

} // namespace tintwick
