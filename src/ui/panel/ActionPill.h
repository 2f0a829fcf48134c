#pragma once

#include "Animator.h"
#include "EaseInOut.h"

#include <QTimer>
#include <QWidget>

#include <chrono>
#include <functional>

namespace tintwick {

class AppState;
class Label;
class PlainButton;
class Stack;

/// A sentence with an action, in a row at the bottom of the panel: "Removed Sky – Undo" after each change of the state, and what
/// say() is given. The row takes its room from the screens, so that it covers nothing; it stays while the pointer is over it or
/// its button has the focus.
///
/// Ctrl+Z and Ctrl+Shift+Z in the panel go back and forth without it.
class ActionPill final : public QWidget
{
    Q_OBJECT

public:
    /// After a change, or after pointer and focus have left.
    static constexpr std::chrono::milliseconds shownFor{6000};

    /// A button after the sentence; none without an action.
    struct Offer
    {
        QString title;
        std::function<void()> action;
    };

    ActionPill(AppState& appState, QWidget& panel);

    /// Replaces the sentence and the button, and alerts screen readers.
    void say(const QString& text, const Offer& offer = {});

    /// To be called after controls have been added to the panel: Tab reaches the button after them.
    void moveToEndOfTabOrder() const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addShortcut(QWidget& panel, const QKeySequence& keys, const std::function<void()>& action);
    void hideLater();
    void setPresent(bool isPresent);
    void place();

    AppState& m_appState;
    QWidget& m_panel;
    Label* m_text;
    Label* m_dash;
    Label* m_title;
    PlainButton* m_button;
    std::function<void()> m_action;
    Stack* m_pill;
    QTimer m_end{this};
    /// 0 hidden, 1 shown.
    EaseInOut m_presence;
    Animator m_animator;
};

} // namespace tintwick
