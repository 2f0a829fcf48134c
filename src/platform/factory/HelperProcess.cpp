#include "HelperProcess.h"

#include "ClipboardProcess.h"

namespace tintwick {

std::optional<int> runHelperProcess(int argc, char** argv)
{
    return runClipboardProcess(argc, argv);
}

} // namespace tintwick
