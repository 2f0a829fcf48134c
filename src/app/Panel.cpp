#include "Panel.h"

#include "Paint.h"
#include "PopupWindow.h"
#include "Shadow.h"
#include "Theme.h"
#include "Ticker.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

namespace tintwick {

namespace {

constexpr Shadow shadow{theme::black.opacity(0.25), 24, QPointF(0, 8)};

} // namespace

Panel::Panel(QWidget* content)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_content(content)
{
    setWindowTitle(QStringLiteral("Tintwick"));
    setAttribute(Qt::WA_TranslucentBackground);
    // Some window managers do not activate a window that asks for it.
    setAttribute(Qt::WA_AlwaysShowToolTips);
    content->setParent(this);
    setFixedSize(sizeHint());
    // The first show is faster when the window exists already.
    winId();
}

QSize Panel::sizeHint() const
{
    return m_isShadowInside ? theme::panelSize.grownBy(shadowMargins()) : theme::panelSize;
}

QRect Panel::panelRect() const
{
    return m_isShadowInside ? rect().marginsRemoved(shadowMargins()) : rect();
}

void Panel::setBlended(bool isBlended)
{
    setDesktopBlends(isBlended);
    roundWindowCorners(*this, theme::panelRadius);
    m_content->update();
}

QMargins Panel::shadowMargins() const
{
    return shadow.extents();
}

void Panel::setShadowInside(bool isInside)
{
    m_isShadowInside = isInside;
    m_content->setGeometry(panelRect());
}

void Panel::paintShadow(QPainter& painter) const
{
    const QRectF panel(QPointF(), panelRect().size());
    drawShadow(painter, panel, theme::panelRadius, shadow, Scheme::Light);
    // The soft edge of the panel lies on the shadow, the rest of it does not.
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    fillRounded(painter, panel.adjusted(1, 1, -1, -1), theme::panelRadius - 1, Qt::black);
}

void Panel::paintEvent(QPaintEvent*)
{
    if (m_isShadowInside) {
        QPainter painter(this);
        painter.translate(panelRect().topLeft());
        paintShadow(painter);
    }
}

void Panel::resizeEvent(QResizeEvent* event)
{
    m_content->setGeometry(panelRect());
    roundWindowCorners(*this, theme::panelRadius);
    QWidget::resizeEvent(event);
}

void Panel::showEvent(QShowEvent* event)
{
    Ticker::shared().setRefreshRate(screen()->refreshRate());
    QWidget::showEvent(event);
}

void Panel::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    Q_EMIT hidden();
}

void Panel::closeEvent(QCloseEvent* event)
{
    event->ignore();
    hide();
}

void Panel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        hide();
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace tintwick
