#pragma once

#include <QAccessible>
#include <QWidget>

#include <functional>

namespace tintwick {

/// Makes the interface that screen readers use for a widget. The caller owns it.
using AccessibleMaker = std::function<QAccessibleInterface*(QWidget& widget)>;

/// Registers `make` for all widgets of `type` and of its subclasses. A later call for the same type replaces an earlier one.
void registerAccessible(const QMetaObject& type, const AccessibleMaker& make);

/// An interface that has only a role.
[[nodiscard]] AccessibleMaker accessibleRole(QAccessible::Role role);

/// Registers the class `Widget` once per process. To be called in its constructor.
template <typename Widget>
void describeToScreenReaders(const AccessibleMaker& make)
{
    [[maybe_unused]] static const bool registered = [&make] {
        registerAccessible(Widget::staticMetaObject, make);
        return true;
    }();
}

template <typename Widget>
void describeToScreenReaders(QAccessible::Role role)
{
    describeToScreenReaders<Widget>(accessibleRole(role));
}

} // namespace tintwick
