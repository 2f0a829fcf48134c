#pragma once

#include <QList>
#include <QObject>
#include <QUuid>

#include <functional>

class QDropEvent;
class QWidget;

namespace tintwick {

/// Makes a widget accept colours dropped from the panel or another program, as ids in a plain text, one per line. Accepts
/// every plain text. A member of the view that is the target.
class ColorDropTarget final : public QObject
{
    Q_OBJECT

public:
    /// Calls `hovered` when a drag enters or leaves the widget, and `dropped` with the ids of a drop, in their order.
    ColorDropTarget(QWidget& widget, std::function<void(bool)> hovered,
                    std::function<void(const QList<QUuid>&)> dropped);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void(bool)> m_hovered;
    std::function<void(const QList<QUuid>&)> m_dropped;
};

} // namespace tintwick
