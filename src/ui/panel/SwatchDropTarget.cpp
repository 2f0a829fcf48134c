#include "SwatchDropTarget.h"

#include "AppState.h"
#include "ColorDrag.h"
#include "ColorText.h"

#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

#include <utility>

namespace tintwick {

namespace {

std::optional<CapturedColor> draggedColor(const QMimeData& data, const AppState& state)
{
    if (!carriesText(data)) {
        return std::nullopt;
    }
    ColorCollection dragged;
    dragged.colorIds = droppedColorIds(data);
    if (dragged.colorIds.size() > 1) {
        return std::nullopt;
    }
    const QList<CapturedColor> known = state.colorsOf(dragged);
    if (!known.isEmpty()) {
        return known.first();
    }
    const std::optional<WrittenColor> written = colorFromText(data.text());
    return written ? std::optional(written->color) : std::nullopt;
}

} // namespace

SwatchDropTarget::SwatchDropTarget(QWidget& view, const AppState& appState,
                                   std::function<void(const CapturedColor&)> dropped)
    : m_view(view)
    , m_appState(appState)
    , m_dropped(std::move(dropped))
{
    view.setAcceptDrops(true);
    view.installEventFilter(this);
}

bool SwatchDropTarget::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
        enter(static_cast<QDropEvent&>(*event));
        return true;
    case QEvent::DragLeave:
        setDragged(std::nullopt);
        return true;
    case QEvent::Drop:
        drop(static_cast<QDropEvent&>(*event));
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

void SwatchDropTarget::enter(QDropEvent& event)
{
    const std::optional<CapturedColor> color = draggedColor(*event.mimeData(), m_appState);
    const bool isFromHere = event.source() == &m_view;
    if (!color || isFromHere || !event.possibleActions().testFlag(Qt::CopyAction)) {
        event.ignore();
        return;
    }
    acceptAsCopy(event);
    setDragged(color);
}

void SwatchDropTarget::drop(QDropEvent& event)
{
    acceptAsCopy(event);
    const std::optional<CapturedColor> dropped = m_dragged;
    setDragged(std::nullopt);
    if (dropped) {
        m_dropped(*dropped);
    }
}

void SwatchDropTarget::setDragged(const std::optional<CapturedColor>& color)
{
    m_dragged = color;
    m_view.update();
}

} // namespace tintwick
