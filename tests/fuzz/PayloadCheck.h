#pragma once

#include <QByteArrayView>

namespace tintwick::test {

/// Feeds bytes to the reader of data files. Whatever it accepts must have a text for every format, and be
/// written and read back as the same payload; otherwise the process is stopped. Tells whether the bytes were
/// accepted.
bool checkPayload(QByteArrayView bytes);

} // namespace tintwick::test
