#pragma once

#include "Animator.h"
#include "Spring.h"

#include <QPointer>
#include <QWidget>

#include <functional>

namespace tintwick {

class Stack;

/// A form on a card over its host. It dims the host and takes its mouse and key events until it is closed. It is a child of the
/// host and deletes itself when closed.
///
/// Not QDialog, which is a window of its own: the window manager would place it, and it could neither dim the rounded panel nor
/// move with it.
class Overlay final : public QWidget
{
    Q_OBJECT

public:
    /// Shows `form` in the centre of `host` and focuses its first control. `title` is for screen readers. Return runs `accept`,
    /// which closes the overlay if it wants to; a focused button takes Return itself. Escape closes the overlay.
    Overlay(QWidget& host, const QString& title, Stack* form, std::function<void()> accept);

    /// The open overlay of a host, or null.
    [[nodiscard]] static Overlay* of(const QWidget& host);

    /// Whether the widget that had the focus before showed the focus ring.
    [[nodiscard]] bool isFromKeyboard() const { return m_isFromKeyboard; }

    /// Closes the overlay. The focus returns to the previous widget, or to the host if that is not visible.
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
