#include "support/ScriptedPlatform.h"

namespace tintwick::test {

std::unique_ptr<LoupeSurface> ScriptedPlatform::createLoupeSurface()
{
    return std::make_unique<ScriptedLoupeSurface>(++m_loupes, journal, frames);
}

} // namespace tintwick::test
