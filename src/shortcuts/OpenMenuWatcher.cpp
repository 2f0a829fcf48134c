#include "OpenMenuWatcher.h"

#include "Registry.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace tintwick::KeyboardShortcuts {

OpenMenuWatcher::OpenMenuWatcher(Registry& registry)
    : m_registry(registry)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool OpenMenuWatcher::eventFilter(QObject* watched, QEvent* event)
{
    const bool shows = event->type() == QEvent::Show;
    if ((shows || event->type() == QEvent::Hide) && watched->isWidgetType()) {
        if (shows && static_cast<QWidget*>(watched)->windowType() == Qt::Popup) {
            m_openMenus.insert(watched);
        } else if (!shows) {
            m_openMenus.remove(watched);
        }
        m_registry.setMenuOpen(!m_openMenus.isEmpty());
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tintwick::KeyboardShortcuts
