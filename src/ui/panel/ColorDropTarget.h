#pragma once

#include <QObject>

#include <functional>

class QDropEvent;
class QUuid;
class QWidget;

namespace tintwick {

/// Lets a widget take dropped colours, from the panel or from any other program: each line of a plain text that is an id.
/// A drop always counts as taken, whatever was in it. A member of the view that is the target.
class ColorDropTarget final : public QObject
{
    Q_OBJECT

public:
    /// `hovered` is told when a drag comes over the widget and when it is gone again, `dropped` each id in its order.
    ColorDropTarget(QWidget& widget, std::function<void(bool)> hovered,
                    std::function<void(const QUuid&)> dropped);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void(bool)> m_hovered;
    std::function<void(const QUuid&)> m_dropped;
};

} // namespace tintwick
