#include "X11PanelHost.h"

#include "PanelPlacement.h"
#include "ToolkitConnection.h"
#include "TranslucentVisual.h"
#include "X11Compositor.h"
#include "X11Reservations.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QImage>
#include <QMargins>
#include <QPainter>
#include <QScreen>
#include <QStyleHints>
#include <QWindow>

#include <array>

namespace tintwick {

namespace {

constexpr std::uint32_t allDesktops = 0xffffffff;

/// The window itself, or the frame that a window manager has put it in; none when the window is gone.
xcb_window_t childOfRoot(xcb_connection_t* c, xcb_window_t window, xcb_window_t root)
{
    while (true) {
        const XcbReply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(c, xcb_query_tree(c, window), nullptr));
        if (!tree || tree->parent == XCB_NONE) {
            return XCB_NONE;
        }
        if (tree->parent == root) {
            return window;
        }
        window = tree->parent;
    }
}

/// The toolkit measures sizes in points, but its screens have their places in pixels.
PanelScreen panelScreen(const QScreen& screen, const X11Reservations& reserved)
{
    const QRect frame = screen.geometry();
    const double scale = screen.devicePixelRatio();
    const QRect pixels(frame.topLeft(), (QSizeF(frame.size()) * scale).toSize());
    const QRect free = freeArea(pixels, reserved.root, reserved.workArea, reserved.struts);
    const QPoint inside = (QPointF(free.topLeft() - frame.topLeft()) / scale).toPoint();
    return {frame, QRect(frame.topLeft() + inside, (QSizeF(free.size()) / scale).toSize())};
}

/// The primary one first. The toolkit knows the free area of a single monitor only.
QList<PanelScreen> panelScreens(const XcbConnection& connection)
{
    const X11Reservations reserved = queryReservations(connection);
    QList<PanelScreen> screens;
    const QScreen* primary = QGuiApplication::primaryScreen();
    for (const QScreen* screen : QGuiApplication::screens()) {
        const PanelScreen measured = panelScreen(*screen, reserved);
        if (screen == primary) {
            screens.prepend(measured);
        } else {
            screens.append(measured);
        }
    }
    return screens;
}

/// The top left corner in pixels of the root. The toolkit reports a move before the window manager has made it, so the
/// server may not know it yet.
QPoint widgetPlace(const QWidget& widget)
{
    const QPoint origin = widget.screen()->geometry().topLeft();
    return origin + (QPointF(widget.pos() - origin) * widget.devicePixelRatioF()).toPoint();
}

std::optional<QRect> anchorRect(const PanelAnchor& anchor)
{
    if (!anchor.icon && anchor.isClicked) {
        return QRect(QCursor::pos(), QSize(1, 1));
    }
    return anchor.icon;
}

} // namespace

X11PanelHost::X11PanelHost(XcbConnection& connection)
    : m_connection(connection)
    , m_clickMonitor(connection)
    , m_compositorMonitor(connection)
    , m_focus(connection)
{
    connect(&m_clickMonitor, &X11ClickMonitor::pressed, this, &X11PanelHost::handlePress);
    connect(&m_clickMonitor, &X11ClickMonitor::clicked, this, &X11PanelHost::handleClick);
    connect(&m_compositorMonitor, &X11CompositorMonitor::changed, this, &X11PanelHost::adaptToCompositor);
}

void X11PanelHost::show(PanelWindow& panel, const PanelAnchor& anchor)
{
    if (panel.widget().isVisible()) {
        m_focus.take(panel.widget());
        return;
    }
    if (isClickThatDismissed(anchor)) {
        return;
    }
    m_lastAnchor = anchorRect(anchor);
    showAtLastAnchor(panel);
}

void X11PanelHost::showAgain(PanelWindow& panel)
{
    showAtLastAnchor(panel);
}

