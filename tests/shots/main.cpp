#include "Ticker.h"
#include "shots/BadgeShots.h"
#include "shots/ColorShots.h"
#include "shots/ContrastShots.h"
#include "shots/HistoryShots.h"
#include "shots/KitGallery.h"
#include "shots/LoupeShots.h"
#include "shots/PaletteShots.h"
#include "shots/PanelShots.h"
#include "shots/RecorderShots.h"
#include "shots/SearchShots.h"
#include "shots/SettingsShots.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    // Do not use the user's colours and settings.
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qunsetenv("XDG_DATA_HOME");
    qunsetenv("XDG_CONFIG_HOME");
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Tintwick"));
    QApplication::setApplicationName(QStringLiteral("Tintwick"));
    QApplication::setApplicationVersion(QStringLiteral(TINTWICK_VERSION));
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments.at(1))) {
        std::fputs("usage: tintwick_shots FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    tintwick::Ticker::shared().setMode(tintwick::Ticker::Mode::ByHand);
    tintwick::shootKitGallery(QDir(arguments.at(1)));
    tintwick::shootLoupe(QDir(arguments.at(1)));
    tintwick::shootBadges(QDir(arguments.at(1)));
    tintwick::shootMainPanel(QDir(arguments.at(1)));
    tintwick::shootHistory(QDir(arguments.at(1)));
    tintwick::shootSearch(QDir(arguments.at(1)));
    tintwick::shootColor(QDir(arguments.at(1)));
    tintwick::shootPalette(QDir(arguments.at(1)));
    tintwick::shootContrast(QDir(arguments.at(1)));
    tintwick::shootRecorder(QDir(arguments.at(1)));
    tintwick::shootSettings(QDir(arguments.at(1)));
    return EXIT_SUCCESS;
}
