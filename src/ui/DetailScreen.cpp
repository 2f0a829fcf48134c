#include "ui/DetailScreen.h"

#include "ui/DS.h"
#include "ui/kit/Label.h"
#include "ui/kit/Stack.h"
#include "ui/kit/SymbolView.h"

#include <QCoreApplication>

namespace tintwick {

QString colorCountText(qsizetype count)
{
    return count == 1 ? QCoreApplication::translate("DetailScreen", "1 color")
                      : QCoreApplication::translate("DetailScreen", "%1 colors").arg(count);
}

Stack* emptyState(const QString& symbolName, const QString& text)
{
    return column(gap(8), fillWidth(), spacer(), symbol(symbolName, 28, SymbolWeight::Regular, DS::textThird),
                  label(text, DS::font(12), DS::textThird), spacer());
}

} // namespace tintwick
