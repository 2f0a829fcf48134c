#pragma once

#include <QByteArrayView>

namespace tintwick::test {

/// Decodes the bytes as a data file and returns whether they are accepted. Aborts the process unless an accepted
/// payload can be formatted in every colour format, and is the same after encoding and decoding.
bool checkPayload(QByteArrayView bytes);

} // namespace tintwick::test
