#include "Overhang.h"

#include <QWidget>

namespace tintwick {

QMargins overhangOf(const QWidget& widget)
{
    const auto* overhanging = dynamic_cast<const Overhanging*>(&widget);
    return overhanging != nullptr ? overhanging->overhang() : QMargins();
}

} // namespace tintwick
