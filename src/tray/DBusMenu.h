#pragma once

#include "DBusMenuTypes.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <optional>

class QAction;

namespace tintwick {

/// Describes a flat menu to other processes, which draw it (com.canonical.dbusmenu). The entry 0 is the menu itself; its
/// children are the actions, counted from 1.
class DBusMenu final : public QObject
{
    Q_OBJECT

public:
    explicit DBusMenu(QObject* parent = nullptr);

    /// Call once. The actions must outlive the object.
    void setActions(const QList<QAction*>& actions);

    /// Counts the changes of the actions.
    [[nodiscard]] uint revision() const { return m_revision; }
    /// The entry and, if asked for, its children. With `names` only these properties. An unknown entry has none.
    [[nodiscard]] DBusMenuLayout layout(int id, bool withChildren, const QStringList& names) const;
    /// Triggers the action of the entry, from the event loop. False if the menu has no such action.
    bool trigger(int id);
    [[nodiscard]] bool contains(int id) const { return id == 0 || actionOf(id) != nullptr; }
    /// The number of the last entry.
    [[nodiscard]] int lastId() const { return static_cast<int>(m_actions.size()); }

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] QAction* actionOf(int id) const;
    [[nodiscard]] QVariantMap propertiesOf(int id) const;

    QList<QAction*> m_actions;
    uint m_revision = 1;
};

} // namespace tintwick
