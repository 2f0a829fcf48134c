#include "ContextMenu.h"

#include "Appearance.h"
#include "InOneLine.h"
#include "KitStyle.h"
#include "PopupWindow.h"
#include "Symbol.h"
#include "Theme.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QHoverEvent>
#include <QMenu>
#include <QScreen>

namespace tintwick {

namespace {

/// Points between a button and its drop-down menu.
constexpr int dropDownGap = 4;

/// A title that shows the user's text as it is: QMenu takes a single ampersand for a mnemonic and a tab for the start of a
/// shortcut.
QString literal(const QString& title)
{
    return inOneLine(title).replace(u'&', QStringLiteral("&&"));
}

QString lineOf(const MenuEntry& entry)
{
    if (entry.detail.isEmpty()) {
        return literal(entry.title);
    }
    constexpr int widest = 190; // points
    const QString detail =
        QFontMetrics(theme::font(13)).elidedText(inOneLine(entry.detail), Qt::ElideRight, widest);
    return literal(entry.title) + u'\t' + detail;
}

/// Ends the hover state of `owner` and of the widgets that contain it. Qt sends no leave event when a menu grabs the pointer.
void sendHoverLeave(QWidget& owner)
{
    for (QWidget* widget = &owner; widget != nullptr; widget = widget->parentWidget()) {
        if (widget->testAttribute(Qt::WA_Hover)) {
            QHoverEvent leave(QEvent::HoverLeave, QPointF(-1, -1), QPointF(-1, -1), QPointF(-1, -1));
            QCoreApplication::sendEvent(widget, &leave);
        }
    }
}

} // namespace

void styleMenu(QMenu& menu)
{
    menu.setStyle(KitStyle::shared());
    menu.setFont(theme::font(13));
    menu.setWindowFlags(menu.windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    menu.setAttribute(Qt::WA_TranslucentBackground);
    keepCornersRounded(menu, KitStyle::menuRadius);
}

void fillMenu(QMenu& menu, const QList<MenuEntry>& entries)
{
    styleMenu(menu);
    for (const MenuEntry& entry : entries) {
        switch (entry.kind) {
        case MenuEntry::Kind::Separator:
            menu.addSeparator();
            break;
        case MenuEntry::Kind::Submenu: {
            auto* submenu = new QMenu(literal(entry.title), &menu);
            submenu->setPalette(menu.palette());
            fillMenu(*submenu, entry.children);
            menu.addMenu(submenu);
            break;
        }
        case MenuEntry::Kind::Action:
        case MenuEntry::Kind::Choice:
        case MenuEntry::Kind::Destructive: {
            QAction* action = menu.addAction(lineOf(entry));
            if (!entry.symbol.isEmpty() || !entry.icon.isNull()) {
                action->setIcon(entry.icon.isNull() ? symbolIcon(entry.symbol) : entry.icon);
                action->setIconVisibleInMenu(true);
            }
            action->setShortcut(entry.shortcut);
            if (entry.kind == MenuEntry::Kind::Choice) {
                action->setCheckable(true);
                action->setChecked(entry.isChosen);
            }
            action->setProperty(KitStyle::destructiveProperty, entry.kind == MenuEntry::Kind::Destructive);
            QObject::connect(action, &QAction::triggered, &menu, entry.action);
            break;
        }
        }
    }
}

MenuEntry menuAction(const QString& title, std::function<void()> action)
{
    return menuAction(title, QString(), std::move(action));
}

MenuEntry menuAction(const QString& title, const QString& symbol, std::function<void()> action)
{
    return {MenuEntry::Kind::Action, title, symbol, std::move(action), {}, false};
}

MenuEntry menuAction(const QString& title, const QKeySequence& shortcut, std::function<void()> action)
{
    return {MenuEntry::Kind::Action, title, {}, std::move(action), {}, false, shortcut};
}

MenuEntry menuDestructive(const QString& title, std::function<void()> action)
{
    return {MenuEntry::Kind::Destructive, title, {}, std::move(action), {}, false};
}

MenuEntry menuChoice(const QString& title, bool isChosen, std::function<void()> action)
{
    return {MenuEntry::Kind::Choice, title, isChosen ? QStringLiteral("check") : QString(),
            std::move(action),       {},    isChosen};
}

MenuEntry submenu(const QString& title, const QList<MenuEntry>& entries)
{
    return {MenuEntry::Kind::Submenu, title, {}, {}, entries, false};
}

MenuEntry menuSeparator()
{
    return {MenuEntry::Kind::Separator, {}, {}, {}, {}, false};
}

QMenu* makeMenu(QWidget& owner, const QList<MenuEntry>& entries)
{
    auto* menu = new QMenu(&owner);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setPalette(Appearance::palette(Appearance::of(&owner)));
    fillMenu(*menu, entries);
    QObject::connect(menu, &QMenu::aboutToHide, &owner, [&owner] { sendHoverLeave(owner); });
    return menu;
}

QMenu* popUpMenu(QWidget& owner, const QPoint& globalPosition, const QList<MenuEntry>& entries)
{
    QMenu* menu = makeMenu(owner, entries);
    menu->popup(globalPosition);
    return menu;
}

QMenu* dropDownMenu(QWidget& owner, const QList<MenuEntry>& entries)
{
    QMenu* menu = makeMenu(owner, entries);
    const QRect button(owner.mapToGlobal(QPoint(0, 0)), owner.size());
    const int height = menu->sizeHint().height();
    const int below = button.bottom() + 1 + dropDownGap;
    const int above = button.top() - dropDownGap - height;
    const QRect room = owner.screen()->availableGeometry();
    const bool fitsBelow = below + height <= room.bottom() + 1;
    menu->popup({button.left(), fitsBelow || above < room.top() ? below : above});
    return menu;
}

} // namespace tintwick
