#pragma once

#include <QtGlobal>

#include <optional>

namespace tintwick {

/// The position in a row of `count` controls to which a key moves the focus from the control at `from`: Left and Right by one and
/// not beyond the ends, Home and End to the ends. Nothing for any other key of `Qt::Key`.
[[nodiscard]] std::optional<qsizetype> positionAfterKey(int key, qsizetype from, qsizetype count);

} // namespace tintwick
