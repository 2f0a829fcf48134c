#include "ColorDropTarget.h"

#include "ColorDrag.h"

#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

#include <utility>

namespace tintwick {

ColorDropTarget::ColorDropTarget(QWidget& widget, std::function<void(bool)> hovered,
                                 std::function<void(const QList<QUuid>&)> dropped)
    : m_hovered(std::move(hovered))
    , m_dropped(std::move(dropped))
{
    widget.setAcceptDrops(true);
    widget.installEventFilter(this);
}

bool ColorDropTarget::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter: {
        auto& enter = static_cast<QDragEnterEvent&>(*event);
        if (carriesText(*enter.mimeData()) && enter.possibleActions().testFlag(Qt::CopyAction)) {
            acceptAsCopy(enter);
            m_hovered(true);
        } else {
            enter.ignore();
        }
        return true;
    }
    case QEvent::DragLeave:
        m_hovered(false);
        return true;
    case QEvent::Drop: {
        auto& drop = static_cast<QDropEvent&>(*event);
        m_hovered(false);
        acceptAsCopy(drop);
        m_dropped(droppedColorIds(*drop.mimeData()));
        return true;
    }
    default:
        return QObject::eventFilter(watched, event);
    }
}

} // namespace tintwick
