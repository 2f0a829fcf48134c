#pragma once

#include <QString>

namespace tintwick {

/// What the pill says about the pick beside the colour.
struct PickSigns
{
    bool isFrozen = false;
    int bitsPerChannel = 8;
    /// The colours that a pick of many has taken so far.
    int taken = 0;

    /// One line such as "3 picked · frozen · 10 bit"; empty for a usual pick.
    [[nodiscard]] QString text() const;

    friend constexpr bool operator==(const PickSigns&, const PickSigns&) = default;
};

} // namespace tintwick
