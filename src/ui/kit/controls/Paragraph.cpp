#include "Paragraph.h"

#include "Accessibility.h"
#include "Appearance.h"

#include <QPainter>
#include <QTextLayout>

#include <cmath>
#include <utility>

namespace tintwick {

Paragraph::Paragraph(QString text, const QFont& font, const theme::Color& color)
    : m_text(std::move(text))
    , m_color(color)
{
    describeToScreenReaders<Paragraph>(QAccessible::StaticText);
    setFont(font);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(m_text);
}

QSize Paragraph::sizeHint() const
{
    QTextLayout layout(m_text, font());
    return {0, static_cast<int>(std::ceil(breakLines(layout)))};
}

double Paragraph::breakLines(QTextLayout& layout) const
{
    QTextOption option;
    // A path may be longer than a line.
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    double height = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width());
        line.setPosition({0, height});
        height += line.height();
    }
    layout.endLayout();
    return height;
}

// The layouts of this program ask for one size and not for the height of a width.
void Paragraph::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    updateGeometry();
}

void Paragraph::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(m_color.in(Appearance::of(this)));
    QTextLayout layout(m_text, font());
    breakLines(layout);
    layout.draw(&painter, {});
}

Paragraph* paragraph(const QString& text, const QFont& font, const theme::Color& color)
{
    return new Paragraph(text, font, color);
}

} // namespace tintwick
