#include "AccessibleMenuButton.h"

#include <QAbstractButton>

namespace tintwick {

AccessibleMenuButton::AccessibleMenuButton(QAbstractButton& button, QAccessible::Role role)
    : QAccessibleWidget(&button, role)
    , m_button(button)
{
}

QAccessible::State AccessibleMenuButton::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.hasPopup = true;
    state.expandable = true;
    state.expanded = m_button.isDown();
    state.collapsed = !m_button.isDown();
    return state;
}

QStringList AccessibleMenuButton::actionNames() const
{
    return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
}

void AccessibleMenuButton::doAction(const QString& name)
{
    if (name == showMenuAction()) {
        m_button.click();
    } else {
        QAccessibleWidget::doAction(name);
    }
}

} // namespace tintwick
