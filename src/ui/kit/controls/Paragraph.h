#pragma once

#include "Theme.h"

#include <QWidget>

#include <cstdint>

class QTextLayout;

namespace tintwick {

/// A text that wraps at the width of the widget, which is as high as its lines.
class Paragraph final : public QWidget
{
    Q_OBJECT

public:
    Paragraph(QString text, const QFont& font, const theme::Color& color);

    [[nodiscard]] QString text() const { return m_text; }
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// Breaks the text into lines of the present width. Returns their height.
    double breakLines(QTextLayout& layout) const;

    QString m_text;
    theme::Color m_color;
};

[[nodiscard]] Paragraph* paragraph(const QString& text, const QFont& font,
                                   const theme::Color& color = theme::textPrimary);

} // namespace tintwick
