#include "DetailScreen.h"

#include "Label.h"
#include "Stack.h"
#include "SymbolView.h"
#include "Theme.h"

#include <QCoreApplication>

namespace tintwick {

QString colorCountText(qsizetype count)
{
    return count == 1 ? QCoreApplication::translate("DetailScreen", "1 color")
                      : QCoreApplication::translate("DetailScreen", "%1 colors").arg(count);
}

Stack* emptyState(const QString& symbolName, Label* text)
{
    return column(gap(8), fillWidth(), spacer(),
                  symbol(symbolName, 28, SymbolWeight::Regular, theme::textThird), text, spacer());
}

Label* emptyStateLabel(const QString& text)
{
    return label(text, theme::font(12), theme::textThird);
}

} // namespace tintwick
