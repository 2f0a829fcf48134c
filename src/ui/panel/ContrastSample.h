#pragma once

#include <QColor>
#include <QString>
#include <QWidget>

namespace tintwick {

class ColorContrast;

/// Text of one colour on a ground of another, in a large and a small size, and below it how well it is read by APCA.
class ContrastSample final : public QWidget
{
    Q_OBJECT

public:
    /// `width` is in points.
    explicit ContrastSample(int width);

    void setContrast(const ColorContrast& contrast);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRect card() const;

    QColor m_text;
    QColor m_ground;
    QString m_lightness;
    QString m_advice;
};

} // namespace tintwick
