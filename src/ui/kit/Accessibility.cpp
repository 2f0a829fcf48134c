#include "ui/kit/Accessibility.h"

#include "ui/kit/PopUpPicker.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

class PopUpPickerInterface final : public QAccessibleWidget
{
public:
    explicit PopUpPickerInterface(PopUpPicker& picker)
        : QAccessibleWidget(&picker, QAccessible::ComboBox)
        , m_picker(picker)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? m_picker.selectedTitle() : QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override
    {
        return QStringList{showMenuAction(), pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override
    {
        if (name == showMenuAction() || name == pressAction()) {
            m_picker.openMenu();
        } else {
            QAccessibleWidget::doAction(name);
        }
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
        return new PopUpPickerInterface(*static_cast<PopUpPicker*>(widget));
    }
    if (className == "tintwick::Sheet"_L1) {
        return new QAccessibleWidget(widget, QAccessible::Dialog);
    }
    if (className == "tintwick::SymbolView"_L1) {
        return new QAccessibleWidget(widget, QAccessible::Graphic);
    }
    if (className == "tintwick::Rule"_L1) {
        return new QAccessibleWidget(widget, QAccessible::Separator);
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
