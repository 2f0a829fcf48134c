#pragma once

class QDir;

namespace tintwick {

/// The screen of a palette in each of its states, with sample colours.
void shootPalette(const QDir& folder);

} // namespace tintwick
