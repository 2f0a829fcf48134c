#pragma once

#include <QAccessibleWidget>

class QAbstractButton;

namespace tintwick {

/// What screen readers see of a button that opens a menu. They can open the menu, too.
class AccessibleMenuButton : public QAccessibleWidget
{
public:
    AccessibleMenuButton(QAbstractButton& button, QAccessible::Role role);

    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    QAbstractButton& m_button;
};

} // namespace tintwick
