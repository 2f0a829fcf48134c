#include "View.h"

#include "Accessibility.h"
#include "StackLayout.h"

namespace tintwick {

View::View()
{
    describeToScreenReaders<View>(QAccessible::Pane);
}

void View::setContent(QWidget* content)
{
    delete m_content;
    m_content = content;
    fillWith(*this, content);
}

} // namespace tintwick
