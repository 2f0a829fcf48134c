#include "PayloadCheck.h"

#include "PayloadCoding.h"

namespace tintwick::test {

bool checkPayload(QByteArrayView bytes)
{
    const auto payload = decodePayload(bytes);
    if (!payload) {
        return false;
    }
    for (const CapturedColor& color : payload->history + payload->keptColors) {
        for (const ColorFormat format : allColorFormats) {
            static_cast<void>(string(format, color));
        }
    }
    const auto written = encodePayload(*payload);
    if (!written || decodePayload(*written) != payload) {
        qFatal("An accepted file is not read back as it was written");
    }
    return true;
}

} // namespace tintwick::test
