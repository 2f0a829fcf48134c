#include "WaylandPanelHost.h"

#include <QEvent>
#include <QGuiApplication>
#include <QMargins>
#include <QRegion>
#include <QScreen>
#include <QStyleHints>
#include <QWindow>

#include <chrono>

namespace tintwick {

namespace {

/// The compositor takes the focus from one window of ours before it gives it to the next.
constexpr std::chrono::milliseconds changeOfFocus{100};
/// KWin gives the focus back at the next event of a key: after a menu was closed by a key, when that is released.
constexpr std::chrono::milliseconds changeAfterMenu{1000};

ScreenCorner cornerOf(QPoint point)
{
    const QScreen* screen = QGuiApplication::screenAt(point);
    const QPoint middle = (screen ? screen : QGuiApplication::primaryScreen())->geometry().center();
    return {.isLeft = point.x() < middle.x(), .isBottom = point.y() > middle.y()};
}

} // namespace

WaylandPanelHost::WaylandPanelHost()
{
    m_inactivity.setSingleShot(true);
    connect(&m_inactivity, &QTimer::timeout, this, &WaylandPanelHost::leaveWhenInactive);
}

void WaylandPanelHost::show(PanelWindow& panel, const PanelAnchor& anchor)
{
    if (panel.widget().isVisible()) {
        panel.widget().activateWindow();
    } else if (!isClickThatDismissed(anchor)) {
        m_corner = anchor.icon ? cornerOf(anchor.icon->center()) : m_corner;
        showAgain(panel);
    }
}

void WaylandPanelHost::showAgain(PanelWindow& panel)
{
    m_panel = &panel;
    m_widget = &panel.widget();
    m_isAway = false;
    panel.setBlended(true);
    panel.setShadowInside(true);
    // Tiling compositors let a window float whose size cannot change.
    m_widget->setFixedSize(m_widget->sizeHint().boundedTo(m_widget->screen()->availableSize()));
    m_rules.placeInCorner(m_widget->windowTitle(), m_widget->size(), m_corner);
    m_widget->show();
    // Not QWidget::setMask(), which cuts what is painted as well.
    m_widget->windowHandle()->setMask(m_widget->rect().marginsRemoved(panel.shadowMargins()));
    m_widget->activateWindow();
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &WaylandPanelHost::followFocus,
            Qt::UniqueConnection);
    qApp->installEventFilter(this);
}

void WaylandPanelHost::followFocus()
{
    if (QGuiApplication::focusWindow()) {
        m_inactivity.stop();
    } else {
        const bool isAfterMenu = m_sinceMenu.isValid() && !m_sinceMenu.hasExpired(changeOfFocus.count());
        m_inactivity.start(isAfterMenu ? changeAfterMenu : changeOfFocus);
    }
}

bool WaylandPanelHost::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide && watched->isWidgetType() &&
        static_cast<QWidget*>(watched)->windowType() == Qt::Popup) {
        m_sinceMenu.start();
    }
    return PanelHost::eventFilter(watched, event);
}

void WaylandPanelHost::leaveWhenInactive()
{
    if (!m_widget || !m_widget->isVisible()) {
        return;
    }
    if (!m_isDismissible) {
        m_isAway = true;
        m_widget->hide();
    } else if (!m_isKeptOpen) {
        m_sinceDismissal.start();
        Q_EMIT dismissed();
    }
}

void WaylandPanelHost::setDismissible(bool isDismissible)
{
    m_isDismissible = isDismissible;
    if (isDismissible && m_isAway && m_widget) {
        showAgain(*m_panel);
    }
}

// A click on the tray may make the panel inactive before the tray reports the click.
bool WaylandPanelHost::isClickThatDismissed(const PanelAnchor& anchor)
{
    if (!anchor.isClicked || !m_sinceDismissal.isValid()) {
        return false;
    }
    const bool isRecent =
        !m_sinceDismissal.hasExpired(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    m_sinceDismissal.invalidate();
    return isRecent;
}

} // namespace tintwick
