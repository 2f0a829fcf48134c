#pragma once

class QDir;

namespace tintwick {

/// The screen of one colour in each of its states.
void shootColor(const QDir& folder);

} // namespace tintwick
