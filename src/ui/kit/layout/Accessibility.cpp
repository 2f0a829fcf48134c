#include "Accessibility.h"

#include <QAccessibleWidget>
#include <QHash>

namespace tintwick {

namespace {

/// By class name.
QHash<QString, AccessibleMaker>& makers()
{
    static QHash<QString, AccessibleMaker> all;
    return all;
}

/// Qt asks for the class of an object and then for each of its base classes.
QAccessibleInterface* interfaceOf(const QString& className, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    const auto maker = makers().constFind(className);
    return widget != nullptr && maker != makers().cend() ? (*maker)(*widget) : nullptr;
}

} // namespace

void registerAccessible(const QMetaObject& type, const AccessibleMaker& make)
{
    if (makers().isEmpty()) {
        QAccessible::installFactory(interfaceOf);
    }
    makers().insert(QString::fromLatin1(type.className()), make);
}

AccessibleMaker accessibleRole(QAccessible::Role role)
{
    return [role](QWidget& widget) { return new QAccessibleWidget(&widget, role); };
}

} // namespace tintwick
