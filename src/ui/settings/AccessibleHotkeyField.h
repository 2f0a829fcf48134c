#pragma once

#include <QAccessibleWidget>

#include <functional>

namespace tintwick {

/// The accessibility interface of a field that records a shortcut: its value is the shortcut, and pressing it starts the
/// recording.
class AccessibleHotkeyField final : public QAccessibleWidget
{
public:
    struct Field
    {
        std::function<QString()> value;
        std::function<QString()> description;
        std::function<void()> press;
    };

    AccessibleHotkeyField(QWidget& widget, Field field);

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& action) override;

private:
    Field m_field;
};

} // namespace tintwick
