#pragma once

#include "CapturedColor.h"
#include "Clickable.h"
#include "Theme.h"

#include <QList>
#include <QUuid>

class QPainter;

namespace tintwick {

class AppState;
class ColorSelector;

/// A view of a colour. A click copies the colour; with Ctrl or Shift it selects, if the view has a selector.
class SelectableColor : public Clickable
{
    Q_OBJECT

public:
    [[nodiscard]] virtual const CapturedColor& color() const = 0;

    /// `selector` outlives the view.
    void setSelector(ColorSelector& selector);
    [[nodiscard]] ColorSelector* selector() const { return m_selector; }
    [[nodiscard]] bool isSelected() const { return m_isSelected; }

protected:
    explicit SelectableColor(AppState& appState);

    [[nodiscard]] AppState& appState() const { return m_appState; }
    /// The ids that a drag of the view carries.
    [[nodiscard]] QList<QUuid> draggedIds() const;
    /// To be called after the view has got another colour.
    void followSelector();
    virtual void selectedChanged() { update(); }

    /// Draws the ring and the check mark of a selected colour on its square.
    static void drawSelected(QPainter& painter, const QRectF& square, double cornerRadius, Scheme scheme);

private:
    AppState& m_appState;
    ColorSelector* m_selector = nullptr;
    bool m_isSelected = false;
};

} // namespace tintwick
