#include "PopupWatcher.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWindow>

namespace tintwick {

PopupWatcher::PopupWatcher()
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool PopupWatcher::eventFilter(QObject* watched, QEvent* event)
{
    const bool isShow = event->type() == QEvent::Show;
    if ((!isShow && event->type() != QEvent::Hide) || !watched->isWindowType()) {
        return false;
    }
    const bool wasAnyOpen = isAnyOpen();
    if (!isShow) {
        m_open.remove(watched);
    } else if (static_cast<const QWindow*>(watched)->type() == Qt::Popup) {
        m_open.insert(watched);
    }
    if (isAnyOpen() && !wasAnyOpen) {
        Q_EMIT firstOpened();
    } else if (!isAnyOpen() && wasAnyOpen) {
        Q_EMIT lastClosed();
    }
    return false;
}

} // namespace tintwick
