#include "CollectionIcon.h"

namespace tintwick {

using namespace Qt::StringLiterals;

QString collectionSymbol(const QString& storedIcon)
{
    return storedIcon == "paintpalette.fill"_L1 ? u"palette-filled"_s : QString();
}

} // namespace tintwick
