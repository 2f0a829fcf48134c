#include "Application.h"
#include "Platform.h"
#include "PlatformFactory.h"
#include "ProcessSetup.h"

#include <QApplication>
#include <QString>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    tintwick::setUpProcess();
    // Before the toolkit, which would end the process with a message of its own on a desktop that we do not support.
    QString whyNot;
    std::unique_ptr<tintwick::Platform> platform = tintwick::createPlatform(whyNot);
    if (!platform) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(whyNot));
        return EXIT_FAILURE;
    }
    QApplication toolkit(argc, argv);
    tintwick::Application::setUpToolkit();
    tintwick::Application application(std::move(platform));
    application.start();
    return QApplication::exec();
}
