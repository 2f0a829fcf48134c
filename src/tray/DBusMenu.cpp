#include "DBusMenu.h"

#include <QAction>
#include <QDBusAbstractAdaptor>
#include <QDBusVariant>
#include <QKeySequence>
#include <QMetaObject>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr uint protocolVersion = 3;

/// An underscore marks a mnemonic.
QString literal(const QString& text)
{
    return QString(text).replace(u'_', u"__"_s);
}

/// The keys by the names that the protocol defines for modifiers and by those of keysyms.
QStringList keysOf(QKeyCombination combination)
{
    QStringList keys;
    const Qt::KeyboardModifiers modifiers = combination.keyboardModifiers();
    if (modifiers.testFlag(Qt::ControlModifier)) {
        keys.append(u"Control"_s);
    }
    if (modifiers.testFlag(Qt::AltModifier)) {
        keys.append(u"Alt"_s);
    }
    if (modifiers.testFlag(Qt::ShiftModifier)) {
        keys.append(u"Shift"_s);
    }
    if (modifiers.testFlag(Qt::MetaModifier)) {
        keys.append(u"Super"_s);
    }
    const QString key = QKeySequence(combination.key()).toString(QKeySequence::PortableText);
    keys.append(key == ","_L1 ? u"comma"_s : key);
    return keys;
}

} // namespace

/// com.canonical.dbusmenu, which hosts call.
class DBusMenuAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

public:
    explicit DBusMenuAdaptor(DBusMenu* menu)
        : QDBusAbstractAdaptor(menu)
        , m_menu(*menu)
    {
        connect(menu, &DBusMenu::changed, this, [this] { Q_EMIT LayoutUpdated(m_menu.revision(), 0); });
    }

    [[nodiscard]] uint version() const { return protocolVersion; }
    [[nodiscard]] QString textDirection() const { return u"ltr"_s; }
    [[nodiscard]] QString status() const { return u"normal"_s; }
    [[nodiscard]] QStringList iconThemePath() const { return {}; }

public Q_SLOTS:
    uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                   tintwick::DBusMenuLayout& layout)
    {
        layout = m_menu.layout(parentId, recursionDepth != 0, propertyNames);
        return m_menu.revision();
    }

    QList<tintwick::DBusMenuProperties> GetGroupProperties(const QList<int>& ids,
                                                           const QStringList& propertyNames)
    {
        QList<int> wanted = ids;
        for (int id = 0; ids.isEmpty() && id <= m_menu.lastId(); ++id) {
            wanted.append(id);
        }
        QList<DBusMenuProperties> result;
        for (const int id : wanted) {
            if (m_menu.contains(id)) {
                result.append({id, m_menu.layout(id, false, propertyNames).properties});
            }
        }
        return result;
    }

    QDBusVariant GetProperty(int id, const QString& name)
    {
        const QVariant value = m_menu.layout(id, false, {name}).properties.value(name);
        return QDBusVariant(value.isValid() ? value : QVariant(QString()));
    }

    void Event(int id, const QString& eventId, const QDBusVariant&, uint)
    {
        if (eventId == "clicked"_L1) {
            m_menu.trigger(id);
        }
    }

    QList<int> EventGroup(const QList<tintwick::DBusMenuEvent>& events)
    {
        QList<int> unknown;
        for (const DBusMenuEvent& event : events) {
            if (m_menu.contains(event.id)) {
                Event(event.id, event.type, QDBusVariant(event.data), event.time);
            } else {
                unknown.append(event.id);
            }
        }
        return unknown;
    }

    bool AboutToShow(int) { return false; }

    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& unknown)
    {
        for (const int id : ids) {
            if (!m_menu.contains(id)) {
                unknown.append(id);
            }
        }
        return {};
    }

Q_SIGNALS:
    void LayoutUpdated(uint, int);

private:
    DBusMenu& m_menu;
};

DBusMenu::DBusMenu(QObject* parent)
    : QObject(parent)
{
    registerDBusMenuTypes();
    new DBusMenuAdaptor(this);
}

void DBusMenu::setActions(const QList<QAction*>& actions)
{
    m_actions = actions;
    for (QAction* action : actions) {
        connect(action, &QAction::changed, this, [this] {
            ++m_revision;
            Q_EMIT changed();
        });
    }
}

QAction* DBusMenu::actionOf(int id) const
{
    return m_actions.value(id - 1);
}

QVariantMap DBusMenu::propertiesOf(int id) const
{
    if (id == 0) {
        return {{u"children-display"_s, u"submenu"_s}};
    }
    const QAction* action = actionOf(id);
    if (action == nullptr) {
        return {};
    }
    if (action->isSeparator()) {
        return {{u"type"_s, u"separator"_s}};
    }
    QVariantMap properties{{u"label"_s, literal(action->text())},
                           {u"enabled"_s, action->isEnabled()},
                           {u"visible"_s, action->isVisible()}};
    const QKeySequence shortcut = action->shortcut();
    if (!shortcut.isEmpty()) {
        properties.insert(u"shortcut"_s, QVariant::fromValue(QList<QStringList>{keysOf(shortcut[0])}));
    }
    return properties;
}

DBusMenuLayout DBusMenu::layout(int id, bool withChildren, const QStringList& names) const
{
    DBusMenuLayout result{id, propertiesOf(id), {}};
    if (!names.isEmpty()) {
        result.properties.removeIf([&](const std::pair<const QString&, QVariant&>& property) {
            return !names.contains(property.first);
        });
    }
    if (id == 0 && withChildren) {
        for (int child = 1; child <= lastId(); ++child) {
            result.children.append(layout(child, false, names));
        }
    }
    return result;
}

// Queued, so that the caller gets its answer before an action that takes long, such as quitting.
bool DBusMenu::trigger(int id)
{
    QAction* action = actionOf(id);
    return action != nullptr && QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
}

} // namespace tintwick

#include "DBusMenu.moc"
