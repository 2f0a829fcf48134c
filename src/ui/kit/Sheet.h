#pragma once

#include "ui/kit/Animator.h"
#include "ui/kit/Spring.h"

#include <QPointer>
#include <QWidget>

#include <functional>

namespace tintwick {

/// A small form over its host, which it dims and keeps from clicks and keys until it is closed. Escape cancels; Return
/// does what its default button does.
class Sheet final : public QWidget
{
    Q_OBJECT

public:
    struct Actions
    {
        /// What Return does, wherever the focus is, except on the cancel button. It closes the sheet itself if it is
        /// to be closed.
        std::function<void()> accept;
        /// Before the sheet closes by Escape.
        std::function<void()> cancel;
    };

    /// Shows `content` as a card in the middle of `host`, `cardWidth` points wide, and gives the focus to its first field.
    /// The sheet belongs to the host and deletes itself when closed.
    Sheet(QWidget& host, const QString& title, QWidget* content, Actions actions);

    /// The open sheet of a host, or null.
    [[nodiscard]] static Sheet* of(const QWidget& host);

    void cancel();
    void close();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void place();

    QWidget* m_card;
    Actions m_actions;
    QPointer<QWidget> m_focusBefore;
    Spring m_entrance;
    Animator m_animator;
};

} // namespace tintwick
