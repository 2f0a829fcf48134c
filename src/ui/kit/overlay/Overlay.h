#pragma once

#include "Animator.h"
#include "Spring.h"

#include <QPointer>
#include <QWidget>

#include <functional>

namespace tintwick {

class Stack;

/// A small form over the whole of its host, which it dims and keeps from clicks and keys until it is closed. It belongs to
/// the host and deletes itself when closed.
class Overlay final : public QWidget
{
    Q_OBJECT

public:
    /// Shows `form` as a card in the middle of `host` and gives the focus to its first control. `title` is for screen
    /// readers. Return runs `accept`, wherever the focus is except on a button, which it presses; `accept` closes the
    /// overlay itself if it is to be closed. Escape closes the overlay.
    Overlay(QWidget& host, const QString& title, Stack* form, std::function<void()> accept);

    /// The open overlay of a host, or null.
    [[nodiscard]] static Overlay* of(const QWidget& host);

    /// Whether what had the focus before was reached by the keyboard.
    [[nodiscard]] bool isFromKeyboard() const { return m_isFromKeyboard; }

    /// Gives the focus back to where it was, or to the host where that is no longer to be seen.
    void dismiss();

Q_SIGNALS:
    void dismissed();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void place();

    Stack* m_card;
    std::function<void()> m_accept;
    QPointer<QWidget> m_focusBefore;
    bool m_isFromKeyboard;
    Spring m_entrance;
    Animator m_animator;
};

} // namespace tintwick
