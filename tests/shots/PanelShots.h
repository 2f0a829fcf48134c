#pragma once

class QDir;

namespace tintwick {

/// The panel in each of its states, with sample colours.
void shootMainPanel(const QDir& folder);

} // namespace tintwick
