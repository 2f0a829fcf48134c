#include "StandardStreams.h"

#include <cstddef>
#include <cstdio>

namespace tintwick {

bool writeToStandardOutput(const QByteArray& bytes)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0;
}

void printError(const QString& line)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(line));
}

} // namespace tintwick
