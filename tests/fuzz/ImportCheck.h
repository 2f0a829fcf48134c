#pragma once

#include <QByteArrayView>

namespace tintwick::test {

/// Reads bytes as each kind of palette file. Returns whether one of them was accepted. Ends the process when a reader gives a
/// colour that is none.
bool checkImport(QByteArrayView bytes);

} // namespace tintwick::test
