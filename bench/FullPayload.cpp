#include "FullPayload.h"

#include "ColorNames.h"

#include <random>

namespace tintwick {

Payload fullPayload()
{
    constexpr int historyLimit = 100;
    std::mt19937 random(20250314);
    std::uniform_int_distribution<int> byte(0, 255);
    const auto component = [&] { return byte(random) / 255.0; };
    Payload payload;
    for (int i = 0; i < historyLimit; ++i) {
        CapturedColor color =
            CapturedColor::capture(component(), component(), component(), i % 5 == 0 ? 128 / 255.0 : 1);
        color.customName = ColorNames::shared().nearest(color);
        payload.history.append(color);
    }
    for (int i = 0; i < 20; ++i) {
        ColorCollection collection = ColorCollection::create(QStringLiteral("Collection %1").arg(i));
        for (int member = 0; member < 10; ++member) {
            collection.colorIds.append(payload.history[i * 5 % 90 + member].id);
        }
        payload.collections.append(collection);
    }
    return payload;
}

Payload fullPayloadWithFullCollection()
{
    Payload payload = fullPayload();
    ColorCollection collection = ColorCollection::create(QStringLiteral("All"));
    for (const CapturedColor& color : payload.history) {
        collection.colorIds.append(color.id);
    }
    payload.collections.prepend(collection);
    return payload;
}

} // namespace tintwick
