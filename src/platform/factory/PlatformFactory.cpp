#include "PlatformFactory.h"

#include "NullPlatform.h"
#include "X11Platform.h"

#include <QString>

namespace tintwick {

namespace {

/// Returns none, and one sentence for the user, where the backend does not fit.
using Connect = std::unique_ptr<Platform> (*)(QString& whyNot);

/// The first one that connects is used; where none does, the user reads the sentence of the last one.
constexpr Connect backends[] = {&NullPlatform::connect, &X11Platform::connect};

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
