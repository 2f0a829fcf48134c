#include "Clickable.h"

#include "Appearance.h"
#include "Paint.h"
#include "StackLayout.h"
#include "Theme.h"
#include "ToolTip.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

namespace tintwick {

namespace {

constexpr double hoverTint = 0.05;
constexpr double pressTint = 0.12;
constexpr double plainRadius = 6;

} // namespace

class Clickable::StateLayer final : public QWidget
{
public:
    explicit StateLayer(Clickable& control)
        : QWidget(&control)
        , m_control(control)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        m_control.paintStateLayer(painter);
    }

private:
    Clickable& m_control;
};

Clickable::Clickable(const QString& name)
{
    setAccessibleName(name);
    // A click must not take the focus from a text field.
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::pressed, this, &Clickable::updateStateLayer);
    connect(this, &QAbstractButton::released, this, &Clickable::updateStateLayer);
}

bool Clickable::showsFocusRing(const QWidget* widget)
{
    const auto* control = qobject_cast<const Clickable*>(widget);
    return control != nullptr && control->showsFocusRing();
}

bool Clickable::focusRingIsShown(Qt::FocusReason reason, bool shown)
{
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        return true;
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
        // The focus returns from another window or popup.
        return shown;
    default:
        return false;
    }
}

void Clickable::onClick(std::function<void()> action)
{
    connect(this, &QAbstractButton::clicked, this, [action = std::move(action)] { action(); });
}

QSize Clickable::sizeHint() const
{
    return layout() != nullptr ? layout()->sizeHint() : QSize();
}

QSize Clickable::minimumSizeHint() const
{
    return layout() != nullptr ? layout()->minimumSize() : sizeHint();
}

void Clickable::setContent(QWidget* content)
{
    content->setAttribute(Qt::WA_TransparentForMouseEvents);
    fillWith(*this, content);
    m_stateLayer = new StateLayer(*this);
    m_stateLayer->setGeometry(rect());
}

void Clickable::paintStateLayer(QPainter& painter) const
{
    const Scheme scheme = Appearance::of(this);
    if (isEnabled() && (isDown() || (isHovered() && tintsHover()))) {
        fillRounded(painter, stateLayerRect(), cornerRadius(),
                    theme::textPrimary.opacity(isDown() ? pressTint : hoverTint).in(scheme));
    }
    if (showsFocusRing()) {
        drawFocusRing(painter, stateLayerRect(), cornerRadius(), scheme);
    }
}

void Clickable::hoverChanged()
{
    updateStateLayer();
}

QList<MenuEntry> Clickable::contextMenu() const
{
    return {};
}

double Clickable::cornerRadius() const
{
    return plainRadius;
}

void Clickable::contextMenuEvent(QContextMenuEvent* event)
{
    const QList<MenuEntry> entries = contextMenu();
    if (entries.isEmpty()) {
        event->ignore();
        return;
    }
    const bool atPointer = event->reason() == QContextMenuEvent::Mouse;
    popUpMenu(*this, atPointer ? event->globalPos() : mapToGlobal(rect().center()), entries);
}

bool Clickable::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
        // While a mouse button is held, and at the end of a drag, positions outside the view are reported, too.
        setHovered(rect().contains(static_cast<QHoverEvent*>(event)->position().toPoint()));
        break;
    case QEvent::HoverLeave:
    case QEvent::Hide:
        setHovered(false);
        break;
    case QEvent::ToolTip:
        showToolTip(*this, static_cast<QHelpEvent*>(event)->globalPos());
        return true;
    default:
        break;
    }
    return QAbstractButton::event(event);
}

void Clickable::focusInEvent(QFocusEvent* event)
{
    m_showsFocusRing = focusRingIsShown(event->reason(), m_showsFocusRing);
    QAbstractButton::focusInEvent(event);
    updateStateLayer();
}

void Clickable::focusOutEvent(QFocusEvent* event)
{
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason) {
        m_showsFocusRing = false;
    }
    QAbstractButton::focusOutEvent(event);
    updateStateLayer();
}

void Clickable::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) {
            const QPointer<Clickable> remaining(this);
            m_clickModifiers = event->modifiers() & ~Qt::KeypadModifier;
            click();
            if (remaining) {
                m_clickModifiers = Qt::NoModifier;
            }
        }
        return;
    }
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        const QPoint middle = rect().center();
        QContextMenuEvent request(QContextMenuEvent::Keyboard, middle, mapToGlobal(middle));
        contextMenuEvent(&request);
        return;
    }
    // QAbstractButton would move the focus between siblings with the arrow keys.
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Select) {
        QAbstractButton::keyPressEvent(event);
    } else {
        event->ignore();
    }
}

void Clickable::keyReleaseEvent(QKeyEvent* event)
{
    const QPointer<Clickable> remaining(this);
    m_clickModifiers = event->modifiers();
    QAbstractButton::keyReleaseEvent(event);
    if (remaining) {
        m_clickModifiers = Qt::NoModifier;
    }
}

void Clickable::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointer<Clickable> remaining(this);
    m_clickModifiers = event->modifiers();
    QAbstractButton::mouseReleaseEvent(event);
    if (remaining) {
        m_clickModifiers = Qt::NoModifier;
    }
}

void Clickable::resizeEvent(QResizeEvent* event)
{
    QAbstractButton::resizeEvent(event);
    if (m_stateLayer != nullptr) {
        m_stateLayer->setGeometry(rect());
        m_stateLayer->raise();
    }
}

void Clickable::paintEvent(QPaintEvent*) {}

void Clickable::setHovered(bool isHovered)
{
    if (m_isHovered != isHovered) {
        m_isHovered = isHovered;
        hoverChanged();
    }
}

void Clickable::updateStateLayer()
{
    update();
    if (m_stateLayer != nullptr) {
        m_stateLayer->update();
    }
}

} // namespace tintwick