void X11PanelHost::showAtLastAnchor(PanelWindow& panel)
{
    adopt(panel);
    QWidget& widget = *m_widget;
    const QRect place = placePanel(m_lastAnchor, panelScreens(m_connection), widget.sizeHint());
    widget.setFixedSize(place.size());
    widget.move(place.topLeft());
    panel.setBlended(hasCompositor(m_connection));
    setWindowManagerHints(widget);
    m_clickMonitor.start();
    m_compositorMonitor.start();
    prepareShadow();
    widget.show();
    widget.raise();
    m_focus.take(widget);
}

void X11PanelHost::adopt(PanelWindow& panel)
{
    m_panel = &panel;
    m_widget = &panel.widget();
    m_widget->winId();
    m_widget->installEventFilter(this);
    connect(m_widget, &QObject::destroyed, this, &X11PanelHost::handleHide, Qt::UniqueConnection);
    m_widget->windowHandle()->installEventFilter(this);
    followScreens();
}

void X11PanelHost::followScreens()
{
    // Queued, because the toolkit reports a screen before it has updated all of them.
    constexpr auto later = static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::UniqueConnection);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &X11PanelHost::followScreens, later);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &X11PanelHost::placeAgain, later);
    for (const QScreen* screen : QGuiApplication::screens()) {
        connect(screen, &QScreen::geometryChanged, this, &X11PanelHost::placeAgain, later);
    }
}

void X11PanelHost::placeAgain()
{
    if (!m_widget || !m_widget->isVisible()) {
        return;
    }
    const QRect place = placePanel(m_lastAnchor, panelScreens(m_connection), m_widget->sizeHint());
    m_widget->setFixedSize(place.size());
    m_widget->move(place.topLeft());
}

void X11PanelHost::adaptToCompositor()
{
    if (!m_widget || !m_widget->isVisible()) {
        return;
    }
    m_panel->setBlended(hasCompositor(m_connection));
    if (m_shadow) {
        m_shadow->hide();
    }
    prepareShadow();
    placeShadow();
}

// Over the toolkit's connection, so that the server gets all of it before the request to map the window. A window manager
// removes the state of a window that is unmapped; the toolkit adds its own states to those that it finds.
void X11PanelHost::setWindowManagerHints(const QWidget& widget) const
{
    xcb_connection_t* c = toolkit::connection();
    if (!c) {
        return;
    }
    const auto id = static_cast<xcb_window_t>(widget.winId());
    const std::array states{
        m_connection.atom("_NET_WM_STATE_ABOVE"), m_connection.atom("_NET_WM_STATE_STICKY"),
        m_connection.atom("_NET_WM_STATE_SKIP_TASKBAR"), m_connection.atom("_NET_WM_STATE_SKIP_PAGER")};
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, id, m_connection.atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(states.size()), states.data());
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, id, m_connection.atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL,
                        32, 1, &allDesktops);
}

// During a drag that started on one of our windows the pointer may be elsewhere.
void X11PanelHost::handlePress()
{
    m_pressDismisses = m_isDismissible && !m_isKeptOpen && QGuiApplication::mouseButtons() == Qt::NoButton;
}

void X11PanelHost::handleClick()
{
    if (m_pressDismisses) {
        m_sinceDismissal.start();
        m_dismissingClick = QCursor::pos();
        if (!pointerIsOverBareRoot()) {
            m_focus.forget();
        }
        Q_EMIT dismissed();
    }
}

bool X11PanelHost::pointerIsOverBareRoot() const
{
    xcb_connection_t* c = m_connection.get();
    const XcbReply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(c, xcb_query_pointer(c, m_connection.root()), nullptr));
    return pointer && pointer->child == XCB_WINDOW_NONE;
}

// A tray that draws the icon itself and does not report its place may report a click on it after the click monitor did.
bool X11PanelHost::isClickThatDismissed(const PanelAnchor& anchor)
{
    if (!anchor.isClicked) {
        return false;
    }
    const QStyleHints& hints = *QGuiApplication::styleHints();
    const bool isRecent =
        m_sinceDismissal.isValid() && !m_sinceDismissal.hasExpired(hints.mouseDoubleClickInterval());
    m_sinceDismissal.invalidate();
    const int distance = (QCursor::pos() - m_dismissingClick).manhattanLength();
    return isRecent && !anchor.icon && distance < hints.startDragDistance();
}

