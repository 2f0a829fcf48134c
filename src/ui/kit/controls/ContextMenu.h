#pragma once

#include <QIcon>
#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>

class QMenu;
class QPoint;
class QWidget;

namespace tintwick {

/// One line of a menu. A menu is described by a list of them.
struct MenuEntry
{
    enum class Kind { Action, Destructive, Choice, Submenu, Separator };

    Kind kind = Kind::Action;
    QString title;
    /// Name of a symbol, or empty.
    QString symbol;
    std::function<void()> action;
    QList<MenuEntry> children;
    /// Of a choice.
    bool isChosen = false;
    /// Only shown; the window that opens the menu reacts to it.
    QKeySequence shortcut = {};
    /// A text at the end of the line, shortened to fit. Not together with a shortcut.
    QString detail = {};
    /// A picture instead of a symbol.
    QIcon icon = {};
};

[[nodiscard]] MenuEntry menuAction(const QString& title, std::function<void()> action);
[[nodiscard]] MenuEntry menuAction(const QString& title, const QString& symbol, std::function<void()> action);
[[nodiscard]] MenuEntry menuAction(const QString& title, const QKeySequence& shortcut,
                                   std::function<void()> action);
/// An action that removes something, drawn in red.
[[nodiscard]] MenuEntry menuDestructive(const QString& title, std::function<void()> action);
/// One of several exclusive choices. The chosen one has a check mark.
[[nodiscard]] MenuEntry menuChoice(const QString& title, bool isChosen, std::function<void()> action);
[[nodiscard]] MenuEntry submenu(const QString& title, const QList<MenuEntry>& entries);
[[nodiscard]] MenuEntry menuSeparator();

/// Makes a menu in the appearance of `owner` without opening it. It deletes itself when it closes.
[[nodiscard]] QMenu* makeMenu(QWidget& owner, const QList<MenuEntry>& entries);
/// Opens a menu in the appearance of `owner` at a global position and returns at once. The menu deletes itself when it closes.
QMenu* popUpMenu(QWidget& owner, const QPoint& globalPosition, const QList<MenuEntry>& entries);
/// The same below `owner`, or above it when the screen has no room below.
QMenu* dropDownMenu(QWidget& owner, const QList<MenuEntry>& entries);
/// Gives `menu` the style of our menus. Its palette determines the appearance.
void styleMenu(QMenu& menu);
/// Styles an empty menu and adds `entries`.
void fillMenu(QMenu& menu, const QList<MenuEntry>& entries);

} // namespace tintwick
