#pragma once

#include "DBusMenu.h"

#include <QDBusConnection>
#include <QIcon>
#include <QList>
#include <QObject>
#include <QPoint>
#include <QString>

#include <optional>

class QAction;

namespace tintwick {

/// The icon for desktops that draw tray icons themselves (org.kde.StatusNotifierItem). Registers with the watcher of the
/// session bus whenever there is one. Never waits for the bus.
class StatusNotifierItem final : public QObject
{
    Q_OBJECT

public:
    /// `title` is for the user.
    explicit StatusNotifierItem(QString title, QObject* parent = nullptr);

    /// Looks for a watcher. Call once. `hostChanged()` follows, also when there is none, and after each change.
    void start();

    [[nodiscard]] QString title() const { return m_title; }
    [[nodiscard]] QIcon icon() const { return m_icon; }
    void setIcon(const QIcon& icon);
    /// The menu that the host draws. The actions must outlive the object.
    void setMenu(const QList<QAction*>& actions) { m_menu.setActions(actions); }
    /// Where the host has last reported a click; none before, and when it does not report places.
    [[nodiscard]] std::optional<QPoint> lastClick() const { return m_lastClick; }
    /// Whether a tray shows the icon.
    [[nodiscard]] bool hasHost() const { return m_hasHost; }

Q_SIGNALS:
    void hostChanged();
    void iconChanged();
    /// The user clicked the icon.
    void activated();
    /// The user asked for the menu, and the host does not draw it.
    void menuRequested();

private Q_SLOTS:
    void askForHost();

private:
    friend class StatusNotifierItemAdaptor;

    void takeClick(QPoint place);
    void registerWithWatcher();
    void setHasHost(bool hasHost);

    QString m_title;
    QIcon m_icon;
    DBusMenu m_menu;
    QDBusConnection m_bus;
    std::optional<QPoint> m_lastClick;
    bool m_hasHost = false;
    bool m_isRegistered = false;
    /// Counts the questions. Only the answer to the last one counts.
    int m_question = 0;
};

} // namespace tintwick
