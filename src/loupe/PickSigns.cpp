#include "PickSigns.h"

#include <QCoreApplication>
#include <QStringList>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int usualBitsPerChannel = 8;

QString tr(const char* text)
{
    return QCoreApplication::translate("PickSigns", text);
}

} // namespace

QString PickSigns::text() const
{
    QStringList signs;
    if (taken > 0) {
        signs << tr("%1 picked").arg(taken);
    }
    if (isFrozen) {
        signs << tr("frozen");
    }
    if (bitsPerChannel > usualBitsPerChannel) {
        signs << tr("%1 bit").arg(bitsPerChannel);
    }
    return signs.join(u" · "_s);
}

} // namespace tintwick
