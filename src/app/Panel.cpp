#include "Panel.h"

#include "Paint.h"
#include "PanelHost.h"
#include "PopupWindow.h"
#include "Shadow.h"
#include "Theme.h"
#include "Ticker.h"

#include <QCloseEvent>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

namespace tintwick {

namespace {

constexpr Shadow shadow{theme::black.opacity(0.25), 24, QPointF(0, 8)};

} // namespace

Panel::Panel(PanelHost& host, QWidget* content)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_host(host)
    , m_content(content)
{
    setWindowTitle(QStringLiteral("Tintwick"));
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    content->setParent(this);
    setFixedSize(theme::panelSize);
    winId();
    windowHandle()->installEventFilter(this);
}

void Panel::showAt(const QRect& place, Typing typing)
{
    setFixedSize(place.size());
    move(place.topLeft());
    show();
    raise();
    if (typing == Typing::Take) {
        activateWindow();
    }
}

void Panel::resizeEvent(QResizeEvent* event)
{
    m_content->setGeometry(rect());
    QWidget::resizeEvent(event);
}

void Panel::showEvent(QShowEvent* event)
{
    m_host.prepareToShow(*windowHandle());
    setDesktopBlends(m_host.blendsWindows());
    roundWindowCorners(*this, theme::panelRadius);
    Ticker::shared().setRefreshRate(screen()->refreshRate());
    QWidget::showEvent(event);
    Q_EMIT visibleChanged(true);
}

void Panel::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_host.hideShadow();
    m_hasShadow = false;
    Q_EMIT visibleChanged(false);
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

void Panel::showShadow()
{
    if (!isVisible() || !m_host.blendsWindows()) {
        return;
    }
    const double scale = devicePixelRatioF();
    const QMargins extents = shadow.extents();
    const auto pixels = [scale](int points) { return qRound(points * scale); };
    const QMargins margins(pixels(extents.left()), pixels(extents.top()), pixels(extents.right()),
                           pixels(extents.bottom()));
    QImage picture((QSizeF(size()) * scale).toSize().grownBy(margins), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    picture.setDevicePixelRatio(scale);
    QPainter painter(&picture);
    const QRectF panel(QPointF(margins.left(), margins.top()) / scale, QSizeF(size()));
    drawShadow(painter, panel, theme::panelRadius, shadow, Scheme::Light);
    // It lies on nothing but what is around the panel; the panel's own soft edge lies on it.
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    fillRounded(painter, panel.adjusted(1, 1, -1, -1), theme::panelRadius - 1, Qt::black);
    painter.end();
    m_host.showShadow(*windowHandle(), picture, margins);
}

// Some window managers give a utility window no keys for a click alone.
bool Panel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Expose && windowHandle()->isExposed() && !m_hasShadow) {
        m_hasShadow = true;
        // Once the panel itself is painted.
        QMetaObject::invokeMethod(this, &Panel::showShadow, Qt::QueuedConnection);
    }
    if (event->type() == QEvent::MouseButtonPress && !isActiveWindow()) {
        activateWindow();
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace tintwick
