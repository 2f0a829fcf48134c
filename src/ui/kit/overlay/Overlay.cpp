#include "Overlay.h"

#include "Accessibility.h"
#include "Clickable.h"
#include "Paint.h"
#include "ShadowCaster.h"
#include "Stack.h"
#include "Theme.h"

#include <QKeyEvent>
#include <QLayoutItem>
#include <QPainter>

namespace tintwick {

namespace {

constexpr double cornerRadius = 14;
constexpr double dimming = 0.35;
constexpr double springResponse = 0.3;
constexpr double springDamping = 0.8;
/// Points above its place at which the card starts.
constexpr double wayIn = 24;

/// The controls below `root` that Tab reaches, in order.
QList<QWidget*> tabOrder(QWidget& root)
{
    QList<QWidget*> result;
    for (QWidget* widget = root.nextInFocusChain(); widget != &root; widget = widget->nextInFocusChain()) {
        const bool takesTab = (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (takesTab && widget->isEnabled() && widget->isVisibleTo(&root) && root.isAncestorOf(widget)) {
            result.append(widget);
        }
    }
    return result;
}

} // namespace

Overlay::Overlay(QWidget& host, const QString& title, Stack* form, std::function<void()> accept)
    : QWidget(&host)
    , m_card(form)
    , m_accept(std::move(accept))
    , m_focusBefore(host.window()->focusWidget())
    , m_isFromKeyboard(Clickable::showsFocusRing(m_focusBefore))
    , m_entrance(springResponse, springDamping)
    , m_animator([this](double seconds) {
        const bool moves = m_entrance.advance(seconds);
        place();
        update();
        return moves;
    })
{
    describeToScreenReaders<Overlay>(QAccessible::Dialog);
    setAccessibleName(title);
    setFocusPolicy(Qt::NoFocus);
    m_card->setParent(this);
    m_card->add(ground(theme::surface, cornerRadius));
    m_card->add(outline(theme::border, 1));
    m_card->add(Shadow{.color = theme::black.opacity(0.3), .radius = 30, .offset = {0, 10}});
    host.installEventFilter(this);
    setGeometry(host.rect());
    place();
    show();
    raise();
    if (const QList<QWidget*> controls = tabOrder(*this); !controls.isEmpty()) {
        controls.first()->setFocus(Qt::OtherFocusReason);
    }
    m_entrance.setTarget(1);
    m_animator.start();
}

Overlay* Overlay::of(const QWidget& host)
{
    for (QObject* child : host.children()) {
        auto* overlay = qobject_cast<Overlay*>(child);
        if (overlay != nullptr && !overlay->isHidden()) {
            return overlay;
        }
    }
    return nullptr;
}

void Overlay::dismiss()
{
    if (isHidden()) {
        return;
    }
    hide();
    if (m_focusBefore && m_focusBefore->isVisible()) {
        m_focusBefore->setFocus(m_isFromKeyboard ? Qt::TabFocusReason : Qt::OtherFocusReason);
    } else {
        parentWidget()->setFocus(Qt::OtherFocusReason);
    }
    Q_EMIT dismissed();
    deleteLater();
}

bool Overlay::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
        // The host must not receive these.
        event->accept();
        return true;
    case QEvent::LayoutRequest:
        place();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

bool Overlay::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
        place();
    }
    return QWidget::eventFilter(watched, event);
}

bool Overlay::focusNextPrevChild(bool next)
{
    const QList<QWidget*> controls = tabOrder(*this);
    if (controls.isEmpty()) {
        return true;
    }
    const qsizetype now = controls.indexOf(focusWidget());
    const qsizetype count = controls.size();
    const qsizetype then = now < 0 ? 0 : (now + (next ? 1 : count - 1)) % count;
    controls.at(then)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void Overlay::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        dismiss();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_accept();
        break;
    default:
        break;
    }
    event->accept();
}

void Overlay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const double shown = m_entrance.fraction();
    fillRounded(painter, rect(), theme::panelRadius, theme::black.opacity(dimming * shown).in(Scheme::Light));
    painter.setOpacity(shown);
    paintShadowsOn(*this, painter);
}

void Overlay::place()
{
    const QSize size = QWidgetItem(m_card).sizeHint();
    const int above = qRound((1 - m_entrance.position()) * wayIn);
    m_card->setGeometry((width() - size.width()) / 2, (height() - size.height()) / 2 - above, size.width(),
                        size.height());
}

} // namespace tintwick
