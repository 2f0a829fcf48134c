#include "Platform.h"
#include "PlatformFactory.h"
#include "TintwickApp.h"

#include <QString>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    QString whyNot;
    std::unique_ptr<tintwick::Platform> platform = tintwick::createPlatform(whyNot);
    if (!platform) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(whyNot));
        return EXIT_FAILURE;
    }
    tintwick::TintwickApp app(argc, argv, std::move(platform));
    return app.run();
}
