#pragma once

#include <QAbstractButton>

#include <functional>

namespace tintwick {

/// What can be clicked: hover, keyboard focus and its ring, Space and Return, and a name for screen readers. Views derive
/// from it and paint themselves.
class Clickable : public QAbstractButton
{
    Q_OBJECT

public:
    /// `name` is what a screen reader says.
    explicit Clickable(const QString& name);

    [[nodiscard]] bool isHovered() const { return m_isHovered; }
    /// Whether the focus came by the keyboard and is to be seen.
    [[nodiscard]] bool showsFocusRing() const { return m_showsFocusRing; }

    void onClick(std::function<void()> action);
    /// Makes `content` the whole of the control. Clicks go through it to the control.
    void setContent(QWidget* content);

protected:
    virtual void hoverChanged();
    /// The radius of the focus ring's corners.
    [[nodiscard]] virtual double focusRingRadius() const;

    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Paints the focus ring only.
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] QSize sizeHint() const override;

private:
    bool m_isHovered = false;
    bool m_showsFocusRing = false;
};

} // namespace tintwick
