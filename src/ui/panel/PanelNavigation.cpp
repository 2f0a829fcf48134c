#include "PanelNavigation.h"

#include <QWidget>

namespace tintwick {

PanelNavigation::PanelNavigation(QWidget& panel)
    : QObject(&panel)
{
}

PanelNavigation* PanelNavigation::of(const QWidget* view)
{
    for (const QWidget* ancestor = view; ancestor != nullptr; ancestor = ancestor->parentWidget()) {
        if (auto* found = ancestor->findChild<PanelNavigation*>({}, Qt::FindDirectChildrenOnly)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace tintwick
