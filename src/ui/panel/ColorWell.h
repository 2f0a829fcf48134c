#pragma once

#include "CapturedColor.h"
#include "Clickable.h"

namespace tintwick {

/// A colour with its part and code, for example "Text, #3B82F6". One of several wells is chosen.
class ColorWell final : public Clickable
{
    Q_OBJECT

public:
    /// `part` is what the colour is for.
    explicit ColorWell(const QString& part);

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
};

} // namespace tintwick
