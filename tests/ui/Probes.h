#pragma once

#include "Label.h"
#include "Ticker.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QHoverEvent>
#include <QMenu>
#include <QMimeData>
#include <QTest>

namespace tintwick::test {

// What tests of views see and do as a user would.

/// Everything that moves has come to rest, all is laid out, and what was to be deleted is.
inline void settle()
{
    QApplication::processEvents();
    Ticker::shared().advance(60);
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The visible button of a name, or null.
inline QAbstractButton* button(const QWidget& root, const QString& name)
{
    for (auto* candidate : root.findChildren<QAbstractButton*>()) {
        if (candidate->accessibleName() == name && candidate->isVisible()) {
            return candidate;
        }
    }
    return nullptr;
}

inline QStringList visibleTexts(const QWidget& root)
{
    QStringList texts;
    for (const auto* label : root.findChildren<Label*>()) {
        if (label->isVisible()) {
            texts.append(label->text());
        }
    }
    return texts;
}

inline QRect placeIn(const QWidget& panel, const QWidget& widget)
{
    return {widget.mapTo(&panel, QPoint(0, 0)), widget.size()};
}

inline bool isNear(QRgb one, QRgb other, int tolerance = 2)
{
    return std::abs(qRed(one) - qRed(other)) <= tolerance &&
           std::abs(qGreen(one) - qGreen(other)) <= tolerance &&
           std::abs(qBlue(one) - qBlue(other)) <= tolerance;
}

/// `type` is `HoverEnter`, `HoverMove` or `HoverLeave`.
inline void hover(QWidget& widget, QEvent::Type type)
{
    const QPointF middle = widget.rect().center();
    QHoverEvent event(type, middle, widget.mapToGlobal(middle), middle);
    QApplication::sendEvent(&widget, &event);
}

/// Drags a text onto a widget and lets go of it; whether the drop was taken, as a copy.
inline bool drop(QWidget& target, const QString& text)
{
    QMimeData data;
    data.setText(text);
    const QPoint middle = target.rect().center();
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(middle, actions, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted()) {
        return false;
    }
    QDropEvent dropped(middle, actions, &data, Qt::LeftButton, Qt::NoModifier);
    dropped.ignore();
    QApplication::sendEvent(&target, &dropped);
    return dropped.isAccepted() && dropped.dropAction() == Qt::CopyAction;
}

/// The lines of a menu; a separator is "-".
inline QStringList titles(const QMenu& menu)
{
    QStringList result;
    for (const QAction* action : menu.actions()) {
        result.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    }
    return result;
}

/// What Tab reaches, in its order, from one control once around.
inline QList<QWidget*> reachedByTab(const QWidget& window)
{
    QList<QWidget*> reached;
    for (;;) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        QWidget* focused = window.focusWidget();
        if (focused == nullptr || reached.contains(focused)) {
            return reached;
        }
        reached.append(focused);
    }
}

/// Opens the context menu of a view as Shift+F10 does.
inline QMenu* contextMenu(QWidget& widget)
{
    widget.setFocus();
    QTest::keyClick(&widget, Qt::Key_F10, Qt::ShiftModifier);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// Chooses a line of an open menu, or of the submenu of one, as a click does.
inline void choose(QMenu& menu, const QString& title)
{
    for (QAction* action : menu.actions()) {
        if (action->text() == title) {
            menu.close();
            action->trigger();
            return;
        }
        if (action->menu() != nullptr) {
            choose(*action->menu(), title);
        }
    }
}

} // namespace tintwick::test
