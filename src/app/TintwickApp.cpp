#include "app/TintwickApp.h"

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

} // namespace

TintwickApp::TintwickApp(int& argc, char** argv, std::unique_ptr<Platform> platform)
    : m_application(argc, argv)
{
    QApplication::setOrganizationName(u"Tintwick"_s);
    QApplication::setApplicationName(u"Tintwick"_s);
    QApplication::setApplicationVersion(QStringLiteral(TINTWICK_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    m_appDelegate = std::make_unique<AppDelegate>(std::move(platform));
}

int TintwickApp::run()
{
    m_appDelegate->applicationDidFinishLaunching();
    return QApplication::exec();
}

} // namespace tintwick
