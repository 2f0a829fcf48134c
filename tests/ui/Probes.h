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

// Helpers that inspect views and operate them like a user.

/// Finishes animations, layout and deferred deletions.
inline void settle()
{
    QApplication::processEvents();
    Ticker::shared().advance(60);
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The visible button with an accessible name; null without one.
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

/// Drags a text onto a widget and drops it; returns whether it was accepted as a copy.
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

/// The entries of a menu; "-" for a separator.
inline QStringList titles(const QMenu& menu)
{
    QStringList result;
    for (const QAction* action : menu.actions()) {
        result.append(action->isSeparator() ? QStringLiteral("-") : action->text().section(u'\t', 0, 0));
    }
    return result;
}

/// The lines of a menu with all formats; "-" for a separator.
inline QStringList formatTitles()
{
    return QStringLiteral("HEX|HEX+A|RGB|RGBA|HSL|HSLA|CSS Var|Tailwind|Name|-|OKLCH|RGB modern|HSV|CMYK "
                          "naive|HEX lower|"
                          "HEX bare|0xAARRGGBB|Floats|Template")
        .split(u'|');
}

/// The widgets that Tab reaches, in order, once around.
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

/// Chooses an entry of an open menu or of its submenus, as a click does.
inline void choose(QMenu& menu, const QString& title)
{
    for (QAction* action : menu.actions()) {
        if (action->text().section(u'\t', 0, 0) == title) {
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
