#include "ColorActions.h"

#include "AppState.h"
#include "PanelNavigation.h"

#include <QColor>
#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>

namespace tintwick {

namespace {

constexpr QKeyCombination openColorKey = Qt::CTRL | Qt::Key_E;

} // namespace

QColor paintColor(const CapturedColor& color)
{
    // A data file may contain any finite number.
    const auto component = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(component(color.red), component(color.green), component(color.blue),
                            component(color.alpha));
}

QString swatchLabel(const CapturedColor& color)
{
    return color.hex6().mid(1);
}

QString shownName(const CapturedColor& color)
{
    return color.customName.value_or(color.hex6());
}

QString codeOf(const CapturedColor& color)
{
    return color.alpha < 1 ? color.hex8() : color.hex6();
}

QString spokenName(const CapturedColor& color)
{
    return color.customName ? QStringLiteral("%1, %2").arg(*color.customName, color.hex6()) : color.hex6();
}

void openContrast(const QWidget& view, const CapturedColor& text, const CapturedColor& ground)
{
    if (PanelNavigation* const navigation = PanelNavigation::of(&view)) {
        navigation->openContrast(text, ground);
    }
}

void copyWithFeedback(AppState& state, ColorFormat format, const CapturedColor& color)
{
    state.clipboard().copy(state.text(color, format));
    state.showCopyFeedback(format, color);
}

bool openColorByKey(const QKeyEvent& event, const QWidget& view, const CapturedColor& color)
{
    PanelNavigation* const navigation = PanelNavigation::of(&view);
    if (navigation == nullptr || QKeySequence(event.keyCombination()) != openColorKey) {
        return false;
    }
    navigation->openColor(color);
    return true;
}

QList<MenuEntry> screenEntries(const QWidget& view, const CapturedColor& color)
{
    PanelNavigation* const navigation = PanelNavigation::of(&view);
    if (navigation == nullptr) {
        return {};
    }
    return {menuSeparator(),
            menuAction(QCoreApplication::translate("ColorActions", "Edit…"), openColorKey,
                       [navigation, color] { navigation->openColor(color); }),
            menuAction(QCoreApplication::translate("ColorActions", "Contrast With…"),
                       [navigation, color] { navigation->openContrast(color); }),
            menuAction(QCoreApplication::translate("ColorActions", "Show Similar"),
                       [navigation, color] { navigation->openSimilar(color); })};
}

MenuEntry copyAsMenu(AppState& state, const CapturedColor& color)
{
    QList<MenuEntry> entries;
    for (const ColorFormat format : allColorFormats) {
        if (format == ColorFormat::Oklch) {
            entries.append(menuSeparator());
        }
        MenuEntry entry =
            menuAction(rawValue(format), [&state, format, color] { copyWithFeedback(state, format, color); });
        entry.detail = state.text(color, format);
        entries.append(entry);
    }
    return submenu(QCoreApplication::translate("ColorActions", "Copy as…"), entries);
}

MenuEntry addToCollectionMenu(AppState& state, const CapturedColor& color, const QString& title)
{
    QList<MenuEntry> entries;
    for (const ColorCollection& collection : state.collections()) {
        entries.append(
            menuAction(collection.name, [&state, colorId = color.id, collectionId = collection.id] {
                state.addColor(colorId, collectionId);
            }));
    }
    return submenu(title, entries);
}

MenuEntry deleteColorEntry(AppState& state, const CapturedColor& color)
{
    return menuDestructive(QCoreApplication::translate("ColorActions", "Delete"),
                           [&state, id = color.id] { state.deleteColor(id); });
}

} // namespace tintwick