bool X11PanelHost::eventFilter(QObject* watched, QEvent* event)
{
    if (!m_widget) {
        return PanelHost::eventFilter(watched, event);
    }
    if (watched == m_widget) {
        if (event->type() == QEvent::Hide) {
            handleHide();
        } else if (m_isExposed && (event->type() == QEvent::Move || event->type() == QEvent::Resize)) {
            prepareShadow();
            placeShadow(widgetPlace(*m_widget));
        }
    } else if (event->type() == QEvent::Expose && m_widget->windowHandle()->isExposed() && !m_isExposed) {
        m_isExposed = true;
        placeShadow();
    } else if (event->type() == QEvent::MouseButtonPress &&
               QGuiApplication::focusWindow() != m_widget->windowHandle()) {
        // Some window managers do not focus a utility window on a click.
        m_focus.take(*m_widget);
    }
    return PanelHost::eventFilter(watched, event);
}

void X11PanelHost::handleHide()
{
    m_clickMonitor.stop();
    m_compositorMonitor.stop();
    if (m_widget) {
        m_focus.giveBack(*m_widget);
    }
    if (m_shadow) {
        m_shadow->hide();
    }
    m_isExposed = false;
}

// Both before the panel is shown and before its first frame, so that the shadow does not come after it.
void X11PanelHost::prepareShadow()
{
    const xcb_visualid_t visual = translucentVisual(m_connection.screen());
    if (visual == m_connection.screen().root_visual || !hasCompositor(m_connection)) {
        return;
    }
    const QSize size = m_widget->size();
    const double scale = m_widget->devicePixelRatioF();
    if (m_shadow && size == m_shadowedSize && scale == m_shadowedScale) {
        return;
    }
    m_shadowedSize = size;
    m_shadowedScale = scale;
    const QMargins margins = shadowMargins();
    QImage picture((QSizeF(size) * scale).toSize().grownBy(margins), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    picture.setDevicePixelRatio(scale);
    QPainter painter(&picture);
    painter.translate(margins.left() / scale, margins.top() / scale);
    m_panel->paintShadow(painter);
    painter.end();

    if (!m_shadow) {
        m_shadow.emplace(m_connection, visual);
    }
    m_shadow->setPicture(picture);
}

void X11PanelHost::placeShadow()
{
    if (!m_widget) {
        return;
    }
    xcb_connection_t* c = m_connection.get();
    const auto id = static_cast<xcb_window_t>(m_widget->winId());
    const XcbReply<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(
        c, xcb_translate_coordinates(c, id, m_connection.root(), 0, 0), nullptr));
    if (place) {
        placeShadow(QPoint(place->dst_x, place->dst_y));
    }
}

void X11PanelHost::placeShadow(QPoint panel)
{
    if (!m_shadow || !m_widget->isVisible() || !hasCompositor(m_connection)) {
        return;
    }
    const auto id = static_cast<xcb_window_t>(m_widget->winId());
    const xcb_window_t frame = childOfRoot(m_connection.get(), id, m_connection.root());
    if (frame == XCB_NONE) {
        return;
    }
    // Compositors draw the shadow of the window that they paint, which is the frame where there is one.
    declineShadow(m_connection, frame);
    const QMargins margins = shadowMargins();
    m_shadow->showBelow(frame, panel - QPoint(margins.left(), margins.top()));
}

QMargins X11PanelHost::shadowMargins() const
{
    const double scale = m_widget->devicePixelRatioF();
    const QMargins extents = m_panel->shadowMargins();
    return {qRound(extents.left() * scale), qRound(extents.top() * scale), qRound(extents.right() * scale),
            qRound(extents.bottom() * scale)};
}

QString X11PanelHost::portalHandle(const QWidget& window) const
{
    constexpr int hexadecimal = 16;
    return QStringLiteral("x11:") + QString::number(window.winId(), hexadecimal);
}

} // namespace tintwick
