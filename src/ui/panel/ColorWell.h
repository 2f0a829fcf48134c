#pragma once

#include "CapturedColor.h"
#include "Clickable.h"
#include "SwatchDropTarget.h"

#include <functional>

namespace tintwick {

class AppState;

/// A colour with its part and code, for example "Text, #3B82F6". One of several wells is chosen.
class ColorWell final : public Clickable
{
    Q_OBJECT

public:
    /// `part` is what the colour is for. `replace` is called with a colour dropped on the well.
    ColorWell(QString part, const AppState& appState, std::function<void(const CapturedColor&)> replace);

    void setPart(const QString& part);
    [[nodiscard]] const CapturedColor& color() const { return m_color; }
    void setColor(const CapturedColor& color);
    [[nodiscard]] bool isChosen() const { return m_isChosen; }
    void setChosen(bool isChosen);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] double cornerRadius() const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void updateNames();

    QString m_part;
    CapturedColor m_color;
    bool m_isChosen = false;
    SwatchDropTarget m_dropTarget;
};

} // namespace tintwick
