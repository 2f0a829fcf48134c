#pragma once

#include "Animator.h"
#include "CapturedColor.h"
#include "EaseInOut.h"
#include "SelectableColor.h"

#include <QList>
#include <QUuid>

namespace tintwick {

class AppState;
class Label;
class MenuButton;
class PlainButton;

/// A colour in the list of a palette: square, code and name. A click copies it. At the end are a menu of all formats and
/// a button that removes the colour from the palette.
class ColorDetailRow final : public SelectableColor
{
    Q_OBJECT

public:
    /// Including the padding, in points.
    static constexpr int height = 54;
    static constexpr int inset = 12;

    ColorDetailRow(AppState& appState, const QUuid& collectionId);

    [[nodiscard]] const CapturedColor& color() const override { return m_color; }
    void setColor(const CapturedColor& color);

    [[nodiscard]] MenuButton& copyButton() const { return *m_copy; }
    [[nodiscard]] PlainButton& removeButton() const { return *m_remove; }

protected:
    [[nodiscard]] QRectF stateLayerRect() const override;
    [[nodiscard]] double cornerRadius() const override;
    void hoverChanged() override;
    void selectedChanged() override;
    [[nodiscard]] QList<MenuEntry> contextMenu() const override;
    void keyPressEvent(QKeyEvent* event) override;
    // The row is hovered while one of its buttons is.
    [[nodiscard]] bool tintsHover() const override { return false; }
    void paintEvent(QPaintEvent* event) override;

private:
    class Square;
    class HoverSymbol;

    [[nodiscard]] MenuButton* copyMenu();
    [[nodiscard]] PlainButton* removal();
    void removeColor() const;

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
