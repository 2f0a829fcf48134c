#pragma once

#include "ContextMenu.h"

#include <QAbstractButton>
#include <QRectF>

#include <functional>

namespace tintwick {

/// What can be clicked: hover, keyboard focus and its ring, Space and Return, a context menu, and a name for screen
/// readers. A subclass either composes its content or paints itself; then it calls `paintAnswer()` last.
class Clickable : public QAbstractButton
{
    Q_OBJECT

public:
    /// `name` is what a screen reader says.
    explicit Clickable(const QString& name);

    [[nodiscard]] bool isHovered() const { return m_isHovered; }
    /// Whether the focus came by the keyboard and is to be seen.
    [[nodiscard]] bool showsFocusRing() const { return m_showsFocusRing; }
    /// The same of any widget, or of none.
    [[nodiscard]] static bool showsFocusRing(const QWidget* widget);

    /// To be called when something else has taken the pointer, which is not told as its leaving.
    void forgetPointer() { setHovered(false); }

    void onClick(std::function<void()> action);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    /// Makes `content` the whole of the control. Clicks go through it to the control.
    void setContent(QWidget* content);
    /// Tints what is hovered or pressed, and draws the ring of keyboard focus.
    void paintAnswer(QPainter& painter) const;
    virtual void hoverChanged();
    /// What the secondary button, the menu key and Shift+F10 open; nothing while it is empty.
    [[nodiscard]] virtual QList<MenuEntry> contextMenu() const;
    /// The shape of tint and ring.
    [[nodiscard]] virtual QRectF answerRect() const { return rect(); }
    [[nodiscard]] virtual double cornerRadius() const;
    /// No for a view that shows in its own way that the pointer is over it.
    [[nodiscard]] virtual bool tintsHover() const { return true; }

    void contextMenuEvent(QContextMenuEvent* event) override;
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Answer;

    void setHovered(bool isHovered);
    void updateAnswer();

    /// Above the content.
    Answer* m_answer = nullptr;
    bool m_isHovered = false;
    bool m_showsFocusRing = false;
};

} // namespace tintwick
