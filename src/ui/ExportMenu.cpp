#include "ui/ExportMenu.h"

#include "export/ExportService.h"
#include "ui/DS.h"
#include "ui/kit/Label.h"
#include "ui/kit/MenuButton.h"
#include "ui/kit/Stack.h"
#include "ui/kit/SymbolView.h"

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int textSize = 12;
constexpr double cornerRadius = 8;

} // namespace

ExportMenu::ExportMenu(std::function<QList<CapturedColor>()> colors, std::function<QString()> paletteName)
    : m_symbol(symbol(u"square.and.arrow.up"_s, textSize, SymbolWeight::Semibold, DS::accent))
    , m_title(label(tr("Export"), DS::font(textSize, QFont::DemiBold)))
    , m_label(row(gap(4), padding(10, 6), m_symbol, m_title))
{
    setContent(new MenuButton(
        tr("Export"),
        [colors = std::move(colors), paletteName = std::move(paletteName)] {
            return QList{
                menuAction(tr("CSS Variables"), u"doc.text"_s,
                           [=] { ExportService().exportCSS(colors(), paletteName()); }),
                menuAction(tr("JSON"), u"curlybraces"_s, [=] { ExportService().exportJSON(colors()); }),
                menuAction(tr("PNG Swatch"), u"photo"_s, [=] { ExportService().exportPNG(colors()); })};
        },
        m_label, cornerRadius));
    setHasColors(false);
}

void ExportMenu::setHasColors(bool hasColors)
{
    const DS::Color ink = hasColors ? DS::accent : DS::textThird;
    m_symbol->setColor(ink);
    m_title->setColor(ink);
    m_label->add(ground(hasColors ? DS::accent.opacity(0.1) : DS::surfaceHigh, cornerRadius));
    setEnabled(hasColors);
}

} // namespace tintwick
