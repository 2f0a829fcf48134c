#include "View.h"

#include "StackLayout.h"

namespace tintwick {

void View::setContent(QWidget* content)
{
    delete m_content;
    m_content = content;
    fillWith(*this, content);
}

} // namespace tintwick
