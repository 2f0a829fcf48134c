#include "app/FloatingPanel.h"

#include "platform/PanelHost.h"
#include "ui/DS.h"
#include "ui/kit/Corners.h"
#include "ui/kit/PopupWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QRegion>
#include <QWindow>

namespace tintwick {

FloatingPanel::FloatingPanel(PanelHost& host, QWidget* content)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_host(host)
{
    setWindowTitle(QStringLiteral("Tintwick"));
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFixedSize(DS::panelSize);
    content->setParent(this);
    content->setGeometry(rect());
    winId();
    windowHandle()->installEventFilter(this);
}

void FloatingPanel::showAt(QPoint topLeft)
{
    move(topLeft);
    show();
    raise();
}

void FloatingPanel::showEvent(QShowEvent* event)
{
    m_host.prepareToShow(*windowHandle());
    setDesktopBlends(m_host.blendsWindows());
    if (m_host.blendsWindows()) {
        clearMask();
    } else {
        setMask(QRegion(roundedPath(rect(), DS::panelRadius).toFillPolygon().toPolygon()));
    }
    QWidget::showEvent(event);
    Q_EMIT visibleChanged(true);
}

void FloatingPanel::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    Q_EMIT visibleChanged(false);
}

void FloatingPanel::closeEvent(QCloseEvent* event)
{
    event->ignore();
    hide();
}

void FloatingPanel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        hide();
        return;
    }
    QWidget::keyPressEvent(event);
}

// Some window managers give a utility window no keys for a click alone.
bool FloatingPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && !isActiveWindow()) {
        activateWindow();
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace tintwick
