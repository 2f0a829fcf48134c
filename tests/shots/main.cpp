#include "shots/KitGallery.h"
#include "ui/kit/Ticker.h"

#include <QApplication>
#include <QDir>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments.at(1))) {
        std::fputs("usage: tintwick_shots FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    tintwick::Ticker::shared().setMode(tintwick::Ticker::Mode::ByHand);
    tintwick::shootKitGallery(QDir(arguments.at(1)));
    return EXIT_SUCCESS;
}
