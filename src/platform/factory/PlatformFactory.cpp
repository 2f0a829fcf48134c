#include "PlatformFactory.h"

#include "NullPlatform.h"
#include "WaylandPlatform.h"
#include "X11Platform.h"

#include <QString>

namespace tintwick {

namespace {

/// Returns null and one sentence for the user when the backend cannot be used.
using Connect = std::unique_ptr<Platform> (*)(QString& whyNot);

/// The first backend that connects is used. When none does, the message of the last one is reported.
constexpr Connect backends[] = {&NullPlatform::connect, &WaylandPlatform::connect, &X11Platform::connect};

} // namespace

std::unique_ptr<Platform> createPlatform(QString& whyNot)
{
    for (const Connect connect : backends) {
        if (std::unique_ptr<Platform> platform = connect(whyNot)) {
            return platform;
        }
    }
    return nullptr;
}

} // namespace tintwick
