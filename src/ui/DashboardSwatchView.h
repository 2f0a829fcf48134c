#pragma once

#include "model/CapturedColor.h"
#include "ui/kit/Animator.h"
#include "ui/kit/Clickable.h"
#include "ui/kit/Overhang.h"
#include "ui/kit/ShadowCaster.h"
#include "ui/kit/Spring.h"

#include <QPoint>
#include <QRectF>

namespace tintwick {

class AppState;

/// A recent colour: a square with its code below. A click copies it; it can be dragged onto a collection.
class DashboardSwatchView final : public Clickable, public ShadowCaster, public Overhanging
{
    Q_OBJECT

public:
    static constexpr int side = 62;

    explicit DashboardSwatchView(AppState& appState);

    [[nodiscard]] const CapturedColor& color() const { return m_color; }
    void setColor(const CapturedColor& color);

    [[nodiscard]] QSize sizeHint() const override;
    void paintShadow(QPainter& painter) const override;
    [[nodiscard]] QMargins overhang() const override;

Q_SIGNALS:
    /// The focus is to go on by so many swatches; negative is to the left.
    void stepRequested(int step);

protected:
    void hoverChanged() override;
    [[nodiscard]] QRectF answerRect() const override;
    [[nodiscard]] double cornerRadius() const override;
    [[nodiscard]] bool tintsHover() const override { return false; }
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void openContextMenu(QPoint globalPosition);
    void paintSquare(QPainter& painter, const QRectF& square) const;
    /// Of the square, which grows under the pointer.
    [[nodiscard]] double scale() const;

    AppState& m_appState;
    CapturedColor m_color;
    QPoint m_pressedAt;
    /// 0 at rest, 1 under the pointer.
    Spring m_hover;
    Animator m_animator;
};

} // namespace tintwick
