#pragma once

class QDir;

namespace tintwick {

/// The main panel in each of its states, with made-up colours.
void shootMainPanel(const QDir& folder);

} // namespace tintwick
