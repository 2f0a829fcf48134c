#include "ui/kit/View.h"

#include "ui/kit/StackLayout.h"

namespace tintwick {

void View::setContent(QWidget* content)
{
    delete m_content;
    m_content = content;
    fillWith(*this, content);
}

} // namespace tintwick
