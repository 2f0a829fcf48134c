#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QVariant>

class QDBusMessage;

namespace tintwick {

struct DBusMenuLayout;

/// The part of a desktop's panel that draws tray icons in its own window (StatusNotifierHost).
class NotifierHost final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)

public:
    explicit NotifierHost(const QString& busAddress);
    ~NotifierHost() override;

    [[nodiscard]] bool isHostRegistered() const { return true; }
    [[nodiscard]] int protocolVersion() const { return 0; }
    [[nodiscard]] QStringList items() const { return m_items; }

    [[nodiscard]] bool waitForItem() const;

    /// Reports a click on the icon to the program; true when the program has answered.
    [[nodiscard]] bool activate(QPoint position) const;
    /// Asks the program to show its menu, as hosts do that draw none; true when the program has answered.
    [[nodiscard]] bool requestMenu() const;

    /// The titles of the menu's entries; empty for separators.
    [[nodiscard]] QStringList menu() const;
    /// Reports a click on an entry of the menu.
    void choose(const QString& title) const;

    /// A property of the icon.
    [[nodiscard]] QVariant property(const QString& name) const;

public Q_SLOTS:
    // D-Bus defines this name.
    void RegisterStatusNotifierItem(const QString& service) { m_items.append(service); }

private:
    [[nodiscard]] QDBusMessage itemCall(const QString& method) const;
    [[nodiscard]] QDBusMessage menuCall(const QString& method) const;
    [[nodiscard]] DBusMenuLayout layout() const;

    QDBusConnection m_bus;
    QStringList m_items;
};

} // namespace tintwick
