#pragma once

#include "Scheme.h"
#include "StatusNotifierItem.h"

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QRect>
#include <QSystemTrayIcon>

#include <chrono>
#include <memory>
#include <optional>

namespace tintwick {

/// The tray icon and its menu: in a tray that draws icons itself (StatusNotifier), else in one that embeds windows
/// (XEmbed). A tray that starts later, or again, gets the icon too.
class TrayIcon final : public QObject
{
    Q_OBJECT

public:
    explicit TrayIcon(QObject* parent = nullptr);

    /// Looks for a tray from the event loop. Call once.
    void show() { m_item.start(); }
    /// Shows a message beside the icon, if the tray embeds it.
    void showMessage(const QString& title, const QString& text);
    /// Whether a tray is there.
    [[nodiscard]] bool hasTray() const;

    [[nodiscard]] QIcon icon() const { return m_item.icon(); }
    /// Sets the colour of symbols on the tray. By default, and for none, it is a grey that shows on light and dark trays.
    void setSymbolColor(const std::optional<QColor>& color);
    /// Of the menu; without effect where the tray draws the menu itself.
    void setMenuScheme(Scheme scheme);

    /// The keys of the shortcut that picks, as the menu and its tool tip show them; empty when there is none.
    void setPickKeys(const QString& keys, const QString& inWords);

    /// In points from the top left of the desktop; none without a tray, or when the tray does not report the place. On
    /// Wayland, where the icon was last clicked.
    [[nodiscard]] std::optional<QRect> frame() const;

    [[nodiscard]] const QMenu& menu() const { return m_menu; }
    /// With its shortcut. A window that adds the action reacts to the shortcut, too.
    [[nodiscard]] QAction* settingsAction() const { return m_settings; }
    [[nodiscard]] QAction* quitAction() const { return m_quit; }

Q_SIGNALS:
    void clicked();
    /// From the menu of trays that open it on every click.
    void panelRequested();
    void menuAboutToShow();
    /// At once for no delay.
    void pickRequested(std::chrono::seconds delay);
    void settingsRequested();
    void quitRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// For trays that do not draw the menu.
    void popUpMenu();
    void changeTray();
    void setIcon(const QIcon& icon);
    void embed();
    bool handleMenuEvent(QEvent& event);
    void watchIconWindow();

    QMenu m_menu;
    QAction* m_pick = nullptr;
    QAction* m_settings = nullptr;
    QAction* m_quit = nullptr;
    QAction m_open;
    QAction m_separator;
    StatusNotifierItem m_item;
    /// Shown while no tray draws icons itself. Created then only: when the toolkit creates the first one, it chooses the
    /// kind of tray for all.
    std::unique_ptr<QSystemTrayIcon> m_embedded;
};

} // namespace tintwick
