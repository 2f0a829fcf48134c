#include "View.h"

#include "Accessibility.h"
#include "StackLayout.h"

namespace tintwick {

namespace {

/// The toolkit puts new controls at the end of the window's tab order; this moves those in `view` to the place of the view.
void moveIntoTabOrder(QWidget& view)
{
    const auto isReachable = [](const QWidget& widget) { return (widget.focusPolicy() & Qt::TabFocus) != 0; };
    QWidget* last = view.previousInFocusChain();
    while (last != &view && !isReachable(*last)) {
        last = last->previousInFocusChain();
    }
    if (last == &view || view.isAncestorOf(last)) {
        return;
    }
    for (QWidget* control : view.findChildren<QWidget*>()) {
        if (isReachable(*control)) {
            QWidget::setTabOrder(last, control);
            last = control;
        }
    }
}

} // namespace

View::View()
{
    describeToScreenReaders<View>(QAccessible::Pane);
}

void View::setContent(QWidget* content)
{
    const bool isReplaced = m_content != nullptr;
    delete m_content;
    m_content = content;
    fillWith(*this, content);
    if (isReplaced) {
        moveIntoTabOrder(*this);
    }
}

} // namespace tintwick
