#pragma once

#include <QList>
#include <QString>

#include <functional>

class QMenu;
class QPoint;
class QWidget;

namespace tintwick {

/// One line of a context menu. A menu is written down as the list of its lines.
struct MenuEntry
{
    enum class Kind { Action, Destructive, Choice, Submenu, Separator };

    Kind kind = Kind::Action;
    QString title;
    /// Name of a symbol, or empty.
    QString symbol;
    std::function<void()> action;
    QList<MenuEntry> children;
    /// Of several choices, the one that holds.
    bool isChosen = false;
};

[[nodiscard]] MenuEntry menuAction(const QString& title, std::function<void()> action);
[[nodiscard]] MenuEntry menuAction(const QString& title, const QString& symbol, std::function<void()> action);
/// An action that cannot be undone, in red.
[[nodiscard]] MenuEntry menuDestructive(const QString& title, std::function<void()> action);
/// One of several that exclude each other; the chosen one has a check mark.
[[nodiscard]] MenuEntry menuChoice(const QString& title, bool isChosen, std::function<void()> action);
[[nodiscard]] MenuEntry submenu(const QString& title, const QList<MenuEntry>& entries);
[[nodiscard]] MenuEntry menuSeparator();

/// A menu in the appearance of `owner`, which is yet to be opened and deletes itself when it closes.
[[nodiscard]] QMenu* makeMenu(QWidget& owner, const QList<MenuEntry>& entries);
/// Opens a menu in the appearance of `owner` at a global position. It returns at once; the menu deletes itself.
QMenu* popUpMenu(QWidget& owner, const QPoint& globalPosition, const QList<MenuEntry>& entries);
/// The same below `owner`, or above it where the screen has no room below.
QMenu* dropDownMenu(QWidget& owner, const QList<MenuEntry>& entries);
/// Gives a menu the look of all menus of ours, in the appearance that its palette says.
void dressMenu(QMenu& menu);
/// Dresses an empty menu and fills it.
void fillMenu(QMenu& menu, const QList<MenuEntry>& entries);

} // namespace tintwick
