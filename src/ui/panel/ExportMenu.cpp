#include "ExportMenu.h"

#include "ColorExport.h"
#include "Label.h"
#include "MenuButton.h"
#include "Stack.h"
#include "SymbolView.h"
#include "Theme.h"

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int textSize = 12;
constexpr double cornerRadius = 8;

MenuEntry exportEntry(ExportFormat format, const QString& prefix,
                      const std::function<QList<CapturedColor>()>& colors,
                      const std::function<QString()>& paletteName)
{
    const ExportFormatInfo& info = infoOf(format);
    return menuAction(prefix + info.title.toString(), info.symbol.toString(),
                      [=] { ColorExport().exportColors(format, colors(), paletteName()); });
}

} // namespace

QList<MenuEntry> exportEntries(const QString& prefix, const std::function<QList<CapturedColor>()>& colors,
                               const std::function<QString()>& paletteName)
{
    QList<MenuEntry> entries;
    for (const ExportFormat format : mainExportFormats) {
        entries.append(exportEntry(format, prefix, colors, paletteName));
    }
    QList<MenuEntry> others;
    for (const ExportFormat format : moreExportFormats) {
        others.append(exportEntry(format, {}, colors, paletteName));
    }
    entries.append(submenu(prefix + ExportMenu::tr("Other Formats"), others));
    return entries;
}

ExportMenu::ExportMenu(std::function<QList<CapturedColor>()> colors, std::function<QString()> paletteName)
    : m_symbol(symbol(u"share"_s, textSize, SymbolWeight::Semibold, theme::accentText))
    , m_title(label(tr("Export"), theme::font(textSize, QFont::DemiBold)))
    , m_label(row(gap(4), padding(10, 6), m_symbol, m_title))
{
    setContent(new MenuButton(
        tr("Export"),
        [colors = std::move(colors), paletteName = std::move(paletteName)] {
            return exportEntries({}, colors, paletteName);
        },
        m_label, cornerRadius));
    setHasColors(false);
}

void ExportMenu::setHasColors(bool hasColors)
{
    const theme::Color ink = hasColors ? theme::accentText : theme::textThird;
    m_symbol->setColor(ink);
    m_title->setColor(ink);
    m_label->add(ground(hasColors ? theme::accent.opacity(0.1) : theme::surfaceHigh, cornerRadius));
    setEnabled(hasColors);
}

} // namespace tintwick
