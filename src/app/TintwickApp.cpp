#include "TintwickApp.h"

#include "Preferences.h"

#include <QThreadPool>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int threadExpiry = 500; // milliseconds

} // namespace

TintwickApp::TintwickApp(int& argc, char** argv, std::unique_ptr<Platform> platform)
    : m_application(argc, argv)
{
    QApplication::setOrganizationName(u"Tintwick"_s);
    QApplication::setApplicationName(u"Tintwick"_s);
    QApplication::setApplicationVersion(QStringLiteral(TINTWICK_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    preferences::removeAbandonedLock();
    // The toolkit paints with these threads; waiting half a minute for more work they would wake an idle program.
    QThreadPool::globalInstance()->setExpiryTimeout(threadExpiry);
    m_appDelegate = std::make_unique<AppDelegate>(std::move(platform));
}

int TintwickApp::run()
{
    m_appDelegate->applicationDidFinishLaunching();
    return QApplication::exec();
}

} // namespace tintwick
