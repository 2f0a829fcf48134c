#pragma once

#include "Theme.h"

#include <QTextLayout>
#include <QWidget>

namespace tintwick {

/// A text that is broken into lines of a fixed width, in points. The widget is as high as its lines.
class Paragraph final : public QWidget
{
    Q_OBJECT

public:
    Paragraph(const QString& text, int width, const QFont& font, const theme::Color& color);

    [[nodiscard]] QString text() const { return m_lines.text(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QTextLayout m_lines;
    theme::Color m_color;
};

[[nodiscard]] Paragraph* paragraph(const QString& text, int width, const QFont& font,
                                   const theme::Color& color = theme::textPrimary);

} // namespace tintwick
