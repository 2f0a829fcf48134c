#pragma once

#include "ContextMenu.h"

#include <QAbstractButton>
#include <QRectF>

#include <functional>

namespace tintwick {

/// The base of all controls that can be clicked: hover, keyboard focus and its ring, Space and Return, a context menu, and an
/// accessible name. A subclass either sets a content, or paints itself and calls `paintStateLayer()` last.
class Clickable : public QAbstractButton
{
    Q_OBJECT

public:
    /// `name` is for screen readers.
    explicit Clickable(const QString& name);

    [[nodiscard]] bool isHovered() const { return m_isHovered; }
    /// Whether the control has the focus and got it by the keyboard.
    [[nodiscard]] bool showsFocusRing() const { return m_showsFocusRing; }
    /// The same for any widget. False for null and for widgets that are not `Clickable`.
    [[nodiscard]] static bool showsFocusRing(const QWidget* widget);
    /// Whether a control that gets the focus for `reason` shows the focus ring. `shown` is whether it showed the ring when it
    /// had the focus last.
    [[nodiscard]] static bool focusRingIsShown(Qt::FocusReason reason, bool shown);

    void onClick(std::function<void()> action);
    /// The keys that were held at the click that is being carried out.
    [[nodiscard]] Qt::KeyboardModifiers clickModifiers() const { return m_clickModifiers; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    /// Makes `content` fill the control. Mouse events pass through it to the control.
    void setContent(QWidget* content);
    /// Paints the tint of a hovered or pressed control and its focus ring.
    void paintStateLayer(QPainter& painter) const;
    virtual void hoverChanged();
    /// The entries of the menu that opens on the right button, the menu key and Shift+F10. Empty for no menu.
    [[nodiscard]] virtual QList<MenuEntry> contextMenu() const;
    /// The rectangle of tint and focus ring.
    [[nodiscard]] virtual QRectF stateLayerRect() const { return rect(); }
    /// Of tint and focus ring, in points.
    [[nodiscard]] virtual double cornerRadius() const;
    /// False for a view that shows hovering in another way.
    [[nodiscard]] virtual bool tintsHover() const { return true; }

    void contextMenuEvent(QContextMenuEvent* event) override;
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class StateLayer;

    void setHovered(bool isHovered);
    void updateStateLayer();

    /// Above the content; null without one.
    StateLayer* m_stateLayer = nullptr;
    bool m_isHovered = false;
    Qt::KeyboardModifiers m_clickModifiers = Qt::NoModifier;
    bool m_showsFocusRing = false;
};

} // namespace tintwick
