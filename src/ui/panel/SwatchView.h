#pragma once

#include "Animator.h"
#include "CapturedColor.h"
#include "Overhang.h"
#include "SelectableColor.h"
#include "Shadow.h"
#include "ShadowCaster.h"
#include "Spring.h"
#include "SwatchDropTarget.h"
#include "Theme.h"

#include <QPoint>
#include <QRectF>

namespace tintwick {

class AppState;

/// The look of a kind of swatch. Lengths in points.
struct SwatchLook
{
    struct Shadow
    {
        double opacity = 0;
        double radius = 0;
        double drop = 0;

        friend bool operator==(const Shadow&, const Shadow&) = default;
    };
    /// Differences of the hovered state.
    struct State
    {
        theme::Color border;
        double borderWidth = 0;
        Shadow shadow;
        theme::Color label;
    };

    int side = 0;
    /// Room on both sides of the square for a label wider than it.
    int sideRoom = 0;
    double cornerRadius = 0;
    int labelGap = 0;
    /// Draw a checkerboard below a translucent colour.
    bool showsChecks = false;
    State atRest;
    State hovered;
    double hoverScale = 0;
    theme::Color hoverVeil;
    int symbolSize = 0;
    theme::Color symbolShadow;
    /// Animates from 0 at rest to 1 when hovered.
    Spring hover;
};

/// A coloured square with its code below. A click copies the colour. It can be dragged onto a collection, and onto another
/// swatch, which opens the contrast of both.
class SwatchView : public SelectableColor, public ShadowCaster, public Overhanging
{
    Q_OBJECT

public:
    [[nodiscard]] const CapturedColor& color() const override { return m_color; }
    void setColor(const CapturedColor& color);

    [[nodiscard]] QSize sizeHint() const override;
    void paintShadow(QPainter& painter) const override;
    [[nodiscard]] QMargins overhang() const override;

Q_SIGNALS:
    /// An arrow key asks to move the focus by a number of swatches; negative is left or up.
    void stepRequested(int columns, int rows);

protected:
    SwatchView(AppState& appState, const SwatchLook& look);

    void hoverChanged() override;
    [[nodiscard]] QRectF stateLayerRect() const override { return squareAtRest(); }
    [[nodiscard]] double cornerRadius() const override { return m_look.cornerRadius; }
    [[nodiscard]] bool tintsHover() const override { return false; }
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void step(int columns, int rows, Qt::KeyboardModifiers modifiers);
    void updateAll();
    /// Paints the square at its size at rest; `hovered` is 0 at rest and 1 when hovered.
    void paintSquare(QPainter& painter, double hovered) const;
    [[nodiscard]] Shadow shadowIn(const SwatchLook::State& state) const;
    [[nodiscard]] QRectF squareAtRest() const;
    [[nodiscard]] QRectF labelRect() const;
    /// Scale of the square, which grows when hovered.
    [[nodiscard]] double scale() const;

    SwatchLook m_look;
    CapturedColor m_color;
    QPoint m_pressedAt;
    Animator m_animator;
    SwatchDropTarget m_dropTarget;
};

} // namespace tintwick
