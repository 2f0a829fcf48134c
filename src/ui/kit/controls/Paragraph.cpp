#include "Paragraph.h"

#include "Accessibility.h"
#include "Appearance.h"

#include <QPainter>

#include <cmath>

namespace tintwick {

Paragraph::Paragraph(const QString& text, int width, const QFont& font, const theme::Color& color)
    : m_lines(text, font)
    , m_color(color)
{
    describeToScreenReaders<Paragraph>(QAccessible::StaticText);
    setAccessibleName(text);
    QTextOption option;
    // A path may be longer than a line.
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_lines.setTextOption(option);
    m_lines.beginLayout();
    double height = 0;
    for (QTextLine line = m_lines.createLine(); line.isValid(); line = m_lines.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, height});
        height += line.height();
    }
    m_lines.endLayout();
    setFixedSize(width, static_cast<int>(std::ceil(height)));
}

void Paragraph::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(m_color.in(Appearance::of(this)));
    m_lines.draw(&painter, {});
}

Paragraph* paragraph(const QString& text, int width, const QFont& font, const theme::Color& color)
{
    return new Paragraph(text, width, font, color);
}

} // namespace tintwick
