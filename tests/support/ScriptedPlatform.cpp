#include "support/ScriptedPlatform.h"

#include <QtGlobal>

namespace tintwick::test {

std::unique_ptr<LoupeSurface> ScriptedPlatform::createLoupeSurface()
{
    return std::make_unique<ScriptedLoupeSurface>(++m_loupes, journal, frames);
}

HotKeyRegistrar& ScriptedPlatform::hotKeyRegistrar()
{
    qFatal("This script has no hot keys");
}

KeyboardLayout& ScriptedPlatform::keyboardLayout()
{
    qFatal("This script has no keyboard layout");
}

} // namespace tintwick::test
