#pragma once

#include "Bound.h"
#include "Theme.h"

#include <QWidget>

namespace tintwick {

/// One line of text, or several centred lines where the text has line breaks. A line that is too long is elided, and the tool tip
/// shows the whole text.
class Label final : public QWidget
{
    Q_OBJECT

public:
    Label(const QString& text, const QFont& font, const theme::Color& color);

    [[nodiscard]] QString text() const { return m_text; }
    void setText(const QString& text);
    [[nodiscard]] const theme::Color& color() const { return m_color; }
    void setColor(const theme::Color& color);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] bool isCut() const;
    void updateToolTip();

    QString m_text;
    theme::Color m_color;
};

[[nodiscard]] Label* label(const QString& text, const QFont& font,
                           const theme::Color& color = theme::textPrimary);
/// A text that follows state.
[[nodiscard]] Label* label(const Bound<QString>& text, const QFont& font,
                           const theme::Color& color = theme::textPrimary);

} // namespace tintwick
