#include "Application.h"

#include <QApplication>
#include <QPixmap>
#include <QPixmapCache>
#include <QTest>
#include <QThreadPool>

using namespace tintwick;
using namespace Qt::StringLiterals;

/// Settings of the toolkit that keep an idle program from waking up.
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
    // Like the tray icon.
    QIcon icon(pixmap);
    QVERIFY(!icon.pixmap(16, 16).isNull());
}

void ApplicationTest::threadsOfTheToolkitEndSoon()
{
    QVERIFY(QThreadPool::globalInstance()->expiryTimeout() <= 1000);
}

QTEST_MAIN(ApplicationTest)
#include "ApplicationTest.moc"
