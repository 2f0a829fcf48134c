#include "ToolTip.h"

#include "Appearance.h"
#include "InOneLine.h"
#include "Paint.h"
#include "PopupWindow.h"
#include "Theme.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QTextOption>

#include <algorithm>

namespace tintwick {

namespace {

constexpr int horizontalPadding = 8;
constexpr int verticalPadding = 5;
constexpr double cornerRadius = 6;
/// Points; a longer text wraps.
constexpr double widestText = 320;
constexpr int belowPointer = 20;

QTextOption wrapping()
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

} // namespace

ToolTip::ToolTip(QWidget& owner, const QString& text)
    : QWidget(&owner, Qt::ToolTip | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint)
    , m_text(inOneLine(text))
    , m_scheme(Appearance::of(&owner))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFont(theme::font(11));
    setAccessibleName(text);
    m_text.setTextFormat(Qt::PlainText);
    m_text.setTextOption(wrapping());
    m_text.prepare({}, font());
    if (m_text.size().width() > widestText) {
        m_text.setTextWidth(widestText);
        m_text.prepare({}, font());
    }
    resize(qCeil(m_text.size().width()) + 2 * horizontalPadding,
           qCeil(m_text.size().height()) + 2 * verticalPadding);
    owner.installEventFilter(this);
}

void ToolTip::show(QWidget& owner, const QPoint& globalPosition)
{
    static QPointer<ToolTip> shown;
    delete shown;
    if (owner.toolTip().isEmpty()) {
        return;
    }
    shown = new ToolTip(owner, owner.toolTip());
    QPoint place = globalPosition + QPoint(0, belowPointer);
    if (const QScreen* screen = QGuiApplication::screenAt(globalPosition)) {
        const QRect room = screen->availableGeometry();
        place.setX(std::clamp(place.x(), room.left(), std::max(room.left(), room.right() - shown->width())));
        if (place.y() + shown->height() > room.bottom()) {
            place.setY(globalPosition.y() - shown->height() - verticalPadding);
        }
    }
    shown->move(place);
    roundWindowCorners(*shown, cornerRadius);
    shown->setVisible(true);
}

bool ToolTip::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Leave:
    case QEvent::MouseButtonPress:
    case QEvent::KeyPress:
    case QEvent::Wheel:
    case QEvent::Hide:
    case QEvent::FocusOut:
        close();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void ToolTip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (mask().isEmpty()) {
        fillRounded(painter, rect(), cornerRadius, theme::surface.in(m_scheme));
    } else {
        // Pixels that are not completely covered would be black.
        painter.fillRect(rect().adjusted(0, 0, 1, 1), theme::surface.in(m_scheme));
    }
    strokeInside(painter, rect(), cornerRadius, theme::border.in(m_scheme), 1);
    painter.setPen(theme::textPrimary.in(m_scheme));
    painter.drawStaticText(horizontalPadding, verticalPadding, m_text);
}

} // namespace tintwick
