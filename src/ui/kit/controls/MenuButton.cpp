#include "MenuButton.h"

#include "Accessibility.h"
#include "AccessibleMenuButton.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

#include <utility>

namespace tintwick {

MenuButton::MenuButton(const QString& name, std::function<QList<MenuEntry>()> entries, QWidget* content,
                       double cornerRadius)
    : Clickable(name)
    , m_entries(std::move(entries))
    , m_cornerRadius(cornerRadius)
{
    describeToScreenReaders<MenuButton>([](QWidget& button) {
        return new AccessibleMenuButton(static_cast<MenuButton&>(button), QAccessible::ButtonMenu);
    });
    setContent(content);
    onClick([this] { open(); });
}

QMenu* MenuButton::menu() const
{
    return m_menu != nullptr && m_menu->isVisible() ? m_menu.data() : nullptr;
}

void MenuButton::open()
{
    if (menu() != nullptr) {
        return;
    }
    setDown(true);
    m_menu = openMenu(m_entries());
    connect(m_menu, &QMenu::aboutToHide, this, [this] { setDown(false); });
}

QMenu* MenuButton::openMenu(const QList<MenuEntry>& entries)
{
    return dropDownMenu(*this, entries);
}

void MenuButton::keyPressEvent(QKeyEvent* event)
{
    const bool isModified = (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier;
    switch (isModified ? Qt::Key_unknown : event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Select:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        if (!event->isAutoRepeat()) {
            open();
            if (m_menu->activeAction() == nullptr) {
                m_menu->setActiveAction(m_menu->actions().value(0));
            }
        }
        break;
    default:
        Clickable::keyPressEvent(event);
    }
}

// QAbstractButton would click on the release of a key whose press opened the menu.
void MenuButton::keyReleaseEvent(QKeyEvent* event)
{
    event->ignore();
}

void MenuButton::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        open();
    } else {
        event->ignore();
    }
}

void MenuButton::mouseMoveEvent(QMouseEvent* event)
{
    event->ignore();
}

void MenuButton::mouseReleaseEvent(QMouseEvent* event)
{
    event->ignore();
}

} // namespace tintwick
