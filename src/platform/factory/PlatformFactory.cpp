#include "PlatformFactory.h"

#include "X11Platform.h"

namespace tintwick {

std::unique_ptr<Platform> createPlatform(QString& whyNot)
{
    return X11Platform::connect(whyNot);
}

} // namespace tintwick
