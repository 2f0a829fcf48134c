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
    /// Calls `dropped` with the colour of a drop.
    SwatchDropTarget(QWidget& view, const AppState& appState,
                     std::function<void(const CapturedColor&)> dropped);

    /// The colour of a drag that is over the view. The view is repainted when that changes.
    [[nodiscard]] const std::optional<CapturedColor>& dragged() const { return m_dragged; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void enter(QDropEvent& event);
    void drop(QDropEvent& event);
    void setDragged(const std::optional<CapturedColor>& color);

    QWidget& m_view;
    const AppState& m_appState;
    std::function<void(const CapturedColor&)> m_dropped;
    std::optional<CapturedColor> m_dragged;
};

} // namespace tintwick
