#pragma once

#include "CapturedColor.h"

#include <QObject>

#include <functional>
#include <optional>

class QDropEvent;
class QWidget;

namespace tintwick {

class AppState;

/// Makes a view of one colour accept another one: a colour of the panel, or a plain text from another program that is a colour.
/// Leaves other drags to the views around it, and so a drag of the view itself and of several colours. A member of the view
/// that is the target.
class SwatchDropTarget final : public QObject
{
    Q_OBJECT

public:
    /// Calls `hovered` with the dragged colour when a drag enters the view, and with none when it leaves or drops, and
    /// `dropped` with the colour of a drop.
    SwatchDropTarget(QWidget& view, const AppState& appState,
                     std::function<void(const std::optional<CapturedColor>&)> hovered,
                     std::function<void(const CapturedColor&)> dropped);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void enter(QDropEvent& event);
    void drop(QDropEvent& event);

    QWidget& m_view;
    const AppState& m_appState;
    std::function<void(const std::optional<CapturedColor>&)> m_hovered;
    std::function<void(const CapturedColor&)> m_dropped;
};

} // namespace tintwick
