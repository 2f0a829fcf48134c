#include "SuggestedName.h"

#include "AtomicWrite.h"

#include <QTemporaryDir>
#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

class SuggestedNameTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNameFitsAFileSystem_data();
    void aNameFitsAFileSystem();
};

void SuggestedNameTest::aNameFitsAFileSystem_data()
{
    QTest::addColumn<QString>("stem");
    QTest::addColumn<QString>("kept");
    QTest::newRow("short") << u"brand-kit"_s << u"brand-kit"_s;
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("longest possible") << QString(236, u'a') << QString(236, u'a');
    QTest::newRow("one byte too long") << QString(237, u'a') << QString(236, u'a');
    QTest::newRow("characters of three bytes") << QString(82, u'青') << QString(78, u'青');
    QTest::newRow("characters of four bytes") << u"\U00020000"_s.repeated(60) << u"\U00020000"_s.repeated(59);
    QTest::newRow("letters with a combining mark") << u"e\u0301"_s.repeated(80) << u"e\u0301"_s.repeated(78);
}

void SuggestedNameTest::aNameFitsAFileSystem()
{
    QFETCH(const QString, stem);
    QFETCH(const QString, kept);
    const QString name = suggestedName(stem, u"-palette.css"_s);
    QCOMPARE(name, kept + u"-palette.css"_s);
    QVERIFY(name.toUtf8().size() <= 255);
    const QTemporaryDir folder;
    QVERIFY(writeAtomically(folder.filePath(name), "text"));
}

QTEST_APPLESS_MAIN(SuggestedNameTest)
#include "SuggestedNameTest.moc"
