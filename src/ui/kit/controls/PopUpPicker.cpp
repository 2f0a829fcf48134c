#include "PopUpPicker.h"

#include "Accessibility.h"
#include "AccessibleMenuButton.h"
#include "KitStyle.h"
#include "Label.h"
#include "Stack.h"
#include "SymbolView.h"

#include <QKeyEvent>
#include <QMenu>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int pickerHeight = 28;
constexpr double radius = 8;
constexpr int titlePadding = 12;
constexpr int chevronPadding = 8;

class AccessiblePopUpPicker final : public AccessibleMenuButton
{
public:
    explicit AccessiblePopUpPicker(PopUpPicker& picker)
        : AccessibleMenuButton(picker, QAccessible::ComboBox)
        , m_picker(picker)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? m_picker.selectedTitle() : QAccessibleWidget::text(kind);
    }

private:
    PopUpPicker& m_picker;
};

} // namespace

PopUpPicker::PopUpPicker(const QString& name, const QStringList& titles, qsizetype selected)
    : PopUpPicker(name, titles, selected, label(titles.at(selected), theme::font(12, QFont::Medium)))
{
}

PopUpPicker::PopUpPicker(const QString& name, QStringList titles, qsizetype selected, Label* title)
    : MenuButton(
          name, [this] { return choices(); },
          row(gap(8), Padding{{titlePadding, 0, chevronPadding, 0}}, fixedHeight(pickerHeight), fillWidth(),
              ground(theme::surfaceHigh, radius), outline(theme::border, 1), title, spacer(),
              symbol(u"unfold"_s, 10, SymbolWeight::Semibold, theme::textSecond)),
          radius)
    , m_titles(std::move(titles))
    , m_selected(selected)
    , m_title(title)
{
    describeToScreenReaders<PopUpPicker>(
        [](QWidget& picker) { return new AccessiblePopUpPicker(static_cast<PopUpPicker&>(picker)); });
}

void PopUpPicker::setSelected(qsizetype position)
{
    if (m_selected == position) {
        return;
    }
    m_selected = position;
    m_title->setText(selectedTitle());
    QAccessibleValueChangeEvent changed(this, selectedTitle());
    QAccessible::updateAccessibility(&changed);
}

void PopUpPicker::onSelect(std::function<void(qsizetype)> action)
{
    m_onSelect = std::move(action);
}

void PopUpPicker::choose(qsizetype position)
{
    if (m_selected == position) {
        return;
    }
    setSelected(position);
    if (m_onSelect) {
        m_onSelect(position);
    }
}

QList<MenuEntry> PopUpPicker::choices()
{
    QList<MenuEntry> entries;
    for (qsizetype i = 0; i < m_titles.size(); ++i) {
        entries.append(menuChoice(m_titles[i], i == m_selected, [this, i] { choose(i); }));
    }
    return entries;
}

QMenu* PopUpPicker::openMenu(const QList<MenuEntry>& entries)
{
    QMenu* menu = makeMenu(*this, entries);
    // The chosen line covers the title of the control, and the menu is at least as wide as the control.
    const int left = titlePadding - KitStyle::checkedTitleInset;
    menu->setMinimumWidth(width() - left);
    QAction* chosen = menu->actions().at(m_selected);
    const int middle = menu->actionGeometry(chosen).center().y();
    menu->popup(mapToGlobal(QPoint(left, rect().center().y() - middle)));
    menu->setActiveAction(chosen);
    return menu;
}

void PopUpPicker::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Up && !event->isAutoRepeat()) {
        click();
        return;
    }
    MenuButton::keyPressEvent(event);
}

} // namespace tintwick
