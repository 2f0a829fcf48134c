#include "Application.h"

#include <QApplication>
#include <QPixmap>
#include <QPixmapCache>
#include <QTest>
#include <QThreadPool>

using namespace tintwick;
using namespace Qt::StringLiterals;

/// What an idle program needs of the toolkit.
class ApplicationTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void noPixmapStartsTheTimerOfThePixmapCache();
    void threadsOfTheToolkitEndSoon();
};

void ApplicationTest::initTestCase()
{
    Application::setUpToolkit();
}

void ApplicationTest::noPixmapStartsTheTimerOfThePixmapCache()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    QVERIFY(!QPixmapCache::insert(u"red"_s, pixmap));
    // As the tray does.
    QIcon icon(pixmap);
    QVERIFY(!icon.pixmap(16, 16).isNull());
}

void ApplicationTest::threadsOfTheToolkitEndSoon()
{
    QVERIFY(QThreadPool::globalInstance()->expiryTimeout() <= 1000);
}

QTEST_MAIN(ApplicationTest)
#include "ApplicationTest.moc"
