#include "ui/kit/Accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

QAccessibleInterface* interfaceOf(const QString& className, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr) {
        return nullptr;
    }
    if (className == "tintwick::Label"_L1) {
        return new QAccessibleWidget(widget, QAccessible::StaticText);
    }
    if (className == "tintwick::Sheet"_L1) {
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
