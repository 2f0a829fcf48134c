#pragma once

#include "ui/kit/Clickable.h"

namespace tintwick {

class Stack;

/// A button that looks like its content. Pressed, the content fades a little; where it can be clicked and the pointer is
/// over it, too little to be seen as anything but an answer.
class PlainButton final : public Clickable
{
    Q_OBJECT

public:
    PlainButton(const QString& name, QWidget* content, double cornerRadius);

protected:
    [[nodiscard]] double focusRingRadius() const override { return m_cornerRadius; }
    void hoverChanged() override;
    void paintEvent(QPaintEvent* event) override;

private:
    double m_cornerRadius;
};

/// A button with a title, as at the bottom of a sheet.
class TextButton final : public Clickable
{
    Q_OBJECT

public:
    enum class Style { Bordered, Prominent };

    TextButton(const QString& title, Style style);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    [[nodiscard]] double focusRingRadius() const override;
    void hoverChanged() override;
    void paintEvent(QPaintEvent* event) override;

private:
    Style m_style;
};

/// A plain button around `content`; `name` is for screen readers. The focus ring follows `cornerRadius`.
[[nodiscard]] PlainButton* plainButton(const QString& name, std::function<void()> action, QWidget* content,
                                       double cornerRadius = 6);
[[nodiscard]] TextButton* borderedButton(const QString& title, std::function<void()> action);
[[nodiscard]] TextButton* prominentButton(const QString& title, std::function<void()> action);

/// Adds the help that appears when the pointer rests on a widget. Returns the widget.
template <typename Widget>
[[nodiscard]] Widget* withHelp(const QString& help, Widget* widget)
{
    widget->setToolTip(help);
    return widget;
}

} // namespace tintwick
