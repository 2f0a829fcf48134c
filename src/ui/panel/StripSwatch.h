#pragma once

#include "CapturedColor.h"
#include "Clickable.h"

namespace tintwick {

/// A small swatch of a strip, which can be marked.
class StripSwatch final : public Clickable
{
    Q_OBJECT

public:
    /// From the colour to the outside of the ring around it, in points.
    static constexpr int ringRoom = 4;

    StripSwatch();

    [[nodiscard]] const CapturedColor& color() const { return m_color; }
    void setColor(const CapturedColor& color);
    [[nodiscard]] bool isMarked() const { return m_isMarked; }
    void setMarked(bool isMarked);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    [[nodiscard]] double cornerRadius() const override;
    void paintEvent(QPaintEvent* event) override;

private:
    CapturedColor m_color;
    bool m_isMarked = false;
};

} // namespace tintwick
