#include "NoticeView.h"

#include "Appearance.h"
#include "Paint.h"
#include "Theme.h"

#include <QAccessible>
#include <QPainter>

namespace tintwick {

namespace {

// In points. The margins are around the row, the padding is between its edge and the text.
constexpr QMargins margins(16, 14, 16, 0);
constexpr QMargins padding(20, 9, 12, 9);
constexpr double cornerRadius = 12;
constexpr int barWidth = 3;
constexpr int barInset = 8;

} // namespace

NoticeView::NoticeView()
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setFont(theme::font(12, QFont::Medium));
    setContentsMargins(margins + padding);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    hide();
}

void NoticeView::showNotice(const QString& sentence)
{
    setText(sentence);
    setAccessibleName(sentence);
    setVisible(!sentence.isEmpty());
    if (!sentence.isEmpty()) {
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

QSize NoticeView::sizeHint() const
{
    const int width = theme::panelSize.width();
    return {width, heightForWidth(width)};
}

void NoticeView::paintEvent(QPaintEvent* event)
{
    const Scheme scheme = Appearance::of(this);
    const QRectF row = rect().marginsRemoved(margins);
    QPainter painter(this);
    fillRounded(painter, row, cornerRadius, theme::surfaceHigh.in(scheme));
    const QRectF bar(row.left() + barInset, row.top() + barInset, barWidth, row.height() - 2 * barInset);
    fillRounded(painter, bar, barWidth / 2.0, theme::accent.in(scheme));
    painter.end();
    QLabel::paintEvent(event);
}

} // namespace tintwick
