#include "Accessibility.h"

#include "PopUpPicker.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// A button that drops a menu, which a screen reader can open too.
class AccessibleMenuButton : public QAccessibleWidget
{
public:
    explicit AccessibleMenuButton(QAbstractButton& button, QAccessible::Role role = QAccessible::ButtonMenu)
        : QAccessibleWidget(&button, role)
        , m_button(button)
    {
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = m_button.isDown();
        state.collapsed = !m_button.isDown();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override
    {
        return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override
    {
        if (name == showMenuAction()) {
            m_button.click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    QAbstractButton& m_button;
};

class AccessiblePopUpPicker final : public AccessibleMenuButton
{
public:
    explicit AccessiblePopUpPicker(PopUpPicker& picker)
        : AccessibleMenuButton(picker, QAccessible::ComboBox)
        , m_picker(picker)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? m_picker.selectedTitle() : QAccessibleWidget::text(kind);
    }

private:
    PopUpPicker& m_picker;
};

QAccessibleInterface* interfaceOf(const QString& className, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr) {
        return nullptr;
    }
    if (className == "tintwick::Label"_L1) {
        return new QAccessibleWidget(widget, QAccessible::StaticText);
    }
    if (className == "tintwick::SegmentedPicker"_L1) {
        return new QAccessibleWidget(widget, QAccessible::Grouping);
    }
    if (className == "tintwick::PopUpPicker"_L1) {
        return new AccessiblePopUpPicker(*static_cast<PopUpPicker*>(widget));
    }
    if (className == "tintwick::Overlay"_L1) {
        return new QAccessibleWidget(widget, QAccessible::Dialog);
    }
    if (className == "tintwick::SymbolView"_L1) {
        return new QAccessibleWidget(widget, QAccessible::Graphic);
    }
    if (className == "tintwick::ReorderList"_L1) {
        return new QAccessibleWidget(widget, QAccessible::List);
    }
    if (className == "tintwick::Rule"_L1) {
        return new QAccessibleWidget(widget, QAccessible::Separator);
    }
    if (className == "tintwick::View"_L1) {
        return new QAccessibleWidget(widget, QAccessible::Pane);
    }
    if (className == "tintwick::MenuButton"_L1) {
        return new AccessibleMenuButton(*static_cast<QAbstractButton*>(widget));
    }
    return nullptr;
}

} // namespace

void describeToScreenReaders()
{
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(interfaceOf);
        return true;
    }();
}

} // namespace tintwick
