#pragma once

#include "LoupeLook.h"
#include "Preferences.h"

namespace tintwick {

/// The loupe's shape and size that the user has chosen.
[[nodiscard]] inline LoupeLook chosenLook(const Preferences& preferences)
{
    return {.isCircle = preferences.loupeShape() == LoupeShape::Circle,
            .side = loupeSide(preferences.loupeSize())};
}

} // namespace tintwick
