#include "KitStyle.h"

#include "Appearance.h"
#include "Paint.h"
#include "Symbol.h"
#include "Theme.h"

#include <QApplication>
#include <QFontMetrics>
#include <QMenu>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionMenuItem>

#include <algorithm>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int menuPadding = 5;
constexpr int itemHeight = 26;
constexpr int itemPadding = 10;
constexpr double itemRadius = 6;
constexpr int symbolColumn = 24;
static_assert(KitStyle::checkedTitleInset == menuPadding + itemPadding + symbolColumn);
constexpr int symbolSize = 12;
constexpr int separatorHeight = 9;
constexpr int submenuColumn = 20;
constexpr int toolTipPadding = 5;
/// Points; a longer title is elided.
constexpr int widestTitle = 260;

/// Titles are aligned: either all lines have the column for symbols, or none has.
int symbolColumnOf(const QStyleOptionMenuItem& item)
{
    return item.maxIconWidth > 0 ? symbolColumn : 0;
}

QString titleOf(const QStyleOptionMenuItem& item)
{
    return item.text.section(u'\t', 0, 0).replace("&&"_L1, "&"_L1);
}

} // namespace

KitStyle::KitStyle()
    : QProxyStyle(QStyleFactory::create(u"Fusion"_s))
{
}

KitStyle* KitStyle::shared()
{
    // Owned by the application, because the last widget uses it until it is deleted.
    static auto* style = [] {
        auto* made = new KitStyle;
        made->setParent(qApp);
        return made;
    }();
    return style;
}

void KitStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const
{
    switch (element) {
    case PE_PanelMenu:
    case PE_PanelTipLabel: {
        const double radius = element == PE_PanelMenu ? menuRadius : toolTipRadius;
        const Scheme scheme = Appearance::of(widget);
        if (element == PE_PanelMenu) {
            painter->setCompositionMode(QPainter::CompositionMode_Source);
            painter->fillRect(option->rect, Qt::transparent);
            painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
        }
        if (widget == nullptr || widget->mask().isEmpty()) {
            fillRounded(*painter, option->rect, radius, theme::surface.in(scheme));
        } else {
            // The mask cuts the window. Pixels that are not completely covered would be black.
            painter->fillRect(option->rect.adjusted(0, 0, 1, 1), theme::surface.in(scheme));
        }
        strokeInside(*painter, option->rect, radius, theme::border.in(scheme), 1);
        break;
    }
    case PE_FrameMenu:
    case PE_FrameFocusRect:
        break;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void KitStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const
{
    if (element == CE_MenuItem) {
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            drawMenuItem(*item, *painter, widget);
        }
    } else if (element != CE_MenuEmptyArea) {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

QSize KitStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                 const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || item == nullptr) {
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        return {1, separatorHeight};
    }
    const int title = std::min(QFontMetrics(item->font).horizontalAdvance(titleOf(*item)), widestTitle);
    return {title + 2 * itemPadding + symbolColumnOf(*item) + submenuColumn, itemHeight};
}

int KitStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_MenuPanelWidth:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return menuPadding;
    case PM_SubMenuOverlap:
        return -2;
    case PM_ToolTipLabelFrameWidth:
        return toolTipPadding;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int KitStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                        QStyleHintReturn* result) const
{
    switch (hint) {
    case SH_MenuBar_AltKeyNavigation:
    case SH_UnderlineShortcut:
        return 0;
    case SH_Menu_MouseTracking:
    // A menu that is higher than the screen scrolls instead of using columns.
    case SH_Menu_Scrollable:
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

void KitStyle::drawMenuItem(const QStyleOptionMenuItem& item, QPainter& painter, const QWidget* widget) const
{
    const Scheme scheme = Appearance::of(widget);
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(QRectF(item.rect.left() + itemPadding, item.rect.center().y(),
                                item.rect.width() - 2 * itemPadding, 1),
                         theme::border.in(scheme));
        return;
    }
    const auto* menu = qobject_cast<const QMenu*>(widget);
    const QAction* action = menu != nullptr ? menu->actionAt(item.rect.center()) : nullptr;
    const bool isDestructive = action != nullptr && action->property(destructiveProperty).toBool();
    const bool isSelected = (item.state & State_Selected) != 0 && (item.state & State_Enabled) != 0;
    if (isSelected) {
        fillRounded(painter, item.rect, itemRadius,
                    (isDestructive ? theme::destructiveGround : theme::accent).in(scheme));
    }
    const QColor ink = (isSelected                          ? theme::white
                        : (item.state & State_Enabled) == 0 ? theme::textThird
                        : isDestructive                     ? theme::red
                                                            : theme::textPrimary)
                           .in(scheme);
    const QRect inside = item.rect.adjusted(itemPadding, 0, -itemPadding, 0);
    const int column = symbolColumnOf(item);
    if (!item.icon.isNull()) {
        const QRectF place(inside.left(), inside.top(), symbolSide(symbolSize), inside.height());
        if (item.icon.name().isEmpty()) {
            item.icon.paint(&painter, place.toAlignedRect());
        } else {
            drawSymbol(painter, item.icon.name(), symbolSize, SymbolWeight::Medium, ink, place);
        }
    }
    painter.setFont(item.font);
    painter.setPen(ink);
    painter.drawText(inside.adjusted(column, 0, 0, 0), Qt::AlignVCenter | Qt::TextSingleLine,
                     QFontMetrics(item.font).elidedText(titleOf(item), Qt::ElideRight, widestTitle));
    if (const QString shortcut = item.text.section(u'\t', 1); !shortcut.isEmpty()) {
        painter.setPen((isSelected ? theme::white : theme::textSecond).in(scheme));
        painter.drawText(inside, Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine, shortcut);
    }
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const double side = symbolSide(10);
        drawSymbol(painter, u"chevron-right", 10, SymbolWeight::Semibold, ink,
                   QRectF(inside.right() - side + 1, inside.top(), side, inside.height()));
    }
}

} // namespace tintwick
