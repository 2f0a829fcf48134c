#include "ValueField.h"

#include "Theme.h"

#include <QFocusEvent>
#include <QKeyEvent>

#include <utility>

namespace tintwick {

namespace {

constexpr int fontSize = 12;

} // namespace

ValueField::ValueField(const QString& name, Style style)
    : TextField(name)
    , m_style(style)
{
    setFont(theme::monospacedFont(fontSize));
    connect(this, &QLineEdit::textEdited, this, [this] { setRefused(false); });
    if (style == Style::Plain) {
        setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        close();
    }
}

QSize ValueField::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

void ValueField::setValueText(const QString& text)
{
    const bool isUsed = hasFocus() && isTyped();
    m_valueText = text;
    if (!isUsed) {
        restore();
    }
}

void ValueField::onEnter(std::function<bool(const QString&)> action)
{
    m_onEnter = std::move(action);
}

void ValueField::beginTyping(const QString& text)
{
    setReadOnly(false);
    setFocusPolicy(Qt::StrongFocus);
    setFrameShown(true);
    setFocus(Qt::OtherFocusReason);
    if (!text.isEmpty()) {
        setText(text);
    }
}

bool ValueField::take()
{
    if (isTyped() && !(m_onEnter && m_onEnter(text()))) {
        return false;
    }
    restore();
    return true;
}

void ValueField::restore()
{
    setRefused(false);
    if (!isTyped()) {
        return;
    }
    setText(m_valueText);
    if (hasFocus()) {
        selectAll();
    } else {
        // The start of a long value tells most.
        setCursorPosition(0);
    }
}

void ValueField::leave()
{
    if (m_style == Style::Framed) {
        selectAll();
    } else if (m_returnTo != nullptr) {
        m_returnTo->setFocus(Qt::TabFocusReason);
    } else {
        clearFocus();
    }
}

void ValueField::close()
{
    deselect();
    setReadOnly(true);
    setFocusPolicy(Qt::NoFocus);
    setFrameShown(false);
}

bool ValueField::event(QEvent* event)
{
    // Otherwise a shortcut with the key, such as one that closes the window, would act first.
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && hasFocus()) {
        event->accept();
        return true;
    }
    return TextField::event(event);
}

void ValueField::focusInEvent(QFocusEvent* event)
{
    TextField::focusInEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
        selectAll();
    }
}

void ValueField::focusOutEvent(QFocusEvent* event)
{
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
        if (!take()) {
            restore();
        }
        if (m_style == Style::Plain) {
            close();
        }
    }
    TextField::focusOutEvent(event);
}

void ValueField::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (take()) {
            leave();
        } else {
            setRefused(true);
        }
        event->accept();
        break;
    case Qt::Key_Escape:
        if (m_style == Style::Framed && !isTyped()) {
            event->ignore();
        } else {
            restore();
            leave();
            event->accept();
        }
        break;
    default:
        TextField::keyPressEvent(event);
    }
}

void ValueField::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (isReadOnly()) {
        beginTyping();
    } else {
        TextField::mouseDoubleClickEvent(event);
    }
}

void ValueField::mousePressEvent(QMouseEvent* event)
{
    if (!isReadOnly()) {
        TextField::mousePressEvent(event);
    }
}

} // namespace tintwick
