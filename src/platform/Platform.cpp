#include "platform/Platform.h"

#include "platform/x11/X11Platform.h"

namespace tintwick {

std::unique_ptr<Platform> Platform::create(QString& whyNot)
{
    return X11Platform::connect(whyNot);
}

} // namespace tintwick
