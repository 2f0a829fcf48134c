#include "SelectionBar.h"

#include "Accessibility.h"
#include "Button.h"
#include "ColorSelector.h"
#include "ExportMenu.h"
#include "Label.h"
#include "MenuButton.h"
#include "Rule.h"
#include "Stack.h"
#include "SymbolView.h"
#include "Theme.h"

#include <QAccessible>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int textSize = 12;
constexpr double titleRadius = 8;

Stack* title(const QString& text)
{
    return row(padding(6, 6), label(text, theme::font(textSize, QFont::DemiBold), theme::accentText));
}

} // namespace

SelectionBar::SelectionBar(ColorSelector& selector, const std::function<QString()>& paletteName)
    : m_selector(selector)
    , m_count(label({}, theme::font(textSize, QFont::Medium), theme::textSecond))
{
    describeToScreenReaders<SelectionBar>(QAccessible::ToolBar);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    const QString copyTitle = tr("Copy");
    const QString addTitle = tr("Add to…");
    auto* exports = new ExportMenu([this] { return m_selector.colors(); }, paletteName);
    exports->setHasColors(true);
    exports->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // clang-format off
    setContent(column(
        rule(),
        row(gap(6), padding(16, 9),
            m_count,
            spacer(),
            plainButton(copyTitle, [this] { m_selector.copy(); }, title(copyTitle), titleRadius),
            new MenuButton(addTitle, [this] { return m_selector.addMenu(); }, title(addTitle), titleRadius),
            exports,
            squareButton(tr("Remove"), [this] { m_selector.remove(); },
                         symbol(u"delete"_s, 13, SymbolWeight::Regular, theme::red.opacity(0.7))),
            squareButton(tr("Clear Selection"), [this] { m_selector.clear(); },
                         symbol(u"close"_s, 11, SymbolWeight::Semibold, theme::textSecond)))));
    // clang-format on
    connect(&m_selector, &ColorSelector::changed, this, &SelectionBar::showCount);
    showCount();
}

void SelectionBar::showCount()
{
    const qsizetype count = m_selector.count();
    const QString text = tr("%1 selected").arg(count);
    const bool isNew = text != accessibleName();
    m_count->setText(text);
    setAccessibleName(text);
    setVisible(count > 0);
    if (isNew && count > 0) {
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

} // namespace tintwick
