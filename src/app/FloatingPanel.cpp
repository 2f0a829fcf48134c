#include "app/FloatingPanel.h"

#include "platform/PanelHost.h"
#include "ui/DS.h"
#include "ui/kit/PopupWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QWindow>

namespace tintwick {

FloatingPanel::FloatingPanel(PanelHost& host, QWidget* content)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_host(host)
    , m_content(content)
{
    setWindowTitle(QStringLiteral("Tintwick"));
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    content->setParent(this);
    setFixedSize(DS::panelSize);
    winId();
    windowHandle()->installEventFilter(this);
}

void FloatingPanel::showAt(const QRect& place, Typing typing)
{
    setFixedSize(place.size());
    move(place.topLeft());
    show();
    raise();
    if (typing == Typing::Take) {
        activateWindow();
    }
}

void FloatingPanel::resizeEvent(QResizeEvent* event)
{
    m_content->setGeometry(rect());
    QWidget::resizeEvent(event);
}

void FloatingPanel::showEvent(QShowEvent* event)
{
    m_host.prepareToShow(*windowHandle());
    setDesktopBlends(m_host.blendsWindows());
    roundWindowCorners(*this, DS::panelRadius);
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
