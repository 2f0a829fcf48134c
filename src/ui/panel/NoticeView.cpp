#include "NoticeView.h"

#include "Appearance.h"
#include "Button.h"
#include "Paint.h"
#include "Theme.h"

#include <QAccessible>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

// In points. The margins are around the row, the padding is between its edge and the text.
constexpr QMargins margins(16, 14, 16, 0);
constexpr QMargins padding(20, 9, 12, 9);
constexpr double cornerRadius = 12;
constexpr int barWidth = 3;
constexpr int barInset = 8;
constexpr int buttonGap = 10;

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

void NoticeView::showNotice(const Notice& notice)
{
    const bool isNew = notice.sentence != text();
    setButton(notice);
    setText(notice.sentence);
    setAccessibleName(notice.sentence);
    setVisible(!notice.sentence.isEmpty());
    if (isNew && !notice.sentence.isEmpty()) {
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void NoticeView::setButton(const Notice& notice)
{
    if (m_button) {
        // Its click may be on the call stack.
        m_button->hide();
        std::exchange(m_button, nullptr)->deleteLater();
    }
    QMargins aroundText = margins + padding;
    if (!notice.buttonTitle.isEmpty()) {
        m_button = borderedButton(notice.buttonTitle, notice.action);
        m_button->setParent(this);
        m_button->resize(m_button->sizeHint());
        m_button->show();
        aroundText.setRight(aroundText.right() + buttonGap + m_button->width());
    }
    setContentsMargins(aroundText);
    placeButton();
}

QSize NoticeView::sizeHint() const
{
    const int width = theme::panelSize.width();
    return {width, heightForWidth(width)};
}

int NoticeView::heightForWidth(int width) const
{
    const QMargins around = margins + padding;
    const int room = m_button ? around.top() + m_button->height() + around.bottom() : 0;
    return std::max(QLabel::heightForWidth(width), room);
}

void NoticeView::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    placeButton();
}

void NoticeView::placeButton()
{
    if (m_button) {
        const QRect row = rect().marginsRemoved(margins);
        m_button->move(row.right() + 1 - padding.right() - m_button->width(),
                       row.center().y() + 1 - m_button->height() / 2);
    }
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
