#include "Application.h"

#include <QApplication>
#include <QPixmap>
#include <QPixmapCache>
#include <QTest>
#include <QThreadPool>

using namespace tintwick;
using namespace Qt::StringLiterals;

/// Toolkit settings that prevent wake-ups of an idle program.
class ApplicationTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void pixmapsAreNotCached();
    void idleThreadsExpireWithinASecond();
};

void ApplicationTest::initTestCase()
{
    Application::setUpToolkit();
}

void ApplicationTest::pixmapsAreNotCached()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    QVERIFY(!QPixmapCache::insert(u"red"_s, pixmap));
    // The tray icon uses pixmaps in the same way.
    QIcon icon(pixmap);
    QVERIFY(!icon.pixmap(16, 16).isNull());
}

void ApplicationTest::idleThreadsExpireWithinASecond()
{
    QVERIFY(QThreadPool::globalInstance()->expiryTimeout() <= 1000);
}

QTEST_MAIN(ApplicationTest)
#include "ApplicationTest.moc"
