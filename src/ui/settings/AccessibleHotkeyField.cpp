#include "AccessibleHotkeyField.h"

#include <utility>

namespace tintwick {

AccessibleHotkeyField::AccessibleHotkeyField(QWidget& widget, Field field)
    : QAccessibleWidget(&widget, QAccessible::HotkeyField)
    , m_field(std::move(field))
{
}

QString AccessibleHotkeyField::text(QAccessible::Text kind) const
{
    switch (kind) {
    case QAccessible::Value:
        return m_field.value();
    case QAccessible::Description:
        return m_field.description();
    default:
        return QAccessibleWidget::text(kind);
    }
}

QStringList AccessibleHotkeyField::actionNames() const
{
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
}

void AccessibleHotkeyField::doAction(const QString& action)
{
    if (action == pressAction()) {
        m_field.press();
    } else {
        QAccessibleWidget::doAction(action);
    }
}

} // namespace tintwick
