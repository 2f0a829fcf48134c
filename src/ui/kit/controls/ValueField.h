#pragma once

#include "TextField.h"

#include <QPointer>

#include <functional>

namespace tintwick {

/// A field for a value that also changes elsewhere. Return takes the text that the user has typed, and so does a move of the focus;
/// Escape restores the value. A text that is not understood is marked in red and not taken.
class ValueField final : public TextField
{
    Q_OBJECT

public:
    /// A plain field looks like text until it is used: a double click or beginTyping() opens it, and Tab skips it.
    enum class Style { Framed, Plain };

    ValueField(const QString& name, Style style);

    /// Shows the value, unless the user is typing.
    void setValueText(const QString& text);
    /// `action` takes the text and returns whether it understands it.
    void onEnter(std::function<bool(const QString& text)> action);
    /// The control that gets the focus after the user has typed in a plain field.
    void returnFocusTo(QWidget& control) { m_returnTo = &control; }
    /// Takes the focus and selects the value, or replaces it by `text`.
    void beginTyping(const QString& text = {});

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] bool isTyped() const { return text() != m_valueText; }
    /// Returns false for a text that is not understood.
    bool take();
    void restore();
    /// Returns the focus from a plain field.
    void leave();
    void close();

    Style m_style;
    QString m_valueText;
    std::function<bool(const QString&)> m_onEnter;
    QPointer<QWidget> m_returnTo;
};

} // namespace tintwick
