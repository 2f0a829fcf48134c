#pragma once

#include "Animator.h"
#include "CapturedColor.h"
#include "Clickable.h"
#include "EaseInOut.h"

#include <QList>
#include <QUuid>

namespace tintwick {

class AppState;
class Label;
class MenuButton;
class PlainButton;

/// A colour in the list of a palette: its square, its code and its name. A click copies it; at its end are a menu of all
/// formats and a button that takes it out of the palette.
class ColorDetailRow final : public Clickable
{
    Q_OBJECT

public:
    /// With the room around the row's parts, in points.
    static constexpr int height = 54;
    static constexpr int inset = 12;

    ColorDetailRow(AppState& appState, const QUuid& collectionId);

    [[nodiscard]] const CapturedColor& color() const { return m_color; }
    void setColor(const CapturedColor& color);

    [[nodiscard]] MenuButton& copyButton() const { return *m_copy; }
    [[nodiscard]] PlainButton& removeButton() const { return *m_remove; }

protected:
    [[nodiscard]] QRectF answerRect() const override;
    [[nodiscard]] double cornerRadius() const override;
    void hoverChanged() override;
    // Its buttons tell that the pointer is over it.
    [[nodiscard]] bool tintsHover() const override { return false; }
    void paintEvent(QPaintEvent* event) override;

private:
    class Square;
    class HoverSymbol;

    [[nodiscard]] MenuButton* copyMenu();
    [[nodiscard]] PlainButton* removal();

    AppState& m_appState;
    QUuid m_collectionId;
    CapturedColor m_color;

    Square* m_square;
    Label* m_hex;
    Label* m_name;
    QList<HoverSymbol*> m_symbols;
    MenuButton* m_copy = nullptr;
    PlainButton* m_remove = nullptr;

    /// 0 at rest, 1 under the pointer.
    EaseInOut m_hover;
    Animator m_animator;
};

} // namespace tintwick
