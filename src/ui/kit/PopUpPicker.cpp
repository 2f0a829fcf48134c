#include "ui/kit/PopUpPicker.h"

#include "ui/Appearance.h"
#include "ui/kit/Accessibility.h"
#include "ui/kit/ContextMenu.h"
#include "ui/kit/KitStyle.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tintwick {

namespace {

constexpr int pickerHeight = 28;
constexpr double radius = 8;
constexpr int titlePadding = 12;
constexpr int chevronSize = 10;
constexpr int chevronPadding = 8;

QFont titleFont()
{
    return DS::font(12, QFont::Medium);
}

} // namespace

PopUpPicker::PopUpPicker(const QString& name, QStringList titles, qsizetype selected)
    : Clickable(name)
    , m_titles(std::move(titles))
    , m_selected(selected)
{
    describeToScreenReaders();
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    onClick([this] { openMenu(); });
}

void PopUpPicker::setSelected(qsizetype position)
{
    if (m_selected == position) {
        return;
    }
    m_selected = position;
    update();
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

QMenu* PopUpPicker::openMenu()
{
    QList<MenuEntry> entries;
    for (qsizetype i = 0; i < m_titles.size(); ++i) {
        entries.append(menuChoice(m_titles[i], i == m_selected, [this, i] { choose(i); }));
    }
    QMenu* menu = contextMenu(*this, entries);
    // The chosen title lies over itself, and the menu ends where the control does or beyond.
    const int left = titlePadding - KitStyle::checkedTitleInset;
    menu->setMinimumWidth(width() - left);
    QAction* chosen = menu->actions().at(m_selected);
    const int middle = menu->actionGeometry(chosen).center().y();
    menu->popup(mapToGlobal(QPoint(left, rect().center().y() - middle)));
    menu->setActiveAction(chosen);
    return menu;
}

QSize PopUpPicker::sizeHint() const
{
    const QFontMetricsF metrics(titleFont());
    double widest = 0;
    for (const QString& title : m_titles) {
        widest = std::max(widest, metrics.horizontalAdvance(title));
    }
    return {static_cast<int>(std::ceil(widest + symbolSide(chevronSize))) + titlePadding + 2 * chevronPadding,
            pickerHeight};
}

double PopUpPicker::cornerRadius() const
{
    return radius;
}

void PopUpPicker::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
        openMenu();
        return;
    }
    Clickable::keyPressEvent(event);
}

void PopUpPicker::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Scheme scheme = Appearance::of(this);
    fillRounded(painter, rect(), radius, DS::surfaceHigh.in(scheme));
    strokeInside(painter, rect(), radius, DS::border.in(scheme), 1);

    const double side = symbolSide(chevronSize);
    const QRectF chevron(width() - chevronPadding - side, 0, side, height());
    drawSymbol(painter, u"chevron.up.chevron.down", chevronSize, SymbolWeight::Semibold,
               DS::textSecond.in(scheme), chevron);
    painter.setFont(titleFont());
    painter.setPen(DS::textPrimary.in(scheme));
    const QRectF title(titlePadding, 0, chevron.left() - chevronPadding - titlePadding, height());
    painter.drawText(title, Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine, selectedTitle());
    paintAnswer(painter);
}

} // namespace tintwick
