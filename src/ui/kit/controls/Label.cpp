#include "Label.h"

#include "Accessibility.h"
#include "Appearance.h"
#include "ToolTip.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tintwick {

Label::Label(const QString& text, const QFont& font, const theme::Color& color)
    : m_text(text)
    , m_color(color)
{
    describeToScreenReaders<Label>(QAccessible::StaticText);
    setFont(font);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setAccessibleName(text);
}

void Label::setText(const QString& text)
{
    if (m_text == text) {
        return;
    }
    m_text = text;
    setAccessibleName(text);
    updateGeometry();
    update();
    updateToolTip();
}

void Label::setColor(const theme::Color& color)
{
    m_color = color;
    update();
}

QSize Label::sizeHint() const
{
    const QFontMetricsF metrics(font());
    double width = 0;
    int lines = 0;
    for (const QStringView line : QStringView(m_text).tokenize(u'\n')) {
        width = std::max(width, metrics.horizontalAdvance(line.toString()));
        ++lines;
    }
    return {static_cast<int>(std::ceil(width)), lines * QFontMetrics(font()).height()};
}

QSize Label::minimumSizeHint() const
{
    // At least the width of the ellipsis, or of a shorter text.
    const QSize whole = sizeHint();
    return {std::min(whole.width(), QFontMetrics(font()).horizontalAdvance(QChar(0x2026))), whole.height()};
}

bool Label::isCut() const
{
    return width() < sizeHint().width();
}

void Label::updateToolTip()
{
    setToolTip(isCut() ? m_text : QString());
}

bool Label::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && !toolTip().isEmpty()) {
        showToolTip(*this, static_cast<QHelpEvent*>(event)->globalPos());
        return true;
    }
    return QWidget::event(event);
}

void Label::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    updateToolTip();
}

void Label::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(m_color.in(Appearance::of(this)));
    const QFontMetrics metrics(font());
    const bool isOneLine = !m_text.contains(u'\n');
    const bool isWhole = !isCut();
    int y = 0;
    for (const QStringView line : QStringView(m_text).tokenize(u'\n')) {
        // A text that fits is not elided because of rounding at this scale.
        const QString shown =
            isWhole ? line.toString() : metrics.elidedText(line.toString(), Qt::ElideRight, width());
        painter.drawText(
            QRect(0, y, width(), metrics.height()),
            Qt::AlignVCenter | Qt::TextSingleLine | (isOneLine ? Qt::AlignLeft : Qt::AlignHCenter), shown);
        y += metrics.height();
    }
}

Label* label(const QString& text, const QFont& font, const theme::Color& color)
{
    return new Label(text, font, color);
}

Label* label(const Bound<QString>& text, const QFont& font, const theme::Color& color)
{
    auto* view = new Label({}, font, color);
    text.follow(*view, [view](const QString& now) { view->setText(now); });
    return view;
}

} // namespace tintwick
