#pragma once

#include "ColorSpaces.h"

namespace tintwick::test {

/// 0x3B82F6 as sRGB components.
inline Components rgb(unsigned hex)
{
    return {((hex >> 16U) & 0xffU) / 255.0, ((hex >> 8U) & 0xffU) / 255.0, (hex & 0xffU) / 255.0};
}

} // namespace tintwick::test
