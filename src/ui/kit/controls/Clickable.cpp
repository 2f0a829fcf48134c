#include "Clickable.h"

#include "Appearance.h"
#include "FocusRing.h"
#include "HelpBubble.h"
#include "Paint.h"
#include "StackLayout.h"
#include "Theme.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QPainter>

namespace tintwick {

namespace {

constexpr double hoverTint = 0.05;
constexpr double pressTint = 0.12;
constexpr double plainRadius = 6;

} // namespace

class Clickable::Answer final : public QWidget
{
public:
    explicit Answer(Clickable& control)
        : QWidget(&control)
        , m_control(control)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        m_control.paintAnswer(painter);
    }

private:
    Clickable& m_control;
};

Clickable::Clickable(const QString& name)
{
    setAccessibleName(name);
    // Clicking must not take the focus away from where the user is typing.
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::pressed, this, &Clickable::updateAnswer);
    connect(this, &QAbstractButton::released, this, &Clickable::updateAnswer);
}

bool Clickable::showsFocusRing(const QWidget* widget)
{
    const auto* control = qobject_cast<const Clickable*>(widget);
    return control != nullptr && control->showsFocusRing();
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
    m_answer = new Answer(*this);
    m_answer->setGeometry(rect());
}

void Clickable::paintAnswer(QPainter& painter) const
{
    const Scheme scheme = Appearance::of(this);
    if (isEnabled() && (isDown() || (isHovered() && tintsHover()))) {
        fillRounded(painter, answerRect(), cornerRadius(),
                    theme::textPrimary.opacity(isDown() ? pressTint : hoverTint).in(scheme));
    }
    if (showsFocusRing()) {
        drawFocusRing(painter, answerRect(), cornerRadius(), scheme);
    }
}

void Clickable::hoverChanged()
{
    updateAnswer();
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
        setHovered(true);
        break;
    case QEvent::HoverMove:
        // While a button is held down, the pointer is heard of beside the view too.
        setHovered(rect().contains(static_cast<QHoverEvent*>(event)->position().toPoint()));
        break;
    case QEvent::HoverLeave:
    case QEvent::Hide:
        setHovered(false);
        break;
    case QEvent::ToolTip:
        HelpBubble::show(*this, static_cast<QHelpEvent*>(event)->globalPos());
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
    updateAnswer();
}

void Clickable::focusOutEvent(QFocusEvent* event)
{
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason) {
        m_showsFocusRing = false;
    }
    QAbstractButton::focusOutEvent(event);
    updateAnswer();
}

void Clickable::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) {
            click();
        }
        return;
    }
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        const QPoint middle = rect().center();
        QContextMenuEvent request(QContextMenuEvent::Keyboard, middle, mapToGlobal(middle));
        contextMenuEvent(&request);
        return;
    }
    // The arrow keys of a plain button would wander through its siblings in no order.
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Select) {
        QAbstractButton::keyPressEvent(event);
    } else {
        event->ignore();
    }
}

void Clickable::resizeEvent(QResizeEvent* event)
{
    QAbstractButton::resizeEvent(event);
    if (m_answer != nullptr) {
        m_answer->setGeometry(rect());
        m_answer->raise();
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

void Clickable::updateAnswer()
{
    update();
    if (m_answer != nullptr) {
        m_answer->update();
    }
}

} // namespace tintwick
